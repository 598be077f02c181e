// What a printed line costs in the console against the number of lines, layout and painting included, beside
// a bare text view and a pipe to a file. Run with QT_QPA_PLATFORM=offscreen; writes a table for
// docs/performance.md.

#include "BenchmarkMain.h"

#include <KlvConsole.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTextEdit>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <thread>

namespace {

constexpr auto lineFormat = "line %d: something that a program tells while it runs\n";

std::string line(int number)
{
    char text[100];
    std::snprintf(text, sizeof text, lineFormat, number);
    return text;
}

void print(int count)
{
    for (int i = 0; i < count; ++i)
        std::cout << line(i);
}

/// Prints on a console in a window of its own.
template <typename Printing>
void inConsole(Printing printing)
{
    KlvConsole console;
    console.load();
    console.activate();
    printing();
    QApplication::processEvents();
    console.deactivate();
}

void onOwnThread(int count)
{
    inConsole([count] { print(count); });
}

void onOtherThread(int count)
{
    inConsole([count] {
        std::atomic<bool> done = false;
        std::thread writer([&] {
            print(count);
            done = true;
        });
        while (!done)
            QApplication::processEvents();
        writer.join();
    });
}

void appended(int count)
{
    QTextEdit view;
    view.show();
    for (int i = 0; i < count; ++i)
        view.append(QString::fromStdString(line(i)).chopped(1));
    QApplication::processEvents();
}

void piped(int count)
{
    std::FILE* const pipe = popen("f=$(mktemp); cat > \"$f\"; rm \"$f\"", "w");
    for (int i = 0; i < count; ++i)
        std::fputs(line(i).c_str(), pipe);
    pclose(pipe);
}

const struct
{
    const char* name;
    void (*print)(int count);
    int most; ///< lines; more take too long
} Ways[] = {{"console, its own thread", onOwnThread, 1'000'000},
            {"console, another thread", onOtherThread, 1'000'000},
            {"text view, appended", appended, 100'000},
            {"pipe to a file", piped, 1'000'000}};

} // namespace

void registerBenchmarks()
{
    for (const auto& way : Ways) {
        for (const int count : {1'000, 10'000, 100'000, 1'000'000}) {
            if (count > way.most)
                continue;
            const auto name = "µs a line/" + std::string(way.name) + '/' + std::to_string(count);
            benchmark::RegisterBenchmark(name.c_str(),
                                         [=, &way](benchmark::State& state) {
                                             for (auto _ : state) {
                                                 const auto start = std::chrono::steady_clock::now();
                                                 way.print(count);
                                                 const std::chrono::duration<double> time =
                                                     std::chrono::steady_clock::now() - start;
                                                 state.SetIterationTime(time.count() / count);
                                             }
                                         })
                ->UseManualTime()
                ->Iterations(count < 100'000 ? 5 : 1)
                ->Unit(benchmark::kMicrosecond);
        }
    }
}
