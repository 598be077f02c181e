#include "Answer.h"
#include "HostRun.h"

#include "Window/PluginsDialog.h"

#include <KlvExtender/KlvServices.h>

class tst_PluginsDialog : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<HostRun> m_run;
    std::unique_ptr<PluginsDialog> m_dialog;
    KlvServices* m_services = nullptr;

    void start()
    {
        m_dialog.reset();
        m_run.reset();
        m_run = std::make_unique<HostRun>(m_folder->path());
        m_dialog = std::make_unique<PluginsDialog>(&m_run->plugins);
        m_run->window.show();
        m_dialog->show();
    }
    /// The row of a plug-in or an extension, made the current one; null when there is none.
    QTreeWidgetItem* row(const QString& name) const
    {
        auto* tree = m_dialog->findChild<QTreeWidget*>();
        QTreeWidgetItem* item = tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
        tree->setCurrentItem(item);
        return item;
    }
    QString state(const QString& name) const { return row(name) ? row(name)->text(1) : "none"; }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_folder = std::make_unique<QTemporaryDir>();
        m_services = KlvServices::getInstance();
        start();
    }
    void cleanup()
    {
        m_services->setSelectedNode(nullptr);
        m_dialog.reset();
        m_run.reset();
        m_services->getUndoStack()->clear();
    }

    void statesFollowTheExtensions()
    {
        QCOMPARE(state("KlvDefaults"), QString("loaded"));
        QVERIFY(row("KlvDefaults")->text(5).endsWith("libqor_kelvor_extender_base.so"));
        QCOMPARE(state("Field Editor"), QString("active"));
        SoSFTime time;
        for (const auto& [field, editor] : {std::pair<SoField*, QString>{&time, "DvSFLineWidget"},
                                            {&(new SoCoordinate3)->point, "DvMFDefaultFieldWidget"},
                                            {&(new SoCone)->height, "DvSFFloatWidget"}}) {
            m_services->setSelectedField(field);
            QCOMPARE(state("Field Editor"), QString("visible"));
            QCOMPARE(state(editor), QString("visible"));
        }
        QVERIFY(m_run->plugins.activateProfile("Console only"));
        QCOMPARE(state("DvSFFloatWidget"), QString("inactive"));
    }

    void theChoiceIsRemembered()
    {
        m_dialog->load(HostRun::module("RecordingNone"));
        QCOMPARE(state("second"), QString("active"));
        QVERIFY(m_run->plugins.load(HostRun::module("color_plugin"), nullptr)); // as the command line does
        QVERIFY(row("KlvDefaults"));
        HostRun::click(*m_dialog, "&Unload");
        QCOMPARE(state("Default plug-in"), QString("not loaded"));
        start();
        QCOMPARE(state("Default plug-in"), QString("not loaded"));
        QCOMPARE(state("Recording"), QString("loaded"));
        QCOMPARE(state("Color Plugin"), QString("none"));

        // One that is remembered may be asked for on the command line as well.
        QVERIFY(m_run->plugins.load(HostRun::module("RecordingNone"), nullptr) && row("second"));
        HostRun::click(*m_dialog, "&Unload");
        QCOMPARE(state("Recording"), QString("none"));
        QVERIFY(row("Default plug-in"));
        HostRun::click(*m_dialog, "&Load");
        QCOMPARE(state("Console"), QString("visible"));
        start();
        QCOMPARE(state("Recording"), QString("none"));
        QCOMPARE(state("KlvDefaults"), QString("loaded"));
    }

    void aPluginThatIsGoneIsToldUntilItIsForgotten()
    {
        const QString copy = m_folder->filePath("copy.so");
        QVERIFY(QFile::copy(HostRun::module("RecordingNone"), copy));
        m_dialog->load(copy);
        QVERIFY(QFile::remove(copy));
        start();
        QVERIFY2(m_run->problems.join(' ').contains(copy), qPrintable(m_run->problems.join(' ')));
        QCOMPARE(state("copy.so"), QString("not loaded"));
        Answer answer(QMessageBox::Ok);
        HostRun::click(*m_dialog, "&Load");
        QVERIFY2(answer.text.contains(copy) && answer.text.endsWith('.'), qPrintable(answer.text));
        HostRun::click(*m_dialog, "F&orget");
        QCOMPARE(state("copy.so"), QString("none"));
        start();
        QVERIFY(m_run->problems.isEmpty());
    }

    void unloadingWhileInUse()
    {
        m_dialog->load(HostRun::module("color_plugin"));
        auto* light = new SoDirectionalLight;
        light->ref();
        m_services->setSelectedField(&light->color);
        auto* dock = m_run->window.findChild<QDockWidget*>("KlvFieldEditorDockWin");
        auto* edit = qobject_cast<QLineEdit*>(dock->widget());
        edit->selectAll();
        QTest::keyClicks(edit, "#ff0080\r");
        QCOMPARE(light->color.getValue()[1], 0.0f);
        QUndoStack* history = m_services->getUndoStack();
        QCOMPARE(state("Color Editor"), QString("active"));
        for (const auto button : {QMessageBox::Cancel, QMessageBox::Yes}) {
            QCOMPARE(history->count(), 1);
            Answer answer(button);
            HostRun::click(*m_dialog, "&Unload");
        }
        QCOMPARE(state("Color Editor"), QString("none"));
        // The scene is still changed.
        QVERIFY(!dock->widget() && history->count() == 0 && !history->isClean());
        QVERIFY(!m_services->getSelectedField() && !m_services->getSelectedNode());
        light->color = SbColor(0, 1, 0);
        processSensors();
        m_services->setSelectedField(&light->color);
        QVERIFY(dock->widget());
        light->unref();
    }
};

KLV_TEST_MAIN(tst_PluginsDialog)
#include "tst_PluginsDialog.moc"
