#include "MarkdownReporter.h"

#include <algorithm>
#include <cstdio>
#include <set>
#include <sstream>

bool MarkdownReporter::ReportContext(const Context& context)
{
    PrintBasicContext(&GetErrorStream(), context);
    return true;
}

void MarkdownReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        GetErrorStream() << run.benchmark_name() << ": ";
        if (run.error_occurred) {
            GetErrorStream() << run.error_message << '\n';
            m_hasFailures = true;
            continue;
        }
        GetErrorStream() << run.GetAdjustedRealTime() << ' ' << benchmark::GetTimeUnitString(run.time_unit)
                         << '\n';
        std::istringstream name(run.run_name.function_name);
        std::string operation;
        std::string way;
        std::string size;
        std::getline(name, operation, '/');
        std::getline(name, way, '/');
        std::getline(name, size);
        const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& candidate) {
            return candidate.operation == operation && candidate.way == way;
        });
        Row& target = row != m_rows.end() ? *row : m_rows.emplace_back(Row{operation, way, {}});
        target.times[std::stol(size)] = run.GetAdjustedRealTime();
    }
}

void MarkdownReporter::Finalize()
{
    std::set<long> sizes;
    std::vector<std::string> operations;
    for (const Row& row : m_rows) {
        for (const auto& [size, time] : row.times)
            sizes.insert(size);
        if (std::find(operations.begin(), operations.end(), row.operation) == operations.end())
            operations.push_back(row.operation);
    }
    std::ostream& out = GetOutputStream();
    out << "| | |";
    for (const long size : sizes)
        out << ' ' << size << " |";
    out << "\n|---|---|";
    for (std::size_t i = 0; i < sizes.size(); ++i)
        out << "---:|";
    for (const std::string& operation : operations) {
        for (const Row& row : m_rows) {
            if (row.operation != operation)
                continue;
            out << "\n| " << operation << " | " << row.way << " |";
            for (const long size : sizes) {
                const auto found = row.times.find(size);
                char text[32] = "";
                if (found != row.times.end())
                    std::snprintf(text, sizeof text, "%.*f", found->second < 10 ? 2 : 0, found->second);
                out << ' ' << text << " |";
            }
        }
    }
    out << std::endl;
}
