// SPDX-License-Identifier: MIT
// How large the results of set operations may become, counted from their operands.
#pragma once

#include <KivData/KivData.h>

namespace kivconvert
{

/// At most so many runs come of a union, an intersection or a difference. The library combines each run of a row of A
/// with each run of that row of B: a union gives up to two runs a pair. The others give up to one a pair, and no more
/// than there are runs where neither row has runs that overlap.
double most_runs_of_union(const KivRegion& a, const KivRegion& b);
double most_runs_of_intersection(const KivRegion& a, const KivRegion& b);
double most_runs_of_difference(const KivRegion& a, const KivRegion& b);

/// The region with runs of rows outside of the frame on the row above it, or the one below. The complement inside the
/// frame stays the same; what the library adds for each row between its runs is limited to the frame.
KivRegion with_rows_at_frame(const KivRegion& region);

} // namespace kivconvert
