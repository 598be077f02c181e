#include "Models/SceneChildren.h"
#include "Models/SceneSearch.h"
#include "Models/SceneTreeModel.h"
#include "Models/SceneTreeView.h"

#include "TestMain.h"

#include <Inventor/SoInput.h>
#include <Inventor/VRMLnodes/SoVRMLGroup.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoSceneTexture2.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>

#include <memory>

namespace {

template <typename Node>
Node* named(const char* name)
{
    auto* node = new Node;
    node->setName(name);
    return node;
}

/// A group with one cube for each letter, named after it.
SoGroup* groupOf(const QString& letters)
{
    auto* group = new SoGroup;
    for (const QChar letter : letters)
        group->addChild(named<SoCube>(QByteArray(1, letter.toLatin1()).constData()));
    return group;
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

QString names(const QAbstractItemModel& model, const QModelIndex& parent)
{
    QString names;
    for (int row = 0; row < model.rowCount(parent); ++row)
        names += model.index(row, SceneTreeModel::NameColumn, parent).data().toString();
    return names;
}

/// True when every fetched row stands for the child that is there now.
bool agrees(const SceneTreeModel& model, const QModelIndex& index)
{
    const SoNode* node = model.node(index);
    if (!node)
        return false;
    const SceneChildren children(node);
    const int rows = model.rowCount(index);
    if (model.hasChildren(index) != (children.count() > 0) || rows > children.count())
        return false;
    for (int row = 0; row < rows; ++row)
        if (model.node(model.index(row, 0, index)) != children[row] ||
            !agrees(model, model.index(row, 0, index)))
            return false;
    return rows == children.count() || model.canFetchMore(index) || model.hasMoreSlices(index);
}

} // namespace

class tst_ModelsSceneTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void showsAllChildren_data();
    void showsAllChildren();
    void followsEdits_data();
    void followsEdits();
    void followsRandomEdits();
    void followsChangesBelowNodeFields();
    void givesNothingForRowsThatAreGone();
    void tellsWhatCanBeOpened();
    void fetchesLargeGroupsInSlices();
    void showsWhatSwitchesLeaveOut();
    void viewFetchesWhatComesIntoSight();
    void boundsWorkOnEndlessGraphs();

private:
    /// Shows a graph, root and children fetched.
    QModelIndex show(SoNode* root);

