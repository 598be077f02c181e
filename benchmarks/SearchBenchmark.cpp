// Searching a scene graph against the number of nodes, beside what is simple: a search action for the type
// with a look at the field, and the text of all fields in one go. Run with QT_QPA_PLATFORM=offscreen; writes
// a table for docs/performance.md.

#include "BenchmarkMain.h"

#include "Search/TreeSearch.h"

#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/lists/SoPathList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTranslation.h>

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

/// Objects of four nodes in groups of a thousand nodes; one material in a hundred is nearly transparent, the
/// first of them in the middle.
class Scene
{
public:
    explicit Scene(int size)
        : m_root(new SoSeparator)
    {
        m_root->ref();
        SoSeparator* group = nullptr;
        for (int i = 0; i < size / 4; ++i) {
            if (i % 250 == 0)
                m_root->addChild(group = new SoSeparator);
            auto* object = new SoSeparator;
            auto* material = new SoMaterial;
            if (i >= size / 8 && i % 100 == 0)
                material->transparency = 0.8F;
            auto* translation = new SoTranslation;
            translation->translation.setValue(float(i), 0, 0);
            object->addChild(translation);
            object->addChild(material);
            object->addChild(new SoCube);
            group->addChild(object);
        }
    }
    ~Scene() { m_root->unref(); }

    SoSeparator* root() const { return m_root; }

private:
    SoSeparator* m_root;
};

double milliseconds(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

struct Times
{
    double firstMatch = 0;
    double whole = 0;
    double longestTurn = 0; ///< of the event loop
};

Times search(SoNode* root, const char* line)
{
    Times times;
    TreeSearch search;
    const auto start = Clock::now();
    search.start(root, SearchQuery(QString::fromLatin1(line)));
    while (search.state() == TreeSearch::State::Running) {
        const auto turn = Clock::now();
        QApplication::processEvents();
        times.longestTurn = std::max(times.longestTurn, milliseconds(turn));
        if (times.firstMatch == 0 && !search.matches().empty())
            times.firstMatch = milliseconds(start);
        search.resume();
    }
    times.whole = milliseconds(start);
    return times;
}

Times searchTyped(SoNode* root)
{
    return search(root, "type:Material transparency>0.5");
}

Times searchWord(SoNode* root)
{
    return search(root, "gold");
}

Times searchValue(SoNode* root)
{
    return search(root, "value:gold");
}

/// All at once: the first match comes with the last.
Times atOnce(const std::function<void()>& work)
{
    const auto start = Clock::now();
    work();
    const double time = milliseconds(start);
    return {time, time, time};
}

Times searchAction(SoNode* root)
{
    return atOnce([root] {
        SoSearchAction action;
        action.setType(SoMaterial::getClassTypeId());
        action.setInterest(SoSearchAction::ALL);
        action.setSearchingAll(TRUE);
        action.apply(root);
        int found = 0;
        for (int i = 0; i < action.getPaths().getLength(); ++i) {
            auto* material = static_cast<SoMaterial*>(action.getPaths()[i]->getTail());
            found += material->transparency[0] > 0.5F;
        }
        benchmark::DoNotOptimize(found);
    });
}

int countText(const SoNode* node, const char* text)
{
    int found = 0;
    SoFieldList fields;
    node->getFields(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
        SbString value;
        fields[i]->get(value);
        found += std::string_view(value.getString()).find(text) != std::string_view::npos;
    }
    const SoChildList* children = node->getChildren();
    for (int i = 0; children && i < children->getLength(); ++i)
        found += countText((*children)[i], text);
    return found;
}

Times allText(SoNode* root)
{
    return atOnce([root] { benchmark::DoNotOptimize(countText(root, "gold")); });
}

const struct
{
    const char* name;
    Times (*search)(SoNode* root);
    bool hasMatches;
    int most; ///< nodes; more take too long
} Ways[] = {{"search, type:Material transparency>0.5", searchTyped, true, 1'000'000},
            {"search action for the type", searchAction, true, 1'000'000},
            {"search, gold", searchWord, false, 1'000'000},
            {"search, value:gold", searchValue, false, 1'000'000},
            {"text of all fields", allText, false, 100'000}};

const struct
{
    const char* name;
    double Times::*time;
} Figures[] = {{"first match, ms", &Times::firstMatch},
               {"whole search, ms", &Times::whole},
               {"longest turn of the event loop, ms", &Times::longestTurn}};

} // namespace

void registerBenchmarks()
{
    // One scene at a time; benchmarks of one size follow each other.
    const auto scene = std::make_shared<std::pair<int, std::unique_ptr<Scene>>>();
    for (const int size : {10'000, 100'000, 1'000'000}) {
        for (const auto& figure : Figures) {
            for (const auto& way : Ways) {
                if (size > way.most || (figure.time == &Times::firstMatch && !way.hasMatches))
                    continue;
                const auto name = std::string(figure.name) + '/' + way.name + '/' + std::to_string(size);
                benchmark::RegisterBenchmark(name.c_str(),
                                             [scene, size, &figure, &way](benchmark::State& state) {
                                                 if (std::exchange(scene->first, size) != size) {
                                                     scene->second.reset();
                                                     scene->second = std::make_unique<Scene>(size);
                                                 }
                                                 for (auto _ : state) {
                                                     const Times times = way.search(scene->second->root());
                                                     state.SetIterationTime(times.*figure.time / 1000);
                                                 }
                                             })
                    ->UseManualTime()
                    ->Iterations(size < 1'000'000 ? 5 : 1)
                    ->Unit(benchmark::kMillisecond);
            }
        }
    }
}
