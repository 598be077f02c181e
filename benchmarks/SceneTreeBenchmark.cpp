// The scene tree against the number of nodes, beside a tree widget filled with items. Each operation is over
// when it is on the screen. Run with QT_QPA_PLATFORM=offscreen; writes a table for docs/performance.md.

#include "BenchmarkMain.h"
#include "GroupedScene.h"
#include "NaiveInspector.h"
#include "PaintWatch.h"

#include "Models/SceneTreeModel.h"
#include "Models/SceneTreeView.h"

#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTreeWidget>

#include <string>

namespace {

/// The inspector's tree.
class Tree
{
public:
    QTreeView& view() { return m_view; }
    void show(SoNode* root)
    {
        m_model.setRoot(root);
        m_view.expand(m_model.index(0, 0));
    }
    void clear() { m_model.setRoot(nullptr); }
    /// The first group below the root is open, too.
    void openGroup() { m_view.expand(m_model.index(0, 0, m_model.index(0, 0))); }
    /// The graph has changed: the model hears of it by itself.
    void follow(SoNode*) {}

private:
    SceneTreeModel m_model;
    SceneTreeView m_view{&m_model};
};

/// A tree widget with an item for each node.
class TreeWidget
{
public:
    TreeWidget()
    {
        m_view.setColumnCount(2);
        m_view.setUniformRowHeights(true);
    }
    QTreeView& view() { return m_view; }
    void show(SoNode* root)
    {
        auto* item = new QTreeWidgetItem;
        NaiveInspector::fillItem(item, root);
        m_view.addTopLevelItem(item);
        m_view.expandItem(item);
    }
    void clear() { m_view.clear(); }
    void openGroup() { m_view.expandItem(m_view.topLevelItem(0)->child(0)); }
    void follow(SoNode* root)
    {
        clear();
        show(root);
        openGroup();
    }

private:
    QTreeWidget m_view;
};

void settle()
{
    SoDB::getSensorManager()->processDelayQueue(TRUE);
    QApplication::processEvents();
}

template <class Way>
void makeVisible(Way& way)
{
    way.view().resize(400, 800);
    way.view().show();
    settle();
}

template <class Way>
void show(benchmark::State& state, GroupedScene::Shape shape, int size)
{
    const GroupedScene scene(size, shape);
    Way way;
    makeVisible(way);
    PaintWatch watch(way.view().viewport());
    for (auto _ : state) {
        watch.reset();
        way.show(scene.root());
        if (!watch.wait())
            state.SkipWithError("nothing is shown");
        state.PauseTiming();
        way.clear();
        settle();
        state.ResumeTiming();
    }
}

/// One of the children in sight goes, and the next time comes back.
template <class Way>
void follow(benchmark::State& state, GroupedScene::Shape shape, int size)
{
    const GroupedScene scene(size, shape);
    auto* group =
        shape == GroupedScene::Flat ? scene.root() : static_cast<SoSeparator*>(scene.root()->getChild(0));
    Way way;
    makeVisible(way);
    way.show(scene.root());
    settle();
    way.openGroup();
    settle();
    PaintWatch watch(way.view().viewport());
    const int place = 10;
    SoNode* const child = group->getChild(place);
    child->ref();
    bool isThere = true;
    for (auto _ : state) {
        state.PauseTiming(); // the scene graph's own work on a long child list
        if (isThere)
            group->removeChild(place);
        else
            group->insertChild(child, place);
        isThere = !isThere;
        watch.reset();
        state.ResumeTiming();
        way.follow(scene.root());
        if (!watch.wait())
            state.SkipWithError("the change is not shown");
    }
    child->unref();
}

using Run = void (*)(benchmark::State& state, GroupedScene::Shape shape, int size);

const struct
{
    const char* name;
    Run inspector;
    Run treeWidget;
} Operations[] = {{"show", show<Tree>, show<TreeWidget>},
                  {"follow a change", follow<Tree>, follow<TreeWidget>}};

const struct
{
    const char* name;
    GroupedScene::Shape shape;
} Shapes[] = {{", groups of 1000", GroupedScene::Nested}, {", one group", GroupedScene::Flat}};

void add(const std::string& name, Run run, GroupedScene::Shape shape, int size)
{
    benchmark::RegisterBenchmark((name + '/' + std::to_string(size)).c_str(),
                                 [=](benchmark::State& state) { run(state, shape, size); })
        ->Unit(benchmark::kMillisecond)
        ->MinTime(0.1);
}

} // namespace

void registerBenchmarks()
{
    for (const auto& operation : Operations) {
        for (const auto& shape : Shapes) {
            for (const int size : {1'000, 10'000, 100'000, 1'000'000}) {
                const std::string name = std::string(operation.name) + shape.name;
                add(name + "/inspector", operation.inspector, shape.shape, size);
                add(name + "/tree widget with items", operation.treeWidget, shape.shape, size);
            }
        }
    }
}
