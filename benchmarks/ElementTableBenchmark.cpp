// What an element table costs against the number of elements, in the inspector and done in the two usual
// ways. Run with QT_QPA_PLATFORM=offscreen; writes a table for docs/performance.md.

#include "BenchmarkMain.h"
#include "EditorElementView.h"
#include "ModelElementView.h"
#include "WidgetElementView.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>

namespace {

using Operation = void (*)(ElementView& view, benchmark::State& state, int size);

void show(ElementView& view, benchmark::State& state, int)
{
    view.close();
    for (auto _ : state) {
        view.open();
        state.PauseTiming();
        view.close();
        state.ResumeTiming();
    }
    view.open();
}

void refresh(ElementView& view, benchmark::State& state, int)
{
    for (auto _ : state)
        view.refresh();
}

void edit(ElementView& view, benchmark::State& state, int)
{
    int i = 0;
    for (auto _ : state)
        view.edit(5, QString::number(++i % 1000));
}

void scroll(ElementView& view, benchmark::State& state, int size)
{
    int i = 0;
    for (auto _ : state)
        view.scrollTo(++i % 2 == 0 ? 0 : size / 2);
}

void add(ElementView& view, benchmark::State& state, int size)
{
    for (auto _ : state) {
        view.add(size / 2);
        state.PauseTiming();
        view.remove(size / 2);
        state.ResumeTiming();
    }
}

void remove(ElementView& view, benchmark::State& state, int size)
{
    for (auto _ : state) {
        state.PauseTiming();
        view.add(size / 2);
        state.ResumeTiming();
        view.remove(size / 2);
    }
}

void move(ElementView& view, benchmark::State& state, int)
{
    view.scrollTo(0);
    for (auto _ : state)
        view.move(5);
}

template <typename View>
std::unique_ptr<ElementView> make(int size)
{
    return std::make_unique<View>(size);
}

const struct
{
    const char* name;
    std::unique_ptr<ElementView> (*make)(int size);
    int most; ///< elements; more take too long
} Views[] = {{"inspector", make<EditorElementView>, 10'000'000},
             {"table view over a model", make<ModelElementView>, 10'000'000},
             {"table widget with items", make<WidgetElementView>, 1'000'000}};

const struct
{
    const char* name;
    Operation operation;
} Operations[] = {{"show", show},     {"refresh", refresh},     {"edit a cell", edit}, {"scroll", scroll},
                  {"add a row", add}, {"delete a row", remove}, {"move a row", move}};

/// One view at a time is kept open for all operations on it: filling a large one takes long.
class OpenView
{
public:
    /// The view of that name and size; the one that was open goes.
    ElementView& get(const std::string& name, const std::function<std::unique_ptr<ElementView>()>& make)
    {
        if (name != m_name) {
            m_view.reset();
            m_view = make();
            m_view->open();
            m_name = name;
        }
        return *m_view;
    }

private:
    std::string m_name;
    std::unique_ptr<ElementView> m_view;
};

} // namespace

void registerBenchmarks()
{
    const auto open = std::make_shared<OpenView>();
    for (const auto& view : Views) {
        for (const int size : {10, 1'000, 100'000, 1'000'000, 10'000'000}) {
            if (size > view.most)
                continue;
            for (const auto& operation : Operations) {
                const std::string key = std::string(view.name) + '/' + std::to_string(size);
                const std::string name = std::string(operation.name) + '/' + key;
                benchmark::RegisterBenchmark(name.c_str(),
                                             [=, &operation, &view](benchmark::State& state) {
                                                 ElementView& opened =
                                                     open->get(key, [&] { return view.make(size); });
                                                 operation.operation(opened, state, size);
                                             })
                    ->Unit(benchmark::kMillisecond)
                    ->MinTime(0.2);
            }
        }
    }
}
