#include "Models/SceneTreeModel.h"
#include "Models/SceneTreePanel.h"
#include "Models/SceneTreeView.h"
#include "Search/SearchBar.h"

#include "TestMain.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/engines/SoCalculator.h>

/// The scene tree with its selection and its search line, used with keys and the mouse.
class tst_SceneTreePanel : public QObject
{
    Q_OBJECT

    using Edit = std::function<void(tst_SceneTreePanel&)>;

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_root = sceneOf("Separator { DEF A Cube {} DEF Twice Group { DEF B Cube {} Cone {} } USE Twice"
                         " DEF C Cube {} }");
        m_root->ref();
        m_group = static_cast<SoGroup*>(m_root->getChild(1));
        m_cube = static_cast<SoCube*>(m_group->getChild(0));
        m_panel = std::make_unique<SceneTreePanel>();
        m_line = m_panel->findChild<QLineEdit*>();
        m_label = m_panel->findChild<SearchBar*>()->findChild<QLabel*>();
        m_view = m_panel->findChild<SceneTreeView*>();
        m_model = m_panel->findChild<SceneTreeModel*>();
        m_panel->setRoot(m_root);
        m_panel->show();
        m_panel->activateWindow();
        m_panel->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    }

    void cleanup()
    {
        m_services->setSelectedNode(nullptr);
        m_panel.reset();
        m_root->unref();
    }

    void rowSelectsItsNode()
    {
        QSignalSpy selected(m_services, &KlvServices::selectedNodeChanged);
        m_panel->select({2, 0});
        QCOMPARE(m_services->getSelectedNode(), m_cube);
        QCOMPARE(m_view->currentIndex(), row({2, 0}));
        QVERIFY(m_view->isExpanded(row({2})));
        m_panel->select({1, 0}); // the same node elsewhere
        QCOMPARE(m_view->currentIndex(), row({1, 0}));
        QCOMPARE(selected.size(), 1);
        m_panel->select({1, 9});
        QCOMPARE(m_view->currentIndex(), row({1, 0}));
        m_panel->select({});
        QCOMPARE(m_services->getSelectedNode(), m_root);
    }

    void nodeSelectsARow()
    {
        m_services->setSelectedNode(m_cube);
        QCOMPARE(m_view->currentIndex(), row({1, 0}));
        QVERIFY(m_view->selectionModel()->isSelected(row({1, 0})));
        auto* engine = new SoCalculator;
        m_services->setSelectedNode(engine); // is nowhere in the tree, and stays selected
        QVERIFY(!m_view->currentIndex().isValid());
        QCOMPARE(m_services->getSelectedNode(), engine);
        m_services->setSelectedField(&m_cube->width);
        QCOMPARE(m_view->currentIndex(), row({1, 0}));
        m_services->setSelectedNode(nullptr);
        QVERIFY(!m_view->currentIndex().isValid());
    }

    void removedRowSelectsNothing_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<bool>("kept"); // the node is still in the tree, so it stays selected
        const auto row = [](const char* name, bool kept, const Edit& edit) {
            QTest::newRow(name) << edit << kept;
        };
        row("replaced", false, [](auto& test) { test.m_group->replaceChild(0, new SoCone); });
        row("all removed", false, [](auto& test) { test.m_root->removeAllChildren(); });
        row("at one of its places", true, [](auto& test) { test.m_root->removeChild(1); });
        row("moved within its group", true, [](auto& test) {
            test.m_group->addChild(test.m_cube);
            test.m_group->removeChild(0);
        });
        row("moved far behind", true, [](auto& test) {
            test.addCubes(120'000);
            static_cast<SoGroup*>(test.m_root->getChild(4))->addChild(test.m_cube);
            test.m_group->removeChild(0);
        });
    }

    void removedRowSelectsNothing()
    {
        QFETCH(Edit, edit);
        QFETCH(bool, kept);
        m_cube->ref(); // the scene lets go of it, the application does not
        m_panel->select({1, 0});
        QSignalSpy selected(m_services, &KlvServices::selectedNodeChanged);
        edit(*this);
        QCoreApplication::processEvents();
        QCOMPARE(m_services->getSelectedNode(), kept ? m_cube : nullptr);
        QCOMPARE(m_model->node(m_view->currentIndex()), kept ? m_cube : nullptr);
        QCOMPARE(selected.size(), kept ? 0 : 1);
        m_services->setSelectedNode(nullptr);
        m_cube->unref();
    }

    void anotherRootDeselects()
    {
        m_panel->select({1, 0});
        m_panel->setRoot(m_group); // has the cube too
        QCOMPARE(m_view->currentIndex(), row({0}));
        QCOMPARE(m_services->getSelectedNode(), m_cube);
        m_panel->setRoot(nullptr);
        QVERIFY(!m_services->getSelectedNode());
    }

    void keysInTheTree()
    {
        m_panel->select({1, 0});
        QTest::keyClick(m_view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("B"));
        QTest::keyClick(m_view, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("Cube"));
    }

    void typingChoosesTheFirstMatch()
    {
        QTest::keyClick(m_view, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(m_line->hasFocus());
        for (const char key : QByteArray("type:cube")) {
            QTest::keyClick(m_line, key);
            QTest::qWait(30);
        }
        QTRY_COMPARE(m_label->text(), QString("1 of 3"));
        QCOMPARE(selected(), QString("A"));
        QVERIFY(m_line->hasFocus() && m_line->text() == "type:cube");
        QVERIFY(isEmphasized({0}) && isEmphasized({2, 0}) && !isEmphasized({1}));
    }

    void keysGoFromMatchToMatch()
    {
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*> rows[] = {
            {Qt::Key_Return, Qt::NoModifier, "2 of 3"}, {Qt::Key_F3, Qt::NoModifier, "3 of 3"},
            {Qt::Key_Down, Qt::NoModifier, "1 of 3"},   {Qt::Key_Up, Qt::NoModifier, "3 of 3"},
            {Qt::Key_F3, Qt::ShiftModifier, "2 of 3"},  {Qt::Key_Return, Qt::ShiftModifier, "1 of 3"}};
        find("type:cube");
        for (const auto& [key, modifiers, label] : rows) {
            QTest::keyClick(m_line, key, modifiers);
            QCOMPARE(m_label->text(), QString(label));
        }
        m_panel->select({1, 1}); // from where somebody went in the tree
        QCOMPARE(m_label->text(), QString("3 matches"));
        QTest::keyClick(m_view, Qt::Key_F3);
        QCOMPARE(selected(), QString("C"));
        for (auto* button : m_panel->findChildren<QToolButton*>()) {
            if (button->accessibleName() == "Previous Match")
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QCOMPARE(selected(), QString("B"));
        m_panel->select({0});
        m_root->addChild(new SoCube);
        QCoreApplication::processEvents();
        QTest::keyClick(m_line, Qt::Key_Up); // looks again
        QTRY_COMPARE(m_label->text(), QString("4 of 4"));
    }

    void escapeStopsClearsAndLeaves()
    {
        addCubes(300'000);
        QTest::keyClicks(m_line, "name:nothing");
        QTest::keyClick(m_line, Qt::Key_Return);
        QCOMPARE(m_label->text(), QString("Searching…"));
        QTest::keyClick(m_line, Qt::Key_Escape);
        QCOMPARE(m_label->text(), QString("Stopped"));
        QTest::keyClick(m_line, Qt::Key_Escape);
        QVERIFY(m_line->text().isEmpty() && m_label->isHidden());
        QTest::keyClick(m_line, Qt::Key_Escape);
        QVERIFY(m_view->hasFocus());
    }

    void pausesAtManyMatches()
    {
        addCubes(25'000);
        find("type:cube");
        QTRY_COMPARE(m_label->text(), QString("1 of 10,000+"));
        m_panel->select({4, 9'996}); // the last one so far
        QCOMPARE(m_label->text(), QString("10,000 of 10,000+"));
        QTest::keyClick(m_line, Qt::Key_Down);
        QTRY_VERIFY(m_label->text().startsWith("10,001 of 2"));
    }

    void skipsWhatHasGone()
    {
        find("type:cube");
        static_cast<SoGroup*>(m_root->getChild(1))->replaceChild(0, new SoCone);
        QTest::keyClick(m_line, Qt::Key_Return);
        QCOMPARE(selected(), QString("C"));
        m_root->removeAllChildren();
        QCoreApplication::processEvents();
        QTest::keyClick(m_line, Qt::Key_Return); // looks again
        QTRY_COMPARE(m_label->text(), QString("No match"));
        m_root->addChild(new SoCube);
        QTest::keyClick(m_line, Qt::Key_Return);
        QTRY_COMPARE(m_label->text(), QString("1 of 1"));
        m_panel->setRoot(nullptr);
        QTRY_COMPARE(m_label->text(), QString("No match"));
    }

    void saysWhatIsWrong()
    {
        const QColor base = m_line->palette().color(QPalette::Base);
        find("is:chnged");
        QVERIFY(m_label->text().contains("is:changed"));
        QVERIFY(m_line->palette().color(QPalette::Base) != base);
        m_line->clear();
        QCOMPARE(m_line->palette().color(QPalette::Base), base);
    }

    void tellsTheOccurrence()
    {
        using Path = std::optional<QList<int>>;
        QList<Path> told;
        connect(m_panel.get(), &SceneTreePanel::occurrenceChanged, this,
                [&told](const Path& path) { told += path; });
        m_panel->select({2, 0});
        m_root->insertChild(new SoCone, 0);
        m_root->removeChild(1);
        m_root->removeChild(1);
        QCoreApplication::processEvents();
        m_root->removeAllChildren();
        QCoreApplication::processEvents();
        QCOMPARE(told, QList<Path>({Path({2, 0}), Path({1, 0}), Path()}));
    }

private:
    void find(const QString& line)
    {
        m_line->setFocus();
        QTest::keyClicks(m_line, line);
        QTest::keyClick(m_line, Qt::Key_Return); // does not wait for the pause in typing
        QTRY_VERIFY(!m_label->text().isEmpty() && !m_label->text().endsWith(QChar(0x2026)));
    }

    void addCubes(int count)
    {
        auto* group = new SoGroup;
        for (int i = 0; i < count; ++i)
            group->addChild(new SoCube);
        m_root->addChild(group);
        QCoreApplication::processEvents();
    }

    QString selected() const
    {
        const SoFieldContainer* node = m_services->getSelectedNode();
        return node ? QString::fromUtf8(node->getName().getString()) : QString();
    }

    QModelIndex row(const QList<int>& path) { return m_model->indexOf(path); }
    bool isEmphasized(const QList<int>& path) { return row(path).data(Qt::FontRole).value<QFont>().bold(); }

    KlvServices* m_services = KlvServices::getInstance();
    SoSeparator* m_root;
    SoGroup* m_group;
    SoCube* m_cube;
    std::unique_ptr<SceneTreePanel> m_panel;
    QLineEdit* m_line;
    QLabel* m_label;
    SceneTreeView* m_view;
    SceneTreeModel* m_model;
};

KLV_TEST_MAIN(tst_SceneTreePanel)
#include "tst_SceneTreePanel.moc"