    std::unique_ptr<SceneTreeModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void tst_ModelsSceneTree::init()
{
    QTest::failOnWarning(unexpectedWarnings());
    m_model = std::make_unique<SceneTreeModel>();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    // It would fetch in the middle of a reset, and everything.
    m_tester->setUseFetchMore(false);
}

void tst_ModelsSceneTree::cleanup()
{
    m_tester.reset();
    m_model.reset();
}

QModelIndex tst_ModelsSceneTree::show(SoNode* root)
{
    m_model->setRoot(root);
    m_model->fetchMore(m_model->index(0, 0));
    return m_model->index(0, 0);
}

void tst_ModelsSceneTree::showsAllChildren_data()
{
    QTest::addColumn<QByteArray>("scene");
    QTest::addColumn<QString>("expected");
    const QByteArray iv = "#Inventor V2.1 ascii\n";
    const QByteArray vrml = "#VRML V2.0 utf8\n";
    QTest::newRow("shared") << iv + "DEF A Group { Cube {} } USE A"
                            << "Separator(Group(Cube),Group(Cube))";
    QTest::newRow("vertex property") << iv + "FaceSet { vertexProperty VertexProperty {} }"
                                     << "Separator(FaceSet(VertexProperty))";
    QTest::newRow("shaders") << iv + "ShaderProgram { shaderObject [ VertexShader {}, FragmentShader {} ] }"
                             << "Separator(ShaderProgram(VertexShader,FragmentShader))";
    QTest::newRow("unknown node")
        << iv + "New { fields [ MFNode kids, SFNode one ] kids [ Cube {}, Cube {} ] one Cone {} }"
        << "Separator(UnknownNode(Cube,Cube,Cone))";
    QTest::newRow("node kit, each part once") << iv + "ShapeKit { shape Cone {} }"
                                              << "Separator(ShapeKit(Separator(Separator(Cone))))";
    QTest::newRow("VRML, each node once")
        << vrml + "Collision { children Shape { geometry Box {} } proxy Group {} }"
        << "VRMLCollision(VRMLShape(VRMLBox),VRMLGroup)";
    QTest::newRow("prototype") << vrml +
                                      "PROTO P [] { Group { children Shape {} } } Transform { children P {} }"
                               << "VRMLGroup(SoProto,VRMLTransform(VRMLGroup(VRMLShape)))";
}

void tst_ModelsSceneTree::showsAllChildren()
{
    QFETCH(QByteArray, scene);
    SoInput input;
    input.setBuffer(scene.constData(), static_cast<std::size_t>(scene.size()));
    SoNode* root =
        scene.startsWith("#VRML") ? static_cast<SoNode*>(SoDB::readAllVRML(&input)) : SoDB::readAll(&input);
    QVERIFY(root);
    m_model->setRoot(root);
    QTEST(outline(*m_model, m_model->index(0, 0)), "expected");
}

void tst_ModelsSceneTree::followsEdits_data()
{
    using Edit = std::function<void(SoGroup*)>;
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("kept"); // rows that persistent indexes must still find
    const auto add = [](const char* name, const char* expected, const char* kept, const Edit& edit) {
        QTest::newRow(name) << edit << QString::fromLatin1(expected) << QString::fromLatin1(kept);
    };
    add("add", "ABCDEX", "ABCDE", [](SoGroup* group) { group->addChild(named<SoCone>("X")); });
    add("insert", "XABCDE", "ABCDE", [](SoGroup* group) { group->insertChild(named<SoCone>("X"), 0); });
    add("remove", "ABDE", "ABDE", [](SoGroup* group) { group->removeChild(2); });
    add("replace", "ABXDE", "ABDE", [](SoGroup* group) { group->replaceChild(2, named<SoCone>("X")); });
    add("remove all", "", "", [](SoGroup* group) { group->removeAllChildren(); });
    add("the same child twice", "ABCDEAA", "ABCDE", [](SoGroup* group) {
        group->addChild(group->getChild(0));
        group->addChild(group->getChild(0));
    });
    add("burst in several places", "XBYD", "BD", [](SoGroup* group) {
        group->replaceChild(0, named<SoCone>("X"));
        group->replaceChild(2, named<SoCone>("Y"));
        group->removeChild(4);
    });
    add("move to the end", "BCDEA", "BCDE", [](SoGroup* group) {
        group->addChild(group->getChild(0));
        group->removeChild(0);
    });
    add("added and gone again", "ABCDE", "ABCDE", [](SoGroup* group) {
        group->addChild(new SoCone);
        group->removeChild(5);
    });
    add("quietly, then touched", "ABCD", "ABCD", [](SoGroup* group) {
        group->enableNotify(FALSE);
        group->removeChild(4);
        group->enableNotify(TRUE);
        group->touch();
    });
    add("notified together with another", "BCDE", "BCDE", [](SoGroup* group) {
        SoDB::startNotify();
        group->removeChild(0);
        static_cast<SoGroup*>(group->getChild(0))->touch();
        SoDB::endNotify();
    });
}

void tst_ModelsSceneTree::followsEdits()
{
    QFETCH(std::function<void(SoGroup*)>, edit);
    QFETCH(QString, kept);
    auto* root = new SoSeparator;
    SoGroup* group = groupOf(QStringLiteral("ABCDE"));
    root->addChild(group);
    root->addChild(group);
    const QModelIndex first = m_model->index(0, 0, show(root));
    const QModelIndex second = first.siblingAtRow(1);
    m_model->fetchMore(first);
    m_model->fetchMore(second);
    QHash<QString, QPersistentModelIndex> indexes;
    for (int row = 0; row < 5; ++row)
        indexes.insert(m_model->index(row, 1, first).data().toString(), m_model->index(row, 1, first));

    edit(group);
    QSignalSpy synchronized(m_model.get(), &SceneTreeModel::synchronized);
    QCoreApplication::processEvents();
    QCOMPARE(synchronized.size(), 1);
    QTEST(names(*m_model, first), "expected");
    QTEST(names(*m_model, second), "expected");
    for (const QChar name : kept)
        QCOMPARE(indexes.value(name).data().toString(), QString(name));
    QVERIFY(agrees(*m_model, m_model->index(0, 0)));
}

void tst_ModelsSceneTree::followsRandomEdits()
{
    QRandomGenerator random(20240229);
    auto* root = new SoSeparator;
    QList<SoGroup*> groups{root};
    m_model->setRoot(root);
    for (int round = 0; round < 400; ++round) {
        for (int edit = random.bounded(4); edit >= 0; --edit) {
            // Groups are only put into older ones, so no cycle arises; they are kept alive to be put back.
            const int place = random.bounded(int(groups.size()));
            SoGroup* group = groups[place];
            const int count = group->getNumChildren();
            const int at = random.bounded(count + 1);
            SoNode* child = nullptr;
            if (random.bounded(3) == 0) {
                groups.append(new SoGroup);
                groups.last()->ref();
                child = groups.last();
            } else {
                child = place + 1 < groups.size() ? groups[random.bounded(place + 1, int(groups.size()))]
                                                  : static_cast<SoNode*>(new SoCube);
            }
            child->ref();
            const bool quiet = random.bounded(10) == 0;
            group->enableNotify(!quiet);
            if (random.bounded(40) == 0)
                group->removeAllChildren();
            else if (at == count || random.bounded(2))
                group->insertChild(child, at);
            else if (random.bounded(2))
                group->removeChild(at);
            else
                group->replaceChild(at, child);
            group->enableNotify(TRUE);
            if (quiet)
                group->touch();
            child->unref();
        }
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

void tst_ModelsSceneTree::followsChangesBelowNodeFields()
{
    // A change below a node in a field reaches the root as a change of that field.
    auto* root = new SoVRMLGroup;
    auto* middle = new SoVRMLGroup;
    auto* inner = new SoGroup;
    root->addChild(middle);
    middle->addChild(inner);
    const QModelIndex top = show(root);
    QCOMPARE(outline(*m_model, top), QStringLiteral("VRMLGroup(VRMLGroup(Group))"));
    inner->addChild(new SoCube);
    middle->addChild(new SoCone);
    QCoreApplication::processEvents();
    QCOMPARE(outline(*m_model, top), QStringLiteral("VRMLGroup(VRMLGroup(Group(Cube),Cone))"));
}

void tst_ModelsSceneTree::givesNothingForRowsThatAreGone()
{
    auto* root = new SoSeparator;
    auto* group = groupOf(QStringLiteral("AB"));
    root->addChild(group);
    const QModelIndex top = show(root);
    const QModelIndex parent = m_model->index(0, 0, top);
    m_model->fetchMore(parent);
    const QModelIndex leaf = m_model->index(1, 1, parent);
    QCOMPARE(leaf.data().toString(), QStringLiteral("B"));
    root->removeChild(0); // deletes the group and its children
    QVERIFY(!m_model->node(leaf) && !leaf.data().isValid() && !leaf.data(Qt::ToolTipRole).isValid());
    QVERIFY(!m_model->node(parent) && !parent.data(Qt::DecorationRole).isValid());
    m_model->fetchMore(parent);
    QCoreApplication::processEvents();
    QCOMPARE(m_model->rowCount(top), 0);
    m_model->setRoot(nullptr);
    QCOMPARE(m_model->rowCount(), 0);
}

void tst_ModelsSceneTree::tellsWhatCanBeOpened()
{
    auto* root = new SoSeparator;
    SoGroup* group = new SoGroup;
    root->addChild(group);
    const QModelIndex closed = m_model->index(0, 0, show(root));
    QSignalSpy layoutChanged(m_model.get(), &SceneTreeModel::layoutChanged);
    QVERIFY(!m_model->hasChildren(closed));
    group->addChild(new SoCube);
    QCoreApplication::processEvents();
    QVERIFY(m_model->hasChildren(closed));
    QCOMPARE(layoutChanged.size(), 1);
    group->addChild(new SoCube); // nothing new to a view
    QCoreApplication::processEvents();
    QCOMPARE(layoutChanged.size(), 1);
    group->removeAllChildren();
    QCoreApplication::processEvents();
    QVERIFY(!m_model->hasChildren(closed));
    QCOMPARE(layoutChanged.size(), 2);
}

void tst_ModelsSceneTree::fetchesLargeGroupsInSlices()
{
    constexpr int slice = SceneTreeModel::SliceSize;
    auto* root = new SoSeparator;
    for (int i = 0; i < 5 * slice; ++i)
        root->addChild(new SoCube);
    const QModelIndex top = show(root);
    QCOMPARE(m_model->rowCount(top), slice);
    m_model->fetchMore(top);
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
    QCOMPARE(m_model->node(m_model->index(7, 0, top)), root->getChild(7));

    const QModelIndex far = m_model->indexOf(QList<int>{4 * slice});
    QCOMPARE(m_model->node(far), root->getChild(4 * slice));
    QVERIFY(m_model->hasMoreSlices(top));
    QVERIFY(!m_model->indexOf(QList<int>{6 * slice}).isValid());

    // What is left of the fetched rows must not look like the whole.
    while (root->getNumChildren() > 2 * slice)
        root->removeChild(0);
    QCoreApplication::processEvents();
    QVERIFY(m_model->rowCount(top) > 0);
    QVERIFY(agrees(*m_model, top));
}

void tst_ModelsSceneTree::showsWhatSwitchesLeaveOut()
{
    auto* root = new SoSeparator;
    auto* choice = new SoSwitch;
    choice->addChild(new SoCube);
    choice->addChild(new SoCone);
    root->addChild(choice);
    m_model->fetchMore(m_model->index(0, 0, show(root)));
    const QModelIndex row = m_model->index(1, 0, m_model->index(0, 0, m_model->index(0, 0)));
    QSignalSpy changed(m_model.get(), &SceneTreeModel::dataChanged);
    for (const auto& [which, leftOut] :
         {std::pair(SO_SWITCH_ALL, false), {0, true}, {1, false}, {SO_SWITCH_NONE, true}}) {
        choice->whichChild = which;
        QCoreApplication::processEvents();
        QCOMPARE(row.data(Qt::ForegroundRole).isValid(), leftOut);
    }
    QCOMPARE(changed.size(), 4);
}

void tst_ModelsSceneTree::viewFetchesWhatComesIntoSight()
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
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    QVERIFY(agrees(*m_model, m_model->index(0, 0)));
}

void tst_ModelsSceneTree::boundsWorkOnEndlessGraphs()
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

    QCOMPARE(m_model->node(m_model->firstIndexOf(deepest)), deepest);
    auto* absent = new SoCube;
    absent->ref();
    QVERIFY(!m_model->firstIndexOf(absent).isValid());
    QVERIFY(!m_model->firstIndexOf(deepest, 10).isValid());
    absent->unref();
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

KLV_TEST_MAIN(tst_ModelsSceneTree)
#include "tst_ModelsSceneTree.moc"
