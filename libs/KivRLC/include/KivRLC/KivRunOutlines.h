// SPDX-License-Identifier: MIT
/// @file
/// Outlines of run sets along the edges of pixels. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunSet.h>

#include <cstddef>
#include <vector>

namespace KivRuns
{

/// A place where four pixels meet. Pixel (x, y) is the square from its upper left corner (x, y) to its lower right
/// corner (x + 1, y + 1); its centre is (x + 0.5, y + 0.5).
struct PixelCorner {
    int x; ///< between columns x - 1 and x
    int y; ///< between rows y - 1 and y

    /// Equal when both members are.
    friend constexpr bool operator==(const PixelCorner& a, const PixelCorner& b) noexcept
    {
        return a.x == b.x && a.y == b.y;
    }
    friend constexpr bool operator!=(const PixelCorner& a, const PixelCorner& b) noexcept { return !(a == b); }
};

/// One ring of Outlines: corners[begin] up to, but not including, corners[end].
struct OutlineRing {
    std::size_t begin; ///< its first corner: the leftmost of its uppermost ones
    std::size_t end;   ///< past its last corner; the ring goes on from there to its first one
    bool isHole;       ///< whether the set lies outside of the ring

    /// Which of the rings is the outer one around this hole; for an outer ring itself.
    std::size_t outer;
};

/// The border of a set along the edges of its pixels, as closed rings of level and upright edges in turn.
///
/// Every component of pixels that touch by edges has one outer ring and one ring for each of its holes. As seen with y
/// pointing down, outer rings run clockwise and those of holes counterclockwise: the set is on the right. No ring
/// touches itself. Where pixels meet by a corner only, two rings do, as those of valid polygons may; a hole that is
/// closed by such a corner is one. So an outer ring with its holes is a valid polygon, and all of them together a valid
/// multipolygon. A point such as the centre of a pixel, which lies on none of them, is in the set if it is inside of an
/// odd number of rings.
///
/// Rings come in the order of their first corners, by row, then by column.
struct Outlines {
    std::vector<OutlineRing> rings;   ///< in the order above
    std::vector<PixelCorner> corners; ///< of all rings; those of one ring stand together
};

/// The outlines of a set.
///
/// Cost: linear in the runs, and a sort of the rings. Beside the result it takes some 45 bytes a run.
///
/// @throws std::overflow_error if the set has a pixel in column or row 2^31 - 1, whose far corners no int can hold.
/// @throws std::bad_alloc if memory runs out.
KIVRLC_API Outlines OutlinesOf(const KivRunSet& set);

} // namespace KivRuns
