// SPDX-License-Identifier: MIT
#include <KivRLC/KivRunBorders.h>

#include "border_tracer.h"

#include <KivRLC/KivRunLists.h>
#include <KivRLC/KivRunSet.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace
{

/// Whether the runs are maximal, ordered by row, then by column, and all in the box.
bool are_those_of_a_set_in(const KivRunBox& box, KivRunView runs)
{
    const auto lies_between = [&box](const Run& run) {
        return box.colBegin <= run.colBegin && run.colEnd <= box.colEnd;
    };
    return runs.empty() || (box.rowBegin <= runs.front().row && runs.back().row <= box.rowEnd &&
                            std::all_of(runs.begin(), runs.end(), lies_between) && KivRuns::IsCanonical(runs));
}

/// The runs with what lies outside of the box cut off; of those wholly outside nothing, or an inverted run, is left.
std::vector<Run> cut_to(const KivRunBox& box, KivRunView runs)
{
    std::vector<Run> cut;
    cut.reserve(runs.size());
    for (const Run& run : runs) {
        if (box.rowBegin <= run.row && run.row <= box.rowEnd) {
            cut.push_back({run.row, std::max(run.colBegin, box.colBegin), std::min(run.colEnd, box.colEnd)});
        }
    }
    return cut;
}

KivRunBorders traced(KivRunView runs)
{
    constexpr std::size_t many = std::size_t{1} << 30; // for links of 32 bits, which take less time than those of 64
    return runs.size() < many ? kivrlc::borders_of<std::uint32_t>(runs) : kivrlc::borders_of<std::size_t>(runs);
}

} // namespace

KivRunBorders KivRunBorders::Of(KivRunView runs)
{
    return Of(runs, {INT_MIN, INT_MAX, INT_MIN, INT_MAX});
}

KivRunBorders KivRunBorders::Of(KivRunView runs, const KivRunBox& box)
{
    if (are_those_of_a_set_in(box, runs)) {
        return traced(runs);
    }
    return traced(KivRunSet(cut_to(box, runs)).Runs());
}
