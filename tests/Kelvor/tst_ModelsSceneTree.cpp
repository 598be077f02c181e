#include "Models/SceneChildren.h"
#include "Models/SceneSearch.h"
#include "Models/SceneTreeModel.h"
#include "Models/SceneTreeView.h"

#include "TestMain.h"

#include <Inventor/VRMLnodes/SoVRMLGroup.h>

#include <QAbstractItemModelTester>

namespace {

SoNode* cone(const char* name)
{
    auto* node = new SoCone;
    node->setName(name);
    return node;
}

/// The rows below an index, all fetched, as "Type(Type,Type(…))".
QString outline(QAbstractItemModel& model, const QModelIndex& index)
{
    if (model.canFetchMore(index))
        model.fetchMore(index);
    QStringList children;
    for (int row = 0; row < model.rowCount(index); ++row)
        children += outline(model, model.index(row, 0, index));
    const QString type = index.data().toString();
    return children.isEmpty() ? type
                              : type + QLatin1Char('(') + children.join(QLatin1Char(',')) + QLatin1Char(')');
}

/// True when every fetched row stands for the child that is there now, and no row is missing.
bool agrees(const SceneTreeModel& model, const QModelIndex& index)
{
    const SoNode* node = model.node(index);
    const int count = node ? SceneChildren(node).count() : -1;
    const int rows = model.rowCount(index);
    bool agree = model.hasChildren(index) == (count > 0) && rows <= count &&
                 (rows == count || model.canFetchMore(index) || model.hasMoreSlices(index));
    for (int row = 0; row < rows; ++row) {
        const QModelIndex child = model.index(row, 0, index);
        const SoNode* there = node ? SceneChildren::at(node, row) : nullptr;
        const bool right = there && model.node(child) == there && child.data().isValid();
        agree = agrees(model, child) && right && agree; // reads all rows in any case
    }
    return agree;
}

} // namespace

