// SPDX-License-Identifier: MIT
// How the library's own operations make sets from runs that are maximal and in order already.
#pragma once

#include "run_room.h"

#include <KivRLC/KivRunSet.h>

#include <algorithm>
#include <cassert>
#include <utility>

namespace kivrlc
{

struct RunSetAccess {
    /// The set of these runs, which are taken over without copying, unless they fill little of their room.
    static KivRunSet make(RunBuffer&& runs)
    {
        assert(KivRunSet::WhyNotCanonical(runs).empty());
        give_back_spare_room(runs);
        KivRunSet set;
        set.runs_ = std::move(runs);
        return set;
    }
};

/// The set of runs that are maximal and in order already.
inline KivRunSet set_of_canonical(RunBuffer&& runs)
{
    return RunSetAccess::make(std::move(runs));
}

/// The first run on a row or below it. Most sets are asked for rows at or beyond their ends.
inline const Run* first_from_row(KivRunView runs, int row)
{
    if (runs.empty() || row <= runs.front().row) {
        return runs.begin();
    }
    return std::lower_bound(runs.begin(), runs.end(), row, [](const Run& run, int wanted) { return run.row < wanted; });
}

/// The first run below a row.
inline const Run* behind_row(KivRunView runs, int row)
{
    if (runs.empty() || runs.back().row <= row) {
        return runs.end();
    }
    return std::upper_bound(runs.begin(), runs.end(), row, [](int wanted, const Run& run) { return wanted < run.row; });
}

/// Whether two runs of one row, the second of which begins no further left, leave no pixel between them.
inline bool touch_or_overlap(const Run& left, const Run& right)
{
    return right.colBegin <= left.colEnd || right.colBegin - 1 == left.colEnd;
}

} // namespace kivrlc
