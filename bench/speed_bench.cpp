// SPDX-License-Identifier: MIT
// Times every contestant at every function and workload; benchmarks are named function/workload/contestant. All that
// make the same are compared before any of them is timed.
//
// KIV_BENCH_MEMORY=returned leaves malloc as it is. By default freed memory is kept for the next call, for all
// contestants alike; otherwise results of more than 32 MB would pay for fresh pages from the kernel in each call.
#include "contest.h"
#include "contestants.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <chrono>
#include <cstdlib>
#include <exception>
#include <string>

namespace
{

void keep_freed_memory()
{
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1); // never
}

bool memory_is_returned()
{
    const char* setting = std::getenv("KIV_BENCH_MEMORY");
    return setting != nullptr && std::string(setting) == "returned";
}

void time_calls(benchmark::State& state, const bench::Entry& entry)
{
    for (auto _ : state) {
        if (entry.is_prepared) {
            state.PauseTiming();
            entry.prepare();
            state.ResumeTiming();
        }
        entry.call();
    }
}

/// The first call makes the operands; shared caches take some calls more to keep what is used again.
void warm_up(const bench::Entry& entry)
{
    using Clock = std::chrono::steady_clock;
    const auto stop = Clock::now() + std::chrono::milliseconds(10);
    do {
        entry.prepare();
        entry.call();
    } while (Clock::now() < stop);
}

void time_entry(benchmark::State& state, const bench::Entry& entry)
{
    double runs = 0.0;
    try {
        runs = bench::checked_runs(entry);
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
        return;
    }
    warm_up(entry);
    time_calls(state, entry);
    if (runs > 0.0) {
        state.counters["runs"] = runs;
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (!memory_is_returned()) {
        keep_freed_memory();
    }
    benchmark::Initialize(&argc, argv);
    bench::enter_everybody();
    for (const bench::Entry& entry : bench::entries()) {
        const std::string name = entry.function + "/" + entry.workload + "/" + entry.contestant;
        benchmark::RegisterBenchmark(name.c_str(), [&entry](benchmark::State& state) { time_entry(state, entry); });
    }
    benchmark::RunSpecifiedBenchmarks();
}
