#include "Models/FieldListModel.h"
#include "Models/FieldListPanel.h"
#include "Models/FieldListView.h"
#include "Models/SceneTreeModel.h"
#include "Models/SceneTreePanel.h"
#include "Models/SceneTreeView.h"

#include "TestMain.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/engines/SoCalculator.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QClipboard>
#include <QSignalSpy>

#include <memory>

/// Both panels on one small scene: a group with a cube and a cone, shared by two groups, and a cube of its
/// own.
class tst_ModelsPanels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void rowSelectsItsNode();
    void nodeSelectsARow();
    void removedRowSelectsNothing_data();
    void removedRowSelectsNothing();
    void anotherRootDeselects();
    void fieldsAndSelectionGoTogether();
    void keysInTheLists();

private:
    QModelIndex row(const QList<int>& path) { return m_treeModel->indexOf(path); }

    SoSeparator* m_root;
    SoGroup* m_left;
    SoGroup* m_right;
    SoGroup* m_shared;
    SoCube* m_cube;
    std::unique_ptr<SceneTreePanel> m_tree;
    std::unique_ptr<FieldListPanel> m_fields;
    SceneTreeModel* m_treeModel;
    SceneTreeView* m_treeView;
    KlvServices* m_services;
};

void tst_ModelsPanels::init()
{
    QTest::failOnWarning(unexpectedWarnings());
    m_root = new SoSeparator;
    m_root->ref();
    m_left = new SoGroup;
    m_right = new SoGroup;
    m_shared = new SoGroup;
    m_cube = new SoCube;
    m_cube->setName("Box");
    m_root->addChild(m_left);
    m_root->addChild(m_right);
    m_left->addChild(m_shared);
    m_right->addChild(m_shared);
    m_right->addChild(new SoCube);
    m_shared->addChild(m_cube);
    m_shared->addChild(new SoCone);
    m_services = KlvServices::getInstance();
    m_tree = std::make_unique<SceneTreePanel>();
    m_fields = std::make_unique<FieldListPanel>();
    m_treeModel = m_tree->findChild<SceneTreeModel*>();
    m_treeView = m_tree->findChild<SceneTreeView*>();
    m_tree->setRoot(m_root);
}

void tst_ModelsPanels::cleanup()
{
    m_services->setSelectedNode(nullptr);
    m_fields.reset();
    m_tree.reset();
    m_root->unref();
}

void tst_ModelsPanels::rowSelectsItsNode()
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

void tst_ModelsPanels::nodeSelectsARow()
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

void tst_ModelsPanels::removedRowSelectsNothing_data()
{
    using Edit = std::function<void(tst_ModelsPanels&)>;
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<bool>("kept"); // the node is still in the tree, so it stays selected
    QTest::newRow("removed") << Edit([](auto& test) { test.m_shared->removeChild(0); }) << false;
    QTest::newRow("replaced") << Edit([](auto& test) { test.m_shared->replaceChild(0, new SoCone); })
                              << false;
    QTest::newRow("all removed") << Edit([](auto& test) { test.m_root->removeAllChildren(); }) << false;
    QTest::newRow("at one of its places") << Edit([](auto& test) { test.m_left->removeChild(0); }) << true;
    QTest::newRow("moved within its group") << Edit([](auto& test) {
        test.m_shared->addChild(test.m_cube);
        test.m_shared->removeChild(0);
    }) << true;
    QTest::newRow("a neighbour") << Edit([](auto& test) { test.m_shared->removeChild(1); }) << true;
}

void tst_ModelsPanels::removedRowSelectsNothing()
{
    QFETCH(std::function<void(tst_ModelsPanels&)>, edit);
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

void tst_ModelsPanels::anotherRootDeselects()
{
    m_tree->select({0, 0, 0});
    m_tree->setRoot(m_right); // has the cube too
    QCOMPARE(m_treeView->currentIndex(), row({0, 0}));
    QCOMPARE(m_services->getSelectedNode(), m_cube);
    m_tree->setRoot(nullptr);
    QVERIFY(!m_services->getSelectedNode());
}

void tst_ModelsPanels::fieldsAndSelectionGoTogether()
{
    auto* model = m_fields->findChild<FieldListModel*>();
    auto* view = m_fields->findChild<FieldListView*>();
    m_tree->select({0, 0, 0});
    QCOMPARE(model->rowCount(), 3);
    QVERIFY(!view->currentIndex().isValid() && !m_services->getSelectedField());
    view->setCurrentIndex(model->indexOf(&m_cube->height));
    QCOMPARE(m_services->getSelectedField(), &m_cube->height);
    m_services->setSelectedField(&m_cube->depth);
    QCOMPARE(view->currentIndex(), model->indexOf(&m_cube->depth));
    m_services->setSelectedField(nullptr);
    QVERIFY(!view->currentIndex().isValid());
    QCOMPARE(m_services->getSelectedNode(), m_cube);
    m_services->setSelectedField(&m_cube->depth);
    m_shared->removeAllChildren(); // deletes the cube, but for the selection
    m_shared->removeAllChildren();
    QCoreApplication::processEvents();
    QCOMPARE(model->rowCount(), 0);
    QVERIFY(!m_services->getSelectedField());
}

void tst_ModelsPanels::keysInTheLists()
{
    auto* view = m_fields->findChild<FieldListView*>();
    m_fields->show();
    m_tree->show();
    m_tree->activateWindow();
    m_tree->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_tree.get()));
    m_tree->select({0, 0, 0});
    const auto copied = [](QWidget* widget, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(widget, Qt::Key_C, modifiers);
        return QGuiApplication::clipboard()->text();
    };
    QCOMPARE(copied(m_treeView, Qt::ControlModifier), QStringLiteral("Box"));
    QCOMPARE(copied(m_treeView, Qt::ControlModifier | Qt::ShiftModifier), QStringLiteral("Cube"));

    m_fields->activateWindow();
    m_fields->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_fields.get()));
    view->setCurrentIndex(view->model()->index(0, FieldListModel::ValueColumn));
    QTest::keyClick(view, Qt::Key_D); // names are looked for, whatever column was clicked
    QCOMPARE(m_services->getSelectedField(), &m_cube->depth);
    QCOMPARE(copied(view, Qt::ControlModifier), QStringLiteral("2"));
    QSignalSpy activated(m_fields.get(), &FieldListPanel::fieldActivated);
    QTest::keyClick(view, Qt::Key_Return);
    QCOMPARE(activated.size(), 1);
}

KLV_TEST_MAIN(tst_ModelsPanels)
#include "tst_ModelsPanels.moc"
