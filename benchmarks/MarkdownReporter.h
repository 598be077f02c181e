#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Writes benchmarks named "operation/way/size" as a table with a column for each size, in the unit of the
/// benchmarks.
class MarkdownReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    /// Whether a benchmark gave an error instead of a time. Its cell stays empty.
    bool hasFailures() const { return m_hasFailures; }

private:
    struct Row
    {
        std::string operation;
        std::string way;
        std::map<long, double> times;
    };

    std::vector<Row> m_rows;
    bool m_hasFailures = false;
};
