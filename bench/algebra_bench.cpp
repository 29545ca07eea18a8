// SPDX-License-Identifier: MIT
// The set operations of regions, per run read or emitted: on the workloads, and on growing ones, where the time per run
// must stay flat.
#include "workloads.h"

#include <KivDataConvert/KivDataConvert.h>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <limits>
#include <string>

namespace
{

using Binary = int (*)(KivRegion&, KivRegion&, KivRegion*);

void report(benchmark::State& state, std::size_t runs)
{
    state.counters["runs"] = static_cast<double>(runs);
    state.counters["per_run"] = benchmark::Counter(
        static_cast<double>(runs), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void time_binary(benchmark::State& state, Binary operation, const bench::Workload& work)
{
    KivRegion a = work.region;
    KivRegion b = work.moved_region;
    std::size_t emitted = 0;
    for (auto _ : state) {
        KivRegion out;
        if (operation(a, b, &out) != KIVMV::KIVMV_OK) {
            state.SkipWithError("the operation failed");
        }
        emitted = out.Runs().size();
    }
    report(state, a.Runs().size() + b.Runs().size() + emitted);
}

void time_complement(benchmark::State& state, const bench::Workload& work)
{
    KivRegion a = work.region;
    std::size_t emitted = 0;
    for (auto _ : state) {
        KivRegion out;
        if (KIVMV::KivRegionNot(a, &out) != KIVMV::KIVMV_OK) {
            state.SkipWithError("the operation failed");
        }
        emitted = out.Runs().size();
    }
    report(state, a.Runs().size() + emitted);
}

void register_on(const bench::Workload& work)
{
    const auto binary = [&work](const char* name, Binary operation) {
        benchmark::RegisterBenchmark((name + ("/" + work.name)).c_str(), [operation, &work](benchmark::State& state) {
            time_binary(state, operation, work);
        });
    };
    binary("region_union", KIVMV::KivRegionAdd);
    binary("region_intersection", KIVMV::KivRegionAnd);
    binary("region_difference", KIVMV::KivRegionSub);
    benchmark::RegisterBenchmark(("region_complement/" + work.name).c_str(),
                                 [&work](benchmark::State& state) { time_complement(state, work); });
}

} // namespace

int main(int argc, char** argv)
{
    // Freed memory is kept for the next iteration, also beyond malloc's threshold for giving it back. Otherwise results
    // of more than 32 MB would pay for fresh pages each time, and growth would show the kernel instead of the library.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    benchmark::Initialize(&argc, argv);
    std::vector<std::vector<bench::Workload>> growing;
    for (const char* kind : {"blobs", "strokes", "tall"}) {
        growing.push_back(bench::growing(kind));
    }
    for (const auto& kind : growing) {
        for (const bench::Workload& work : kind) {
            register_on(work);
        }
    }
    for (const bench::Workload& work : bench::workloads()) {
        register_on(work);
    }
    benchmark::RunSpecifiedBenchmarks();
}
