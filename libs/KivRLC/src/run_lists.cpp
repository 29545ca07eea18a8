// SPDX-License-Identifier: MIT
#include "row_sweep.h"
#include "run_room.h"

#include <KivRLC/KivRunLists.h>

#include <algorithm>
#include <cstdint>

namespace
{

/// Whether a run may not come next in a list of maximal runs.
bool is_out_of_order(const Run& run, const Run& next)
{
    if (next.colBegin > next.colEnd || next.row < run.row) {
        return true;
    }
    return next.row == run.row && std::int64_t{next.colBegin} - 1 <= run.colEnd;
}

template <kivrlc::TruthTable table>
bool append_combined(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    if (!KivRuns::IsCanonical(a) || !KivRuns::IsCanonical(b)) {
        return false;
    }
    kivrlc::sweep<table>(a, b, out);
    return true;
}

} // namespace

bool KivRuns::IsCanonical(KivRunView runs) noexcept
{
    return runs.empty() || (runs.front().colBegin <= runs.front().colEnd &&
                            std::adjacent_find(runs.begin(), runs.end(), is_out_of_order) == runs.end());
}

bool KivRuns::AppendIntersection(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    return append_combined<kivrlc::in_both>(a, b, out);
}

bool KivRuns::AppendDifference(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    return append_combined<kivrlc::in_first_only>(a, b, out);
}

void KivRuns::GiveBackSpareRoom(std::vector<Run>& runs)
{
    kivrlc::give_back_spare_room(runs);
}
