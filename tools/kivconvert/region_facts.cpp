// SPDX-License-Identifier: MIT
#include "kivconvert/region_facts.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>

namespace kivconvert
{
namespace
{

bool lies_inside(const Run& run, const KivRegion& frame)
{
    return run.row >= 0 && run.row < frame.Height() && run.colBegin >= 0 && run.colEnd < frame.Width() &&
           run.colBegin <= run.colEnd;
}

/// What of the runs lies inside the frame, ordered by row, then by first column.
std::vector<Run> visible_runs(const KivRegion& region)
{
    std::vector<Run> visible;
    for (const Run& run : region.Runs()) {
        const Run clipped{run.row, std::max(run.colBegin, 0), std::min(run.colEnd, region.Width() - 1)};
        if (lies_inside(clipped, region)) {
            visible.push_back(clipped);
        }
    }
    std::sort(visible.begin(), visible.end(),
              [](const Run& a, const Run& b) { return std::tie(a.row, a.colBegin) < std::tie(b.row, b.colBegin); });
    return visible;
}

/// Expects the runs ordered as visible_runs() orders them.
long long count_pixels(const std::vector<Run>& runs)
{
    long long pixels = 0;
    int row = -1;
    int next = 0; // first column of the row that is not yet counted
    for (const Run& run : runs) {
        next = run.row == row ? next : 0;
        row = run.row;
        const int first = std::max(run.colBegin, next);
        if (first <= run.colEnd) {
            pixels += static_cast<long long>(run.colEnd) - first + 1;
            next = run.colEnd + 1;
        }
    }
    return pixels;
}

Extent columns_of(const std::vector<Run>& runs)
{
    Extent columns{std::numeric_limits<int>::max(), -1};
    for (const Run& run : runs) {
        columns.first = std::min(columns.first, run.colBegin);
        columns.last = std::max(columns.last, run.colEnd);
    }
    return columns;
}

} // namespace

RegionFacts facts_of(const KivRegion& region)
{
    const std::vector<Run>& runs = region.Runs();
    const auto inside =
        std::count_if(runs.begin(), runs.end(), [&](const Run& run) { return lies_inside(run, region); });
    RegionFacts facts;
    facts.runs = runs.size();
    facts.outside = runs.size() - static_cast<std::size_t>(inside);
    if (const std::vector<Run> visible = visible_runs(region); !visible.empty()) {
        facts.pixels = count_pixels(visible);
        facts.columns = columns_of(visible);
        facts.rows = {visible.front().row, visible.back().row};
    }
    return facts;
}

} // namespace kivconvert
