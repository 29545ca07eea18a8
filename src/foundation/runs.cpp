// SPDX-License-Identifier: MIT
#include "foundation/runs.h"

#include <algorithm>
#include <cstddef>

namespace kiv
{

RunArrays::RunArrays(RunView runs)
{
    for (const auto& [row, begin, end] : runs) {
        rows.Append(KivVar(row));
        col_begins.Append(KivVar(begin));
        col_ends.Append(KivVar(end));
    }
}

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

RegionParts::RegionParts(KivRegion& region) : frame(frame_of(region))
{
    region.GetRegionRuns(&runs.rows, &runs.col_begins, &runs.col_ends);
}

void create_region(KivRegion& region, Frame frame, RunView runs)
{
    RunArrays arrays(runs);
    region.CreateRegion(frame.width, frame.height, arrays.rows, arrays.col_begins, arrays.col_ends);
}

} // namespace kiv
