#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Writes benchmarks named "operation/way/size", or "operation/way" with the size as their one argument, as a
/// table with a column for each size, in the unit of the benchmarks.
class MarkdownReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    struct Row
    {
        std::string operation;
        std::string way;
        std::map<long, double> milliseconds;
    };

    std::vector<Row> m_rows;
};
