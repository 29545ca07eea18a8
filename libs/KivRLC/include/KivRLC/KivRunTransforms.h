// SPDX-License-Identifier: MIT
/// @file
/// Sets of pixels moved, mirrored, turned, transposed, cropped and scaled. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivRunBox.h>
#include <KivRLC/KivRunSet.h>

/// Operations on run sets.
namespace KivRuns
{

/// @name Transforms
/// Each makes a new set, and throws std::overflow_error if a pixel would get a coordinate that no int can hold and
/// std::bad_alloc if memory runs out.
/// @{

/// Pixel (x, y) becomes (x + dx, y + dy). Linear in the runs.
KIVRLC_API KivRunSet Translate(const KivRunSet& set, int dx, int dy);

/// Mirrors the columns of the box, left and right changing places: x becomes box.colBegin + box.colEnd - x. Pixels
/// outside of the box are mirrored, too. Linear in the runs.
KIVRLC_API KivRunSet FlipLeftRight(const KivRunSet& set, const KivRunBox& box);

/// Mirrors the rows of the box, top and bottom changing places: y becomes box.rowBegin + box.rowEnd - y. Pixels outside
/// of the box are mirrored, too. Linear in the runs.
KIVRLC_API KivRunSet FlipUpDown(const KivRunSet& set, const KivRunBox& box);

/// Turns by quarters of a circle, clockwise as seen with y pointing down; negative ones go the other way. The box turns
/// with its pixels and keeps the place of its upper left corner. So an image of w x h pixels, whose box is
/// {0, h - 1, 0, w - 1}, becomes one of h x w, and after one quarter pixel (x, y) is (h - 1 - y, x). Pixels outside of
/// the box turn, too. Costs as much as Transpose(), or for half a turn is linear in the runs.
KIVRLC_API KivRunSet Turn(const KivRunSet& set, int quarters, const KivRunBox& box);

/// Pixel (x, y) becomes (y, x). Linear in the runs of the set and of the result. A run of n pixels whose neighbours
/// above and below do not belong becomes n runs.
KIVRLC_API KivRunSet Transpose(const KivRunSet& set);

/// The pixels of the set in the box. Linear in the runs on the box's rows.
KIVRLC_API KivRunSet Crop(const KivRunSet& set, const KivRunBox& box);

/// Every pixel becomes a block of columnFactor x rowFactor pixels: (x, y) becomes those from
/// (x columnFactor, y rowFactor) through (x columnFactor + columnFactor - 1, y rowFactor + rowFactor - 1). Linear in
/// the runs of the result, which has rowFactor times as many.
///
/// @throws std::invalid_argument if a factor is less than 1.
KIVRLC_API KivRunSet ScaleUp(const KivRunSet& set, int columnFactor, int rowFactor);

/// Which blocks of pixels become a pixel.
enum class BlockRule {
    Any,  ///< those with any pixel of the set
    Most, ///< those of whose pixels more than half belong to the set; exactly half are not enough
    All   ///< those all of whose pixels belong to the set
};

/// Blocks of columnFactor x rowFactor pixels become one pixel each, or none. Pixel (x, y) of the result stands for the
/// block that it becomes in ScaleUp(), also where coordinates are negative; so scaling a set up and down again by the
/// same factors gives it back, whatever the rule. Linear in the runs, and a sort of those that share a row of blocks.
///
/// @throws std::invalid_argument if a factor is less than 1.
KIVRLC_API KivRunSet ScaleDown(const KivRunSet& set, int columnFactor, int rowFactor, BlockRule rule);

/// @}

} // namespace KivRuns
