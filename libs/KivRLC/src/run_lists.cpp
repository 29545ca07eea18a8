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

} // namespace

bool KivRuns::IsCanonical(KivRunView runs) noexcept
{
    return runs.empty() || (runs.front().colBegin <= runs.front().colEnd &&
                            std::adjacent_find(runs.begin(), runs.end(), is_out_of_order) == runs.end());
}

bool KivRuns::AppendIntersection(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    return kivrlc::sweep<kivrlc::in_both, kivrlc::Trust::none>(a, b, out);
}

bool KivRuns::AppendDifference(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    return kivrlc::sweep<kivrlc::in_first_only, kivrlc::Trust::none>(a, b, out);
}

void KivRuns::GiveBackSpareRoom(std::vector<Run>& runs)
{
    kivrlc::give_back_spare_room(runs);
}
