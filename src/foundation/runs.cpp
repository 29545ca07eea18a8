// SPDX-License-Identifier: MIT
#include "foundation/runs.h"

#include "foundation/bulk.h"

#include <algorithm>
#include <cstddef>

namespace kiv
{
namespace
{

template <class Region>
HeldRuns delivered_runs(Region& region)
{
    if constexpr (KeepsFlatRuns<Region>) {
        return RunView(region.Runs());
    } else {
        RunArrays arrays;
        region.GetRegionRuns(&arrays.rows, &arrays.col_begins, &arrays.col_ends);
        return arrays.list();
    }
}

template <class Region>
void replace(Region& region, Frame frame, RunList runs)
{
    if constexpr (KeepsFlatRuns<Region>) {
        region.CreateRegion(frame.width, frame.height, std::move(runs));
    } else {
        RunArrays arrays(runs);
        region.CreateRegion(frame.width, frame.height, arrays.rows, arrays.col_begins, arrays.col_ends);
    }
}

} // namespace

RunView leading_row(RunView runs)
{
    const int row = row_of(runs.front());
    const auto stop = std::find_if(runs.begin(), runs.end(), [row](const Run& run) { return row_of(run) != row; });
    return {runs.begin(), stop};
}

RunList list_of(KivVarArray& rows, KivVarArray& col_begins, KivVarArray& col_ends)
{
    const int length = rows.Length();
    RunList runs;
    runs.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        runs.push_back({rows[i].I(), col_begins[i].I(), col_ends[i].I()});
    }
    return runs;
}

RunArrays::RunArrays(RunView runs)
{
    for (const auto& [row, begin, end] : runs) {
        rows.Append(KivVar(row));
        col_begins.Append(KivVar(begin));
        col_ends.Append(KivVar(end));
    }
}

HeldRuns runs_of(KivRegion& region)
{
    return delivered_runs(region);
}

void create_region(KivRegion& region, Frame frame, RunList runs)
{
    replace(region, frame, std::move(runs));
}

} // namespace kiv
