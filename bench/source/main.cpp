// Measures rows of ours against their peers and tells whether each keeps its limit.
//
//   tvo_bench [--json FILE] [Google Benchmark's options, for instance --benchmark_filter=call]
//
// Exit status 0 when every measured row keeps its limit, 1 when one does not, 2 for bad use.
// The program also is what it measures: `--serve NAME …` runs one of the servers behind the rows.

#include <cstring>
#include <exception>
#include <iostream>

#include <benchmark/benchmark.h>

#include "pair.h"
#include "placement.h"
#include "ratio_reporter.h"
#include "rows.h"
#include "runtime_folder.h"
#include "server_process.h"

namespace {

using namespace tvo::bench;

void Measure(benchmark::State& state, const Row& row)
{
    try
    {
        const Placement placement(row.processors);
        Pair pair(row);
        while (state.KeepRunning())
        {
            state.SetIterationTime(pair.Measure().ours.count() * 1e-9);
        }
        const Pair::Result result = pair.Summary();
        state.counters["ours"] = result.ours.count();
        state.counters["peer"] = result.peer.count();
        state.counters["ratio"] = result.ratio;
        state.counters["limit"] = row.limit;
    }
    catch (const std::exception& exception)
    {
        state.SkipWithError(exception.what());
    }
}

/// Takes `--json FILE` out of the arguments.
const char* TakeJsonFile(int& argc, char** argv)
{
    if (argc < 3 || std::strcmp(argv[1], "--json") != 0)
    {
        return nullptr;
    }
    const char* file = argv[2];
    std::copy(argv + 3, argv + argc, argv + 1);
    argc -= 2;
    return file;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc >= 3 && std::strcmp(argv[1], "--serve") == 0)
    {
        return Serve(argc - 2, argv + 2);
    }
    const char* const json = TakeJsonFile(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return 2;
    }
    const RuntimeFolder folder;
    for (const Row& row : AllRows())
    {
        benchmark::RegisterBenchmark(row.name.c_str(), Measure, row)
            ->UseManualTime()
            ->Iterations(row.pairs);
    }
    RatioReporter reporter;
    if (benchmark::RunSpecifiedBenchmarks(&reporter) == 0)
    {
        std::cerr << "no row of that name\n";
        return 2;
    }
    if (json != nullptr && !reporter.WriteJson(json))
    {
        std::cerr << "cannot write " << json << '\n';
        return 2;
    }
    return reporter.AllWithinLimits() ? 0 : 1;
}
