#include "Models/SceneTreeModel.h"
#include "Models/SceneTreeView.h"

#include <benchmark/benchmark.h>

#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QApplication>
#include <QTreeWidget>

namespace {

/// A root with `size` nodes below it, all its children or in groups of a thousand.
class Scene
{
public:
    explicit Scene(int size, bool flat)
        : m_root(new SoSeparator)
    {
        m_root->ref();
        SoSeparator* group = m_root;
        for (int i = 0; i < size; ++i) {
            if (!flat && i % 1000 == 0)
                m_root->addChild(group = new SoSeparator);
            group->addChild(new SoCube);
        }
    }
    ~Scene() { m_root->unref(); }

    SoSeparator* root() const { return m_root; }

private:
    SoSeparator* m_root;
};

void fill(QTreeWidgetItem* item, const SoNode* node)
{
    item->setText(0, QString::fromUtf8(node->getTypeId().getName().getString()));
    item->setText(1, QString::fromUtf8(node->getName().getString()));
    if (const SoChildList* children = node->getChildren()) {
        for (int i = 0; i < children->getLength(); ++i)
            fill(new QTreeWidgetItem(item), (*children)[i]);
    }
}

void showInTree(benchmark::State& state, bool flat)
{
    const Scene scene(static_cast<int>(state.range(0)), flat);
    SceneTreeModel model;
    SceneTreeView view(&model);
    view.resize(400, 800);
    view.show();
    QApplication::processEvents();
    for (auto _ : state) {
        model.setRoot(scene.root());
        view.expand(model.index(0, 0));
        QApplication::processEvents();
        state.PauseTiming();
        model.setRoot(nullptr);
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void showInTreeWidget(benchmark::State& state, bool flat)
{
    const Scene scene(static_cast<int>(state.range(0)), flat);
    QTreeWidget view;
    view.setColumnCount(2);
    view.setUniformRowHeights(true);
    view.resize(400, 800);
    view.show();
    QApplication::processEvents();
    for (auto _ : state) {
        auto* item = new QTreeWidgetItem;
        fill(item, scene.root());
        view.addTopLevelItem(item);
        view.expandItem(item);
        QApplication::processEvents();
        state.PauseTiming();
        view.clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

/// One child less and, in the next pass of the event loop, one more: with the view's layout and, if asked
/// for, painting.
void changeOne(benchmark::State& state, bool flat, bool painted)
{
    const Scene scene(static_cast<int>(state.range(0)), flat);
    SceneTreeModel model;
    SceneTreeView view(&model);
    view.resize(400, 800);
    view.show();
    model.setRoot(scene.root());
    view.expand(model.index(0, 0));
    QApplication::processEvents();
    auto* group = flat ? scene.root() : static_cast<SoSeparator*>(scene.root()->getChild(0));
    if (!flat)
        view.expand(model.index(0, 0, model.index(0, 0)));
    const int place = 10;
    SoNode* child = group->getChild(place);
    child->ref();
    const auto follow = [&] {
        if (painted) {
            QApplication::processEvents();
            return;
        }
        model.synchronize();
        view.visualRect(model.index(0, 0)); // lays the rows out
    };
    bool there = true;
    for (auto _ : state) {
        state.PauseTiming(); // the scene graph's own work on a long child list
        if (there)
            group->removeChild(place);
        else
            group->insertChild(child, place);
        there = !there;
        state.ResumeTiming();
        follow();
    }
    child->unref();
}

constexpr auto nested = false;
constexpr auto flat = true;

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(showInTree, nested, nested)->Apply(sizes);
BENCHMARK_CAPTURE(showInTree, flat, flat)->Apply(sizes);
BENCHMARK_CAPTURE(showInTreeWidget, nested, nested)->Apply(sizes);
BENCHMARK_CAPTURE(showInTreeWidget, flat, flat)->Apply(sizes);
BENCHMARK_CAPTURE(changeOne, nested, nested, false)->Apply(sizes);
BENCHMARK_CAPTURE(changeOne, flat, flat, false)->Apply(sizes);
BENCHMARK_CAPTURE(changeOne, nested_painted, nested, true)->Apply(sizes);
BENCHMARK_CAPTURE(changeOne, flat_painted, flat, true)->Apply(sizes);

} // namespace
