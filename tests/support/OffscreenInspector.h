#pragma once

#include "TestMain.h"

#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"

#include <KlvExtender/KlvServices.h>

#include <cstdio>

/// The inspector's window with the default plug-in, settings of its own, and hands on the editor that shows
/// the selected field.
///
/// Time stands still in it: nobody processes Coin's timer queue, and so the clock and all that hangs on it
/// keep their values.
class OffscreenInspector
{
public:
    /// The main function of a tool: `work` gets the arguments and the values of --seed and --count, and says
    /// whether all is well.
    template <class Work>
    static int run(int argc, char** argv, Work work)
    {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
        SoDB::init();
        SoInteraction::init();
        bool ok = false;
        {
            const QApplication application(argc, argv);
            const QTemporaryDir folder;
            QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
            QCommandLineParser parser;
            parser.addOptions({{"seed", "Of the random edits.", "number", "1"},
                               {"count", "Of random inputs.", "number", "3000"}});
            parser.addHelpOption();
            parser.process(application);
            ok = work(parser.positionalArguments(), parser.value("seed").toUInt(),
                      parser.value("count").toInt());
        }
        SoDB::finish();
        return ok ? 0 : 1;
    }

    OffscreenInspector()
    {
        QString error;
        if (!window->plugins()->load(QStringLiteral(KELVOR_DEFAULT_PLUGIN), &error) ||
            !window->plugins()->activateProfile())
            qFatal("%s", qUtf8Printable(error));
        // Painting takes most of the time, so the panels that are not needed here are closed.
        for (auto* dock : window->findChildren<QDockWidget*>())
            dock->setVisible(dock == editorDock());
        window->resize(600, 400);
        window->show();
        window->activateWindow();
    }

    /// Lets the editors hear what has changed.
    static void settle()
    {
        processSensors();
        QApplication::processEvents();
        // Without an event loop nobody else deletes what is to be deleted later.
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Selects a field as a click in the field list does, and gives the widget of the editor that shows it.
    QWidget* show(SoField* field) const
    {
        KlvServices::getInstance()->setSelectedField(field);
        settle();
        return editorDock()->widget();
    }

    /// What of a widget, which may be null, can be reached with Tab, and the buttons.
    static QList<QWidget*> inputs(const QWidget* of)
    {
        QList<QWidget*> found = of ? of->findChildren<QWidget*>() : QList<QWidget*>();
        found.removeIf([](const QWidget* input) {
            return !input->isVisible() || !input->isEnabled() ||
                   !((input->focusPolicy() & Qt::TabFocus) || input->inherits("QPushButton"));
        });
        return found;
    }

    /// Opens a cell for editing; false when no input comes up in it.
    static bool openCell(QTableWidget* table, int row, int column)
    {
        table->setFocus();
        table->setCurrentCell(row, column);
        QTest::keyClick(table, Qt::Key_F2);
        return QApplication::focusWidget() != table && table->isAncestorOf(QApplication::focusWidget());
    }

    /// False for the edits that are, deliberately, not in the history.
    static bool isRecorded(const SoField& field, const QWidget& input)
    {
        const QByteArray kind = field.getTypeId().getName().getString();
        const QByteArrayList numbers{"MFDouble", "MFFloat", "MFInt32", "MFShort", "MFUInt32", "MFUShort"};
        return !(kind == "SFBitMask" && input.inherits("QCheckBox")) &&
               !(numbers.contains(kind) && input.inherits("QTableWidget"));
    }

    /// Enters a text where the keyboard is, in place of what is there.
    static void enter(const QString& text)
    {
        const auto key = [](auto... keys) { QTest::keyClick(QApplication::focusWidget(), keys...); };
        key(Qt::Key_A, Qt::ControlModifier);
        key(Qt::Key_Delete);
        QTest::keyClicks(QApplication::focusWidget(), text);
        key(Qt::Key_Return);
        settle();
    }

    const std::unique_ptr<MainWindow> window = std::make_unique<MainWindow>(MainWindow::Layout::Fixed);
    QUndoStack* const history = KlvServices::getInstance()->getUndoStack();

private:
    QDockWidget* editorDock() const { return window->findChild<QDockWidget*>("KlvFieldEditorDockWin"); }
};
