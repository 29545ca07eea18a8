// SPDX-License-Identifier: MIT
/// @file
/// Operations on lists of runs that are kept elsewhere, without making them sets. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunBuffer.h>

#include <vector>

namespace KivRuns
{

/// Whether a list is that of a set: rows ascend, within a row columns ascend, no run begins past its end, and at least
/// one pixel separates two runs of a row. KivRunSet::WhyNotCanonical() says where one is not.
///
/// Cost: a few instructions for each run, until soon after the first that is out of order.
KIVRLC_API bool IsCanonical(KivRunView runs) noexcept;

/// @name Set operations
/// Append a result to `out`. The lists must be canonical: this is checked first, and if one is not, nothing is appended
/// and the result is false. They must not be `out` itself. If memory runs out, std::bad_alloc is thrown, and `out` has
/// the runs that it had.
/// @{
KIVRLC_API bool AppendIntersection(KivRunView a, KivRunView b, std::vector<Run>& out); ///< What both have.
KIVRLC_API bool AppendDifference(KivRunView a, KivRunView b, std::vector<Run>& out);   ///< What only `a` has.
/// @}

/// Sorts by row; runs of one row keep their order. Linear, in the memory of a copy.
///
/// @throws std::bad_alloc if memory runs out; the list is then as it was.
KIVRLC_API void SortByRow(std::vector<Run>& runs);

/// Sorts by row, and each row by first column; runs with the same first column keep their order. Linear, and a sort of
/// each row. Takes and throws what SortByRow() does.
KIVRLC_API void SortByRowAndColumn(std::vector<Run>& runs);

/// Appends the column of each pixel to one list and its row to the other: the pixels of each run from left to right, in
/// the order of the runs. A run whose begin lies past its end has none. The lists must be two.
///
/// Cost: as much as to write 8 bytes for each pixel, and a few instructions for each run.
///
/// @throws std::bad_alloc if memory runs out; the lists are then as they were.
KIVRLC_API void AppendPixels(KivRunView runs, std::vector<int>& columns, std::vector<int>& rows);

/// Gives back the memory of a list that takes much more than its runs.
///
/// @throws std::bad_alloc if memory runs out; the list is then as it was.
KIVRLC_API void GiveBackSpareRoom(std::vector<Run>& runs);

} // namespace KivRuns
