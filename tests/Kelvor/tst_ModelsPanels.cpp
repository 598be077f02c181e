#include "Models/SceneTreeModel.h"
#include "Models/SceneTreePanel.h"
#include "Models/SceneTreeView.h"

#include "CoinHelpers.h"
#include "TestMain.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/engines/SoCalculator.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoGroup.h>

#include <QClipboard>
#include <QSignalSpy>

#include <memory>

/// The scene tree with its selection, on a small scene.
class tst_ModelsPanels : public QObject
{
    Q_OBJECT

    using Edit = std::function<void(tst_ModelsPanels&)>;

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_root = sceneOf("Separator { Group { DEF Shared Group { DEF Box Cube {} Cone {} } }"
                         " Group { USE Shared Cube {} } }");
        m_root->ref();
        m_left = static_cast<SoGroup*>(m_root->getChild(0));
        m_shared = static_cast<SoGroup*>(m_left->getChild(0));
        m_cube = static_cast<SoCube*>(m_shared->getChild(0));
        m_services = KlvServices::getInstance();
        m_tree = std::make_unique<SceneTreePanel>();
        m_treeModel = m_tree->findChild<SceneTreeModel*>();
        m_treeView = m_tree->findChild<SceneTreeView*>();
        m_tree->setRoot(m_root);
    }

    void cleanup()
    {
        m_services->setSelectedNode(nullptr);
        m_tree.reset();
        m_root->unref();
    }

    void rowSelectsItsNode()
    {
        QSignalSpy selected(m_services, &KlvServices::selectedNodeChanged);
        m_tree->select({1, 0, 0});
        QCOMPARE(m_services->getSelectedNode(), m_cube);
        QCOMPARE(m_treeView->currentIndex(), row({1, 0, 0}));
        QVERIFY(m_treeView->isExpanded(row({1, 0})));
        m_tree->select({0, 0, 0}); // the same node elsewhere
        QCOMPARE(m_treeView->currentIndex(), row({0, 0, 0}));
        QCOMPARE(selected.size(), 1);
        m_tree->select({0, 0, 9});
        QCOMPARE(m_treeView->currentIndex(), row({0, 0, 0}));
        m_tree->select({});
        QCOMPARE(m_services->getSelectedNode(), m_root);
    }

    void nodeSelectsARow()
    {
        m_services->setSelectedNode(m_cube);
        QCOMPARE(m_treeView->currentIndex(), row({0, 0, 0}));
        QVERIFY(m_treeView->selectionModel()->isSelected(row({0, 0, 0})));
        auto* engine = new SoCalculator;
        m_services->setSelectedNode(engine); // is nowhere in the tree, and stays selected
        QVERIFY(!m_treeView->currentIndex().isValid());
        QCOMPARE(m_services->getSelectedNode(), engine);
        m_services->setSelectedField(&m_cube->width);
        QCOMPARE(m_treeView->currentIndex(), row({0, 0, 0}));
        m_services->setSelectedNode(nullptr);
        QVERIFY(!m_treeView->currentIndex().isValid());
    }

    void removedRowSelectsNothing_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<bool>("kept"); // the node is still in the tree, so it stays selected
        const auto row = [](const char* name, bool kept, const Edit& edit) {
            QTest::newRow(name) << edit << kept;
        };
        row("replaced", false, [](auto& test) { test.m_shared->replaceChild(0, new SoCone); });
        row("all removed", false, [](auto& test) { test.m_root->removeAllChildren(); });
        row("at one of its places", true, [](auto& test) { test.m_left->removeChild(0); });
        row("moved within its group", true, [](auto& test) {
            test.m_shared->addChild(test.m_cube);
            test.m_shared->removeChild(0);
        });
    }

    void removedRowSelectsNothing()
    {
        QFETCH(Edit, edit);
        QFETCH(bool, kept);
        m_cube->ref(); // the scene lets go of it, the application does not
        m_tree->select({0, 0, 0});
        QSignalSpy selected(m_services, &KlvServices::selectedNodeChanged);
        edit(*this);
        QCoreApplication::processEvents();
        QCOMPARE(m_services->getSelectedNode(), kept ? m_cube : nullptr);
        QCOMPARE(m_treeModel->node(m_treeView->currentIndex()), kept ? m_cube : nullptr);
        QCOMPARE(selected.size(), kept ? 0 : 1);
        m_services->setSelectedNode(nullptr);
        m_cube->unref();
    }

    void anotherRootDeselects()
    {
        m_tree->select({0, 0, 0});
        m_tree->setRoot(m_shared); // has the cube too
        QCOMPARE(m_treeView->currentIndex(), row({0}));
        QCOMPARE(m_services->getSelectedNode(), m_cube);
        m_tree->setRoot(nullptr);
        QVERIFY(!m_services->getSelectedNode());
    }

    void keysInTheTree()
    {
        m_tree->show();
        m_tree->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(m_tree.get()));
        m_tree->select({0, 0, 0});
        const auto copied = [](QWidget* widget, Qt::KeyboardModifiers modifiers) {
            QTest::keyClick(widget, Qt::Key_C, modifiers);
            return QGuiApplication::clipboard()->text();
        };
        QCOMPARE(copied(m_treeView, Qt::ControlModifier), QString("Box"));
        QCOMPARE(copied(m_treeView, Qt::ControlModifier | Qt::ShiftModifier), QString("Cube"));
    }

private:
    QModelIndex row(const QList<int>& path) { return m_treeModel->indexOf(path); }

    SoSeparator* m_root;
    SoGroup* m_left;
    SoGroup* m_shared;
    SoCube* m_cube;
    std::unique_ptr<SceneTreePanel> m_tree;
    SceneTreeModel* m_treeModel;
    SceneTreeView* m_treeView;
    KlvServices* m_services;
};

KLV_TEST_MAIN(tst_ModelsPanels)
#include "tst_ModelsPanels.moc"
