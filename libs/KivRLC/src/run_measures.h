// SPDX-License-Identifier: MIT
#pragma once

#include "run_neighbours.h"

#include <KivRLC/KivRunMeasures.h>

#include <algorithm>

namespace kivrlc
{

constexpr std::int64_t reach_of(KivRuns::Connectivity connectivity)
{
    return connectivity == KivRuns::Connectivity::Four ? by_edges : by_corners;
}

/// The box of a set's runs, one at least.
inline KivRunBox box_of(KivRunView runs)
{
    KivRunBox box{runs.front().row, runs.back().row, runs.front().colBegin, runs.front().colEnd};
    for (const Run& run : runs) {
        box.colBegin = std::min(box.colBegin, run.colBegin);
        box.colEnd = std::max(box.colEnd, run.colEnd);
    }
    return box;
}

} // namespace kivrlc
