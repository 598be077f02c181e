#pragma once

/// Registers the benchmarks of a program under names that `MarkdownReporter` understands. Each program
/// defines it and leaves the main function to BenchmarkMain.cpp, which calls it once Coin and the application
/// are ready, with settings in an empty folder, and forgets all benchmarks, with what they hold, before the
/// application goes.
void registerBenchmarks();
