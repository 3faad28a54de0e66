#pragma once

#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace tvo::bench {

/// Prints a line a row and keeps the rows for the JSON file.
class RatioReporter final : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& report) override;

    /// A list of {"name", "ours", "peer", "ratio", "limit"}; times in nanoseconds an operation.
    bool WriteJson(const char* file) const;

    bool AllWithinLimits() const
    {
        return m_allWithinLimits;
    }

private:
    struct Line
    {
        std::string name;
        double ours;
        double peer;
        double ratio;
        double limit;
    };

    std::vector<Line> m_lines;
    bool m_allWithinLimits = true;
};

}  // namespace tvo::bench
