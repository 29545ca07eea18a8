// SPDX-License-Identifier: MIT
#include "foundation/runs.h"

#include "foundation/bulk.h"
#include "foundation/variants.h"

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

RunList list_of(KivVarArray& rows, KivVarArray& col_begins, KivVarArray& col_ends)
{
    const VariantReader row_reader(rows);
    const VariantReader begin_reader(col_begins);
    const VariantReader end_reader(col_ends);
    const int length = row_reader.length();
    RunList runs;
    runs.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        runs.push_back({row_reader.value(i), begin_reader.value(i), end_reader.value(i)});
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
