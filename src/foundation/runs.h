// SPDX-License-Identifier: MIT
// Runs inside the library: flat lists, and views of such lists.
//
// The data types fix only the order of the three ints of a Run (row, first column, last column), so they are read by
// structured bindings.
#pragma once

#include "foundation/view_or_copy.h"

#include <KivRLC/KivRLC.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kiv
{

using RunList = std::vector<Run>;
using RunView = std::span<const Run>;

inline int row_of(const Run& run)
{
    const auto [row, begin, end] = run;
    return row;
}

inline int begin_of(const Run& run)
{
    const auto [row, begin, end] = run;
    return begin;
}

inline int end_of(const Run& run)
{
    const auto [row, begin, end] = run;
    return end;
}

/// The number of columns from `first` up to and including `last`, which must not be left of it.
inline std::uint64_t length_of(int first, int last)
{
    return static_cast<std::uint64_t>(std::int64_t{last} - first) + 1;
}

/// The runs on the first row of a list that is not empty.
inline RunView leading_row(RunView runs)
{
    std::size_t length = 1;
    while (length < runs.size() && row_of(runs[length]) == row_of(runs.front())) {
        ++length;
    }
    return runs.first(length);
}

/// The runs on the last row of a list that is not empty and whose rows ascend.
inline RunView last_row(RunView runs)
{
    std::size_t length = 1;
    while (length < runs.size() && row_of(runs[runs.size() - 1 - length]) == row_of(runs.back())) {
        ++length;
    }
    return runs.last(length);
}

/// Width and height in pixels, as reported by a region, a mask or an image; negative ones are passed on unchanged.
struct Frame {
    int width = 0;
    int height = 0;
};

/// The frame and the runs of a region or of an ROI's mask.
struct FramedRuns {
    Frame frame;
    ViewOrCopy<Run> runs;
};

/// Calls `visit` with the row, the first and the last column of each part of a run that lies in the frame.
template <class Visit>
void for_each_visible(RunView runs, Frame frame, Visit visit)
{
    for (const auto& [row, begin, end] : runs) {
        const int first = std::max(begin, 0);
        const int last = std::min(end, frame.width - 1);
        if (row >= 0 && row < frame.height && first <= last) {
            visit(row, first, last);
        }
    }
}

} // namespace kiv
