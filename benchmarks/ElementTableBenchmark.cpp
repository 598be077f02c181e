// What an element table costs against the number of elements, in the inspector and done in the two usual
// ways. Run with QT_QPA_PLATFORM=offscreen; writes a table for docs/performance.md.

#include "EditorElementView.h"
#include "MarkdownReporter.h"
#include "ModelElementView.h"
#include "WidgetElementView.h"

#include <benchmark/benchmark.h>

#include <Inventor/SoInteraction.h>

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
} Views[] = {{"inspector", make<EditorElementView>},
             {"table view over a model", make<ModelElementView>},
             {"table widget with items", make<WidgetElementView>}};

const struct
{
    const char* name;
    Operation operation;
} Operations[] = {{"show", show},     {"refresh", refresh},     {"edit a cell", edit}, {"scroll", scroll},
                  {"add a row", add}, {"delete a row", remove}, {"move a row", move}};

/// One view at a time is kept open for all operations on it: filling the largest takes a minute.
std::unique_ptr<ElementView> openView;

} // namespace

int main(int argc, char** argv)
{
    SoDB::init();
    SoInteraction::init();
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    for (const auto& view : Views) {
        for (const int size : {10, 1'000, 100'000, 1'000'000, 10'000'000}) {
            for (const auto& operation : Operations) {
                const std::string name =
                    std::string(operation.name) + '/' + view.name + '/' + std::to_string(size);
                const bool first = operation.operation == show;
                benchmark::RegisterBenchmark(name.c_str(),
                                             [=, &operation, &view](benchmark::State& state) {
                                                 static std::string opened;
                                                 const std::string key = view.name + std::to_string(size);
                                                 if (first || opened != key) {
                                                     openView.reset();
                                                     openView = view.make(size);
                                                     openView->open();
                                                     opened = key;
                                                 }
                                                 operation.operation(*openView, state, size);
                                             })
                    ->Unit(benchmark::kMillisecond)
                    ->MinTime(0.2);
            }
        }
    }
    MarkdownReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    openView.reset();
    return 0;
}