class tst_ModelsSceneTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_model = std::make_unique<SceneTreeModel>();
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        // It would fetch in the middle of a reset, and everything.
        m_tester->setUseFetchMore(false);
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
    }

    void showsAllChildren()
    {
        const std::pair<const char*, const char*> rows[] = {
            {"FaceSet { vertexProperty VertexProperty {} }", "Separator(FaceSet(VertexProperty))"},
            {"ShaderProgram { shaderObject [ VertexShader {}, FragmentShader {} ] }",
             "Separator(ShaderProgram(VertexShader,FragmentShader))"},
            {"New { fields [ MFNode kids, SFNode one ] kids [ Cube {}, Cube {} ] one Cone {} }",
             "Separator(New(Cube,Cube,Cone))"},
            // Each part of a node kit once, and each node of a VRML grouping node.
            {"ShapeKit { shape Cone {} }", "Separator(ShapeKit(Separator(Separator(Cone))))"},
            {"#VRML V2.0 utf8\nCollision { children Shape { geometry Box {} } proxy Group {} }",
             "Separator(VRMLCollision(VRMLShape(VRMLBox),VRMLGroup))"},
            {"#VRML V2.0 utf8\nPROTO P [] { Group { children Shape {} } } Transform { children P {} }",
             "Separator(SoProto,VRMLTransform(VRMLGroup(VRMLShape)))"}};
        for (const auto& [scene, expected] : rows) {
            SoNode* root = sceneOf(scene);
            m_model->setRoot(root);
            QCOMPARE(outline(*m_model, m_model->index(0, 0)), QString::fromLatin1(expected));
        }
    }

    void followsEdits()
    {
        // The edit, the names then, and those that persistent indexes must still find.
        const std::tuple<std::function<void(SoGroup*)>, const char*, const char*> rows[] = {
            {[](SoGroup* group) { // in several places at once
                 group->replaceChild(0, cone("X"));
                 group->replaceChild(2, cone("Y"));
                 group->removeChild(4);
             },
             "XBYD", "BD"},
            {[](SoGroup* group) {
                 group->addChild(group->getChild(0));
                 group->removeChild(0);
             },
             "BCDEA", "BCDE"},
            {[](SoGroup* group) { // quietly, then touched
                 group->enableNotify(FALSE);
                 group->removeChild(4);
                 group->enableNotify(TRUE);
                 group->touch();
             },
             "ABCD", "ABCD"},
            {[](SoGroup* group) { // notified together with another
                 SoDB::startNotify();
                 group->removeChild(0);
                 group->getChild(0)->touch();
                 SoDB::endNotify();
             },
             "BCDE", "BCDE"},
        };
        for (const auto& [edit, expected, kept] : rows) {
            auto* root = new SoSeparator;
            auto* group = new SoGroup;
            for (const char* name : {"A", "B", "C", "D", "E"})
                group->addChild(cone(name));
            root->addChild(group);
            root->addChild(group);
            const QModelIndex place = m_model->index(1, SceneTreeModel::TypeColumn, show(root));
            m_model->fetchMore(place);
            const auto names = [](const auto& indexes) {
                QString names;
                for (const QModelIndex index : indexes)
                    names += index.data().toString();
                return names;
            };
            const auto rowsNow = [&] {
                QList<QPersistentModelIndex> rows;
                for (int row = 0; row < m_model->rowCount(place); ++row)
                    rows.append(m_model->index(row, SceneTreeModel::NameColumn, place));
                return rows;
            };
            const QList<QPersistentModelIndex> former = rowsNow();
            edit(group);
            QSignalSpy synchronized(m_model.get(), &SceneTreeModel::synchronized);
            QCoreApplication::processEvents();
            QCOMPARE(synchronized.size(), 1);
            QCOMPARE(names(rowsNow()), QString(expected));
            QCOMPARE(names(former), QString(kept));
        }
    }

    void followsRandomEdits()
    {
        QRandomGenerator random(20240229);
        auto* root = new SoSeparator;
        QList<SoGroup*> groups{root};
        m_model->setRoot(root);
        for (int round = 0; round < 200; ++round) {
            for (int edit = random.bounded(4); edit >= 0; --edit) {
                // Groups are put into older ones only, so that no cycle arises.
                if (random.bounded(3) == 0)
                    groups.append(new SoGroup), groups.last()->ref();
                const int place = random.bounded(int(groups.size()));
                SoGroup* group = groups[place];
                SoNode* child = groups.value(random.bounded(place + 1, int(groups.size()) + 1));
                child = child ? child : new SoCube;
                child->ref();
                const int at = random.bounded(group->getNumChildren() + 1);
                if (random.bounded(40) == 0)
                    group->removeAllChildren();
                else if (at == group->getNumChildren() || random.bounded(2))
                    group->insertChild(child, at);
                else if (random.bounded(2))
                    group->removeChild(at);
                else
                    group->replaceChild(at, child);
                child->unref();
            }
            agrees(*m_model, m_model->index(0, 0)); // reads rows whose nodes are gone
            QCoreApplication::processEvents();
            QVERIFY2(agrees(*m_model, m_model->index(0, 0)), qPrintable(QString::number(round)));
            // Open some more of it, at random.
            for (QModelIndex index = m_model->index(0, 0); index.isValid();) {
                if (m_model->canFetchMore(index))
                    m_model->fetchMore(index);
                const int rows = m_model->rowCount(index);
                index = rows ? m_model->index(random.bounded(rows), 0, index) : QModelIndex();
            }
        }
        m_model->setRoot(nullptr);
        for (SoGroup* group : groups.mid(1))
            group->unref();
    }

    void followsChangesBelowNodeFields()
    {
        // A change below a node in a field reaches the root as a change of that field.
        auto* root = new SoVRMLGroup;
        auto* middle = new SoVRMLGroup;
        auto* inner = new SoGroup;
        root->addChild(middle), middle->addChild(inner);
        const QModelIndex top = show(root);
        QCOMPARE(outline(*m_model, top), QString("VRMLGroup(VRMLGroup(Group))"));
        inner->addChild(new SoCube);
        middle->addChild(new SoCone);
        QCoreApplication::processEvents();
        QCOMPARE(outline(*m_model, top), QString("VRMLGroup(VRMLGroup(Group(Cube),Cone))"));
    }

    void tellsWhatCanBeOpenedAndWhatIsSwitchedOff()
    {
        auto* root = new SoSeparator;
        auto* group = new SoSwitch;
        root->addChild(group);
        const QModelIndex row = m_model->index(0, 0, show(root));
        QSignalSpy layoutChanged(m_model.get(), &SceneTreeModel::layoutChanged);
        const auto opens = [&](auto edit) {
            edit();
            QCoreApplication::processEvents();
            return m_model->hasChildren(row);
        };
        QVERIFY(!opens([] {}));
        QVERIFY(opens([&] { group->addChild(new SoCube); }));
        QVERIFY(opens([&] { group->addChild(new SoCube); }));
        QCOMPARE(layoutChanged.size(), 1); // the second is nothing new to a view
        QVERIFY(!opens([&] { group->removeAllChildren(); }));
        QVERIFY(opens([&] { group->addChild(new SoCube); }));
        m_model->fetchMore(row);
        const QModelIndex child = m_model->index(0, 0, row);
        QSignalSpy changed(m_model.get(), &SceneTreeModel::dataChanged);
        for (const auto& [which, leftOut] :
             {std::pair(SO_SWITCH_ALL, false), {1, true}, {0, false}, {SO_SWITCH_NONE, true}}) {
            opens([&, choice = which] { group->whichChild = choice; });
            QCOMPARE(child.data(Qt::ForegroundRole).isValid(), leftOut);
        }
        QCOMPARE(changed.size(), 4);
    }

    void fetchesLargeGroupsInSlices()
    {
        constexpr int slice = SceneTreeModel::SliceSize;
        auto* root = new SoSeparator;
        for (int i = 0; i < 5 * slice; ++i)
            root->addChild(new SoCube);
        const QModelIndex top = show(root);
        QCOMPARE(m_model->rowCount(top), slice);
        QSignalSpy inserted(m_model.get(), &SceneTreeModel::rowsInserted);
        QSignalSpy removed(m_model.get(), &SceneTreeModel::rowsRemoved);

        root->removeChild(3 * slice);
        root->insertChild(new SoCone, 2 * slice);
        root->addChild(new SoCone);
        QCoreApplication::processEvents();
        QCOMPARE(inserted.size() + removed.size(), 0); // beyond what is fetched

        root->insertChild(new SoCone, 7);
        QCoreApplication::processEvents();
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(removed.size(), 0);
        QVERIFY(agrees(*m_model, top));

        QCOMPARE(m_model->node(m_model->indexOf(QList<int>{4 * slice})), root->getChild(4 * slice));
        QVERIFY(m_model->hasMoreSlices(top));
        QVERIFY(!m_model->indexOf(QList<int>{6 * slice}).isValid());

        // All fetched rows go, others are left: a view would not ask for them on its own.
        while (root->getNumChildren() > slice / 2)
            root->removeChild(0);
        QCoreApplication::processEvents();
        QVERIFY(m_model->rowCount(top) > 0);
        QVERIFY(agrees(*m_model, top));
    }

    void viewFetchesWhatComesIntoSight()
    {
        // The large group is not the last one: the rows that follow it keep the view from its own fetching.
        auto* root = new SoSeparator;
        auto* large = new SoGroup;
        for (int i = 0; i < 3 * SceneTreeModel::SliceSize; ++i)
            large->addChild(new SoCube);
        root->addChild(large);
        for (int i = 0; i < 100; ++i)
            root->addChild(new SoCone);
        m_model->setRoot(root);
        SceneTreeView view(m_model.get());
        view.resize(300, 300);
        view.show();
        view.expand(m_model->index(0, 0));
        const QModelIndex group = m_model->index(0, 0, m_model->index(0, 0));
        view.expand(group);
        QCoreApplication::processEvents();
        large->removeChild(0); // lays the view out again, which is no reason to fetch
        QCoreApplication::processEvents();
        QCOMPARE(m_model->rowCount(group), SceneTreeModel::SliceSize - 1);
        view.scrollTo(m_model->index(SceneTreeModel::SliceSize - 2, 0, group));
        QTRY_VERIFY(m_model->rowCount(group) > SceneTreeModel::SliceSize);
    }

    void boundsWorkOnEndlessGraphs()
    {
        // A cycle through a field, and thirty levels that each hold the next one twice: 2^30 occurrences.
        auto* root = new SoSeparator;
        auto* texture = new SoSceneTexture2;
        root->addChild(texture);
        SoGroup* level = root;
        for (int i = 0; i < 30; ++i) {
            auto* next = new SoGroup;
            level->addChild(next);
            level->addChild(next);
            level = next;
        }
        auto* deepest = new SoCube;
        level->addChild(deepest);
        m_model->setRoot(root);
        texture->scene = root;

        const auto path = SceneSearch(SceneSearch::Visits::EachNode, 100).findNear(root, deepest, {9, 9});
        QCOMPARE(m_model->node(m_model->indexOf(path.value())), deepest);
        QVERIFY(!SceneSearch(SceneSearch::Visits::EachNode, 10).findNear(root, deepest, {}));
        SceneSearch search(SceneSearch::Visits::EachOccurrence, 100000);
        QVERIFY(!search.find(root, [](SoNode*) { return false; }));
        QVERIFY(search.isExhausted());

        m_tester.reset(); // checks all rows each time that some come
        SceneTreeView view(m_model.get());
        view.setCurrentIndex(m_model->index(0, 0));
        QTest::keyClick(&view, Qt::Key_Asterisk);
        QVERIFY(view.isExpanded(m_model->index(1, 0, m_model->index(0, 0))));
        texture->scene = nullptr;
    }

private:
    /// Shows a graph, root and children fetched.
    QModelIndex show(SoNode* root)
    {
        m_model->setRoot(root);
        m_model->fetchMore(m_model->index(0, 0));
        return m_model->index(0, 0);
    }

    std::unique_ptr<SceneTreeModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

KLV_TEST_MAIN(tst_ModelsSceneTree)
#include "tst_ModelsSceneTree.moc"
