// SPDX-License-Identifier: MIT
// Runs inside the library are a flat list; the three parallel arrays of the data types exist only at its edges. Here is
// the way from one to the other.
//
// The contract fixes the order of the three ints of a Run (row, first column, last column), so they are read by
// structured bindings.
#pragma once

#include <KivData/KivData.h>
#include <KivRLC/KivRLC.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
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
inline std::size_t length_of(int first, int last)
{
    return static_cast<std::size_t>(std::int64_t{last} - first) + 1;
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

/// Width and height in pixels, as a region, a mask or an image states them; negative ones are passed on unchanged.
struct Frame {
    int width = 0;
    int height = 0;
};

inline Frame frame_of(const KivRegion& region)
{
    const int width = region.Width();
    const int height = region.Height();
    return {width, height};
}

/// The flat list of the runs in three parallel arrays, as many as there are rows.
RunList list_of(KivVarArray& rows, KivVarArray& col_begins, KivVarArray& col_ends);

/// Runs as the data types hand them out and take them in: the three arrays, to be filled once.
struct RunArrays {
    RunArrays() = default;
    explicit RunArrays(RunView runs);
    RunArrays(const RunArrays&) = delete;
    RunArrays& operator=(const RunArrays&) = delete;

    RunList list() { return list_of(rows, col_begins, col_ends); }

    KivVarArray rows;
    KivVarArray col_begins;
    KivVarArray col_ends;
};

/// Runs to read: a list of its own, or a view of runs that another object keeps and that must outlive it.
class HeldRuns
{
public:
    HeldRuns(RunList own) : own_(std::move(own)), runs_(own_) {}
    HeldRuns(RunView kept_elsewhere) : runs_(kept_elsewhere) {}
    HeldRuns(const HeldRuns&) = delete;
    HeldRuns& operator=(const HeldRuns&) = delete;

    operator RunView() const& { return runs_; }
    operator RunView() const&& = delete; // the view would outlive what it shows
    bool empty() const { return runs_.empty(); }

private:
    RunList own_;
    RunView runs_;
};

/// The runs of a region, in the order in which it delivers them. They may be a view of the region.
HeldRuns runs_of(KivRegion& region);

/// A region taken apart: first its frame, then its runs.
struct RegionParts {
    explicit RegionParts(KivRegion& region) : frame(frame_of(region)), runs(runs_of(region)) {}

    /// The width alone decides whether a region is empty.
    bool empty() const { return frame.width < 1; }

    Frame frame;
    HeldRuns runs;
};

/// Replaces a region by one of the given frame and runs.
void create_region(KivRegion& region, Frame frame, RunList runs);

} // namespace kiv
