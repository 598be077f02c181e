#include "Answer.h"

#include "Models/DockReveal.h"
#include "Models/SceneTreePanel.h"
#include "Scene/SceneDocument.h"
#include "View/SceneView.h"
#include "Window/DocumentActions.h"
#include "Window/HostPlugins.h"
#include "Window/HostSettings.h"
#include "Window/MainWindow.h"

#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvServices.h>

class tst_MainWindow : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
    KlvServices* m_services = nullptr;

    QString write(const QString& name, const QByteArray& content)
    {
        QFile file(m_folder.filePath(name));
        return file.open(QFile::WriteOnly) && file.write(content) == content.size() ? file.fileName()
                                                                                    : QString();
    }

    void open()
    {
        m_window = std::make_unique<MainWindow>(MainWindow::Layout::Kept);
        QString error;
        QVERIFY2(m_window->plugins()->load(KELVOR_DEFAULT_PLUGIN, &error), qPrintable(error));
        QVERIFY(m_window->plugins()->activateProfile());
        m_window->show();
    }

    SoCone* cone() const
    {
        return static_cast<SoCone*>(static_cast<SoSeparator*>(m_window->document()->root())->getChild(0));
    }

    QDockWidget* editorDock() const { return m_window->findChild<QDockWidget*>("KlvFieldEditorDockWin"); }

    QWidget* named(const QString& accessibleName) const
    {
        for (auto* widget : m_window->findChildren<QWidget*>()) {
            if (widget->accessibleName() == accessibleName)
                return widget;
        }
        qFatal("%s", qPrintable(accessibleName));
    }

    /// The text input of the editor, with the focus and its text selected.
    QLineEdit* input() const
    {
        auto* edit = editorDock()->findChild<QLineEdit*>();
        edit->setFocus();
        edit->selectAll();
        return edit;
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        HostSettings().clear();
        m_services = KlvServices::getInstance();
        open();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_window->documentActions()->open(write("cone.iv", "#Inventor V2.1 ascii\nCone { height 3 }\n"));
        QVERIFY(m_window->document()->root());
    }

    void cleanup() { m_window.reset(); }

    void undoAndRedoWorkFromTheInputOfAnEditor()
    {
        m_services->setSelectedField(&cone()->height);
        QLineEdit* edit = input();
        QTest::keyClicks(edit, "7.25\r");
        QCOMPARE(cone()->height.getValue(), 7.25f);
        QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(cone()->height.getValue(), 3.0f);
        QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(cone()->height.getValue(), 7.25f);
        QVERIFY(edit->hasFocus());
        QVERIFY(m_window->isWindowModified());
        m_services->getUndoStack()->undo();
        QVERIFY(!m_window->isWindowModified());
    }

    void anUnreadableFileLeavesTheSceneOpen()
    {
        SoNode* root = m_window->document()->root();
        for (const QString& file : {m_folder.filePath("missing.iv"), m_folder.path()}) {
            Answer ok(QMessageBox::Ok);
            m_window->documentActions()->open(file);
            QVERIFY2(ok.text.contains(file) && ok.text.endsWith('.'), qPrintable(ok.text));
            QCOMPARE(m_window->document()->root(), root);
        }
    }

    void changesAreNotLostUnasked()
    {
        const QString other = write("other.iv", "#Inventor V2.1 ascii\nCube {}\n");
        m_services->setSelectedField(&cone()->height);
        QTest::keyClicks(input(), "1\r");
        SoNode* root = m_window->document()->root();
        {
            Answer cancel(QMessageBox::Cancel);
            m_window->documentActions()->open(other);
            QCOMPARE(m_window->document()->root(), root);
        }
        {
            Answer cancel(QMessageBox::Cancel);
            QVERIFY(!m_window->close());
        }
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(other)});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        Answer discard(QMessageBox::Discard);
        QApplication::sendEvent(m_window.get(), &drop);
        QTRY_COMPARE(m_window->document()->fileName(), other);
        QCOMPARE(m_services->getUndoStack()->count(), 0);
        QCOMPARE(m_services->getSelectedNode(), nullptr);
    }

    void savesInPlace()
    {
        m_services->setSelectedField(&cone()->height);
        QTest::keyClicks(input(), "1.25"); // not taken yet
        QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!m_window->isWindowModified());
        QTest::keyClicks(input(), "2.25");
        Answer save(QMessageBox::Save);
        QVERIFY(m_window->close());
        QFile file(m_folder.filePath("cone.iv"));
        QVERIFY(file.open(QFile::ReadOnly));
        QVERIFY(file.readAll().contains("height 2.25"));
        QVERIFY(QDir(m_folder.path()).entryList(QDir::Files).filter("cone").size() == 1);
    }

    void asksBeforeAFileLosesWhatIsNotInTheScene()
    {
        const QString file =
            write("mine.iv", "#Inventor V2.1 ascii\nInfo { string \"#1\" } # tuned by hand\n");
        const auto save = [this, &file](QMessageBox::StandardButton button, const char* mentions) {
            m_window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
            m_services->getUndoStack()->resetClean();
            Answer answer(button);
            QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier);
            QVERIFY2(mentions ? answer.text.contains(mentions) : answer.text.isEmpty(),
                     qPrintable(answer.text));
            QCOMPARE(m_window->isWindowModified(), button == QMessageBox::Cancel);
        };
        m_window->documentActions()->open(file);
        save(QMessageBox::Cancel, "comments");
        save(QMessageBox::Save, "comments");
        save(QMessageBox::Save, nullptr);
        write("mine.iv", "#Inventor V2.1 ascii\nCone {}\n");
        save(QMessageBox::Cancel, "another program");
        save(QMessageBox::Save, "another program");
    }

    void escapeInTheTreeSelectsNothing()
    {
        m_services->setSelectedNode(cone());
        m_window->treePanel()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QCOMPARE(m_services->getSelectedNode(), nullptr);
    }

    void savesAsAnotherFileWhatMustNotBeOverwritten()
    {
        const QString file = write("odd.iv.gz", "#Inventor V2.1 ascii\nCone {}\n} Cube {}\n");
        m_window->documentActions()->open(file);
        QTimer::singleShot(0, this, [] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog && dialog->selectedFiles().constFirst().endsWith("/odd.iv"));
            dialog->reject();
        });
        m_services->setSelectedField(&cone()->height);
        QTest::keyClicks(input(), "9\r");
        QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier);
        QVERIFY(m_window->isWindowModified());
        m_services->getUndoStack()->setClean();
    }

    void typedTextThatIsNotTakenYetIsAChange()
    {
        const QString info = write("info.iv", "#Inventor V2.1 ascii\nInfo { string \"old\" }\n");
        m_window->documentActions()->open(info);
        auto* node =
            static_cast<SoInfo*>(static_cast<SoSeparator*>(m_window->document()->root())->getChild(0));
        m_services->setSelectedField(&node->string);
        QTest::keyClicks(input(), "older");
        Answer cancel(QMessageBox::Cancel);
        QVERIFY(!m_window->close());
        QCOMPARE(node->string.getValue(), SbString("older"));
        QString error;
        QVERIFY(m_window->document()->save(m_folder.filePath("saved.iv"), &error));
        QVERIFY(m_window->windowTitle().contains("saved.iv"));
        m_services->getUndoStack()->setClean();
    }

    void lettersInAnOpenMenuAreForTheMenu()
    {
        const QAction* headlight = m_window->view()->viewActions().headlight;
        const bool lit = headlight->isChecked();
        m_window->view()->setFocus();
        QTest::keyClick(m_window.get(), Qt::Key_T, Qt::AltModifier);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_L);
        QCOMPARE(headlight->isChecked(), lit);
        QVERIFY(m_window->findChild<QDialog*>()->isVisible()); // of the plug-ins
    }

    void tabGoesThroughAllThatIsSeen()
    {
        // Without a change in the list of changes, and with another panel behind its tab.
        m_window->findChild<QDockWidget*>("Changes")->raise();
        m_services->setSelectedField(&cone()->height);
        m_window->view()->setFocus();
        QWidgetList visited;
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            visited << QApplication::focusWidget();
            QVERIFY2(!visited.last()->visibleRegion().isEmpty(), visited.last()->metaObject()->className());
        } while (visited.last() != m_window->view() && visited.size() < 100);
        for (const char* name : {"Scene tree", "Fields", "Value", "Live update"})
            QVERIFY2(visited.contains(named(name)), name);
        QVERIFY(visited.last() == m_window->view());
    }

    void returnInTheFieldListGoesToTheValue()
    {
        m_services->setSelectedField(&cone()->height);
        for (const bool floating : {false, true}) {
            editorDock()->setFloating(floating);
            m_window->activateWindow();
            named("Fields")->setFocus();
            QTest::keyClick(named("Fields"), Qt::Key_Return);
            QTRY_COMPARE(QApplication::focusWidget(), named("Value"));
        }
    }

    void findsNodesFromEverywhere_data()
    {
        QTest::addColumn<QString>("found");
        for (const char* name : {"3D view", "History", "Changes", "Scene tree"})
            QTest::newRow(name) << "Find nodes";
        QTest::newRow("Fields") << "Filter fields";
    }

    void findsNodesFromEverywhere()
    {
        QFETCH(QString, found);
        m_services->setSelectedField(&cone()->height);
        QTest::keyClicks(input(), "5\r"); // a change
        QWidget* start = named(QTest::currentDataTag());
        revealInDock(start);
        start->setFocus();
        QTest::keyClick(start, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(named(found)->hasFocus());
        m_services->getUndoStack()->setClean();
    }

    void aListShowsWhetherItHasTheFocus()
    {
        m_services->setSelectedField(&cone()->height);
        for (const char* name : {"Scene tree", "Fields"}) {
            auto* list = static_cast<QTreeView*>(named(name));
            const auto color = [list] {
                const QRect row = list->visualRect(list->currentIndex());
                return list->viewport()->grab().toImage().pixelColor(row.right() - 2, row.center().y());
            };
            m_window->view()->setFocus();
            const QColor without = color();
            list->setFocus();
            QVERIFY(color() != without && color() != list->palette().color(QPalette::Base));
            const QPoint empty = list->viewport()->rect().bottomLeft() + QPoint(5, -5);
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, empty);
            QVERIFY(list->selectionModel()->isSelected(list->currentIndex()));
        }
    }

    void profilesAreChosenFromTheMenu()
    {
        auto* manager = KlvPluginsManager::getInstance();
        auto* profile = new KlvProfile("This & that");
        manager->addProfile(profile);
        QTest::keyClick(m_window.get(), Qt::Key_T, Qt::AltModifier);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_A);
        auto* menu = static_cast<QMenu*>(QApplication::activePopupWidget());
        QCOMPARE(menu->actions().size(), manager->getProfilesList().size());
        QVERIFY(menu->actions().constFirst()->isChecked());
        QCOMPARE(menu->actions().constLast()->text(), QString("This && that"));
        QTest::keyClick(menu, Qt::Key_Up);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(manager->getActiveProfile(), profile);
        manager->removeProfile(profile);
    }

    void saysHowToGetAScene()
    {
        m_window.reset();
        open();
        const QList<QLabel*> labels = m_window->view()->findChildren<QLabel*>();
        const auto isAsked = [&labels] {
            return labels.constFirst()->isVisible() && labels.constFirst()->text().contains("Ctrl+O");
        };
        QVERIFY(isAsked() && !m_window->view()->viewActions().seek->isEnabled());
        m_window->documentActions()->open(m_folder.filePath("cone.iv"));
        QVERIFY(!isAsked() && m_window->view()->viewActions().seek->isEnabled());
    }

    void tellsItsKeys()
    {
        QTest::keyClick(m_window.get(), Qt::Key_F1);
        const auto* table = m_window->findChild<QTreeWidget*>();
        for (const char* what : {"Redo", "Find Nodes", "Orbit", "Expand All Below", "Copy Value"})
            QVERIFY2(table->findItems(what, Qt::MatchExactly | Qt::MatchRecursive).size() == 1, what);
    }

    void theLayoutIsKept()
    {
        auto* tree = m_window->findChild<QDockWidget*>("SceneTree");
        m_window->addDockWidget(Qt::RightDockWidgetArea, tree);
        m_window->findChild<QDockWidget*>("History")->close();
        m_window->addDockWidget(Qt::BottomDockWidgetArea, editorDock());
        auto* toolBar = m_window->findChild<QToolBar*>();
        m_window->addToolBar(Qt::BottomToolBarArea, toolBar);
        m_services->setSelectedField(&cone()->height);
        QVERIFY(m_window->close());
        m_window.reset();
        open();
        QCOMPARE(m_window->dockWidgetArea(m_window->findChild<QDockWidget*>("SceneTree")),
                 Qt::RightDockWidgetArea);
        QCOMPARE(m_window->dockWidgetArea(editorDock()), Qt::BottomDockWidgetArea);
        QCOMPARE(m_window->toolBarArea(m_window->findChild<QToolBar*>()), Qt::BottomToolBarArea);
        QVERIFY(!m_window->findChild<QDockWidget*>("History")->isVisible());
        QVERIFY(!editorDock()->isVisible()); // It was open, but nothing is selected now.
    }
};

KLV_TEST_MAIN(tst_MainWindow)
#include "tst_MainWindow.moc"
