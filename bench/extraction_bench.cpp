// SPDX-License-Identifier: MIT
// Run extraction beside copying the same mask and beside the plain loop over its bytes.
#include "workloads.h"

#include <KivRLC/KivRLC.h>

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace
{

using Runs = std::vector<Run>;

Runs extracted(cv::Mat& mask)
{
    Runs runs;
    KivRLC::FindContours(mask, 1, nullptr, nullptr, nullptr, nullptr, &runs, nullptr, true, -1, -1, 1, false);
    return runs;
}

Runs looped(const cv::Mat& mask)
{
    Runs runs;
    for (int y = 0; y < mask.rows; ++y) {
        const uchar* row = mask.ptr(y);
        for (int x = 0; x < mask.cols; ++x) {
            if (row[x] == 0) {
                continue;
            }
            const int begin = x;
            while (x + 1 < mask.cols && row[x + 1] != 0) {
                ++x;
            }
            runs.push_back({y, begin, x});
        }
    }
    return runs;
}

template <class Work>
void register_timed(const std::string& name, const cv::Mat& mask, Work work)
{
    const auto pixels = static_cast<double>(mask.total());
    benchmark::RegisterBenchmark(name.c_str(), [pixels, work](benchmark::State& state) mutable {
        for (auto _ : state) {
            work();
        }
        state.counters["per_pixel"] =
            benchmark::Counter(pixels, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    });
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    for (const bench::Workload& workload : bench::workloads()) {
        cv::Mat mask = workload.mask;
        cv::Mat copy = mask.clone();
        if (extracted(mask) != looped(mask)) {
            throw std::logic_error("extraction differs from the plain loop");
        }
        register_timed("extraction/" + workload.name, mask,
                       [mask]() mutable { benchmark::DoNotOptimize(extracted(mask)); });
        register_timed("memcpy/" + workload.name, mask, [mask, copy]() mutable {
            mask.copyTo(copy);
            benchmark::ClobberMemory();
        });
        register_timed("byte_loop/" + workload.name, mask, [mask] { benchmark::DoNotOptimize(looped(mask)); });
    }
    benchmark::RunSpecifiedBenchmarks();
}
