// SPDX-License-Identifier: MIT
#include "foundation/coordinate_lists.h"
#include "foundation/data_types.h"
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace
{

/// The visible parts of the runs, ordered by row and then by column. Parts that overlap are merged, so that no pixel is
/// listed twice.
kiv::RunList ordered_parts(kiv::RunView runs, kiv::Frame frame)
{
    kiv::RunList parts;
    parts.reserve(runs.size());
    kiv::for_each_visible(runs, frame, [&parts](int row, int first, int last) { parts.push_back({row, first, last}); });
    const auto comes_before = [](const Run& left, const Run& right) {
        return kiv::row_of(left) < kiv::row_of(right) ||
               (kiv::row_of(left) == kiv::row_of(right) && kiv::begin_of(left) < kiv::begin_of(right));
    };
    if (!std::is_sorted(parts.begin(), parts.end(), comes_before)) {
        std::sort(parts.begin(), parts.end(), comes_before);
    }
    std::size_t kept = 0;
    for (const auto& [row, begin, end] : parts) {
        if (kept > 0 && kiv::row_of(parts[kept - 1]) == row && begin <= kiv::end_of(parts[kept - 1])) {
            auto& [kept_row, kept_begin, kept_end] = parts[kept - 1];
            kept_end = std::max(kept_end, end);
        } else {
            parts[kept] = {row, begin, end};
            ++kept;
        }
    }
    parts.resize(kept);
    return parts;
}

std::uint64_t count_pixels(kiv::RunView runs)
{
    return std::accumulate(runs.begin(), runs.end(), std::uint64_t{0}, [](std::uint64_t count, const Run& run) {
        return count + kiv::length_of(kiv::begin_of(run), kiv::end_of(run));
    });
}

/// A number for each pixel: what `first` says of its run, growing by `step` along it.
///
/// They are written by fours, the last four of a run into the place of the next ones, as how long short runs are can
/// hardly be guessed. bench/kiv/arrays.cpp measures it.
template <class First>
std::vector<int> listed(kiv::RunView runs, First first, unsigned step)
{
    constexpr std::size_t at_once = 4;
    const std::size_t room = kiv::checked_count<int>(count_pixels(runs) + at_once);
    std::vector<int> numbers(room);
    int* next = numbers.data();
    for (const Run& run : runs) {
        const auto length = static_cast<std::size_t>(kiv::length_of(kiv::begin_of(run), kiv::end_of(run)));
        auto number = static_cast<unsigned>(first(run)); // what is written beyond a run may be no int
        for (std::size_t i = 0; i < length; i += at_once, number += step * static_cast<unsigned>(at_once)) {
            for (std::size_t j = 0; j < at_once; ++j) {
                next[i + j] = static_cast<int>(number + step * static_cast<unsigned>(j));
            }
        }
        next += length;
    }
    numbers.resize(room - at_once);
    return numbers;
}

} // namespace

int KIVMV::KivRegionToVarArray(KivRegion& region, KivVarArray* xs, KivVarArray* ys)
{
    xs->Clear();
    ys->Clear();
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::require_mask_frame(parts.frame);
    const kiv::RunList runs = ordered_parts(parts.runs, parts.frame);
    std::vector<int> columns = listed(
        runs, [](const Run& run) { return kiv::begin_of(run); }, 1);
    std::vector<int> rows = listed(
        runs, [](const Run& run) { return kiv::row_of(run); }, 0);
    kiv::fill_coordinates(*xs, *ys, std::move(columns), std::move(rows));
    return KIVMV_OK;
}
