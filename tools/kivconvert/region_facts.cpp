// SPDX-License-Identifier: MIT
#include "kivconvert/region_facts.h"

#include "kivconvert/visible_runs.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace kivconvert
{
namespace
{

long long count_pixels(const std::vector<Run>& runs)
{
    long long pixels = 0;
    for (const Run& run : runs) {
        pixels += static_cast<long long>(run.colEnd) - run.colBegin + 1;
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
