#include "ratio_reporter.h"

#include <fstream>
#include <iostream>

#include <fmt/format.h>

namespace tvo::bench {
namespace {

std::string ReadableTime(double nanoseconds)
{
    const char* unit = "ns";
    for (const char* next : {"µs", "ms"})
    {
        if (nanoseconds < 1000)
        {
            break;
        }
        nanoseconds /= 1000;
        unit = next;
    }
    return fmt::format("{:.4g} {}", nanoseconds, unit);
}

/// Google Benchmark appends how a benchmark was run to its name.
std::string PlainName(const std::string& name)
{
    return name.substr(0, name.find('/'));
}

}  // namespace

bool RatioReporter::ReportContext(const Context& /*context*/)
{
    std::cout << fmt::format(
        "{:<24} {:>12} {:>12} {:>8} {:>6}\n", "row", "ours", "peer", "ratio", "limit");
    return true;
}

void RatioReporter::ReportRuns(const std::vector<Run>& report)
{
    for (const Run& run : report)
    {
        const std::string name = PlainName(run.benchmark_name());
        if (run.error_occurred)
        {
            std::cout << fmt::format("{:<24} failed: {}\n", name, run.error_message);
            m_allWithinLimits = false;
            continue;
        }
        const auto value = [&run](const char* counter)
        {
            return run.counters.at(counter).value;
        };
        const Line line{name, value("ours"), value("peer"), value("ratio"), value("limit")};
        const bool isWithin = line.ratio <= line.limit;
        std::cout << fmt::format("{:<24} {:>12} {:>12} {:>8.3f} {:>6.2f}{}\n",
                                 line.name,
                                 ReadableTime(line.ours),
                                 ReadableTime(line.peer),
                                 line.ratio,
                                 line.limit,
                                 isWithin ? "" : "  over its limit")
                  << std::flush;
        m_allWithinLimits = m_allWithinLimits && isWithin;
        m_lines.push_back(line);
    }
}

bool RatioReporter::WriteJson(const char* file) const
{
    std::ofstream out(file);
    const char* separator = "[\n";
    for (const Line& line : m_lines)
    {
        out << separator
            << fmt::format(
                   R"(  {{"name": "{}", "ours": {:.1f}, "peer": {:.1f}, "ratio": {:.4f}, "limit": {}}})",
                   line.name,
                   line.ours,
                   line.peer,
                   line.ratio,
                   line.limit);
        separator = ",\n";
    }
    out << (m_lines.empty() ? "[]\n" : "\n]\n");
    return out.flush().good();
}

}  // namespace tvo::bench
