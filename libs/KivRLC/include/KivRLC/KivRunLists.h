// SPDX-License-Identifier: MIT
/// @file
/// Set operations on lists of runs that are kept elsewhere, without making them sets. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunBuffer.h>

#include <vector>

namespace KivRuns
{

/// Whether a list is that of a set: rows ascend, within a row columns ascend, no run begins past its end, and at least
/// one pixel separates two runs of a row. KivRunSet::WhyNotCanonical() says where one is not.
///
/// Cost: a few instructions for each run, until the first that is out of order.
KIVRLC_API bool IsCanonical(KivRunView runs) noexcept;

/// @name Set operations
/// Append a result to `out`. The lists must be canonical: this is checked first, and if one is not, nothing is appended
/// and the result is false. They must not be `out` itself. If memory runs out, std::bad_alloc is thrown, and `out` has
/// the runs that it had.
/// @{
KIVRLC_API bool AppendIntersection(KivRunView a, KivRunView b, std::vector<Run>& out); ///< What both have.
KIVRLC_API bool AppendDifference(KivRunView a, KivRunView b, std::vector<Run>& out);   ///< What only `a` has.
/// @}

/// Gives back the memory of a list that takes much more than its runs.
///
/// @throws std::bad_alloc if memory runs out; the list is then as it was.
KIVRLC_API void GiveBackSpareRoom(std::vector<Run>& runs);

} // namespace KivRuns
