// SPDX-License-Identifier: MIT
/// @file
/// The borders of the pixels that runs cover, traced along the runs. This header needs no OpenCV.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunBox.h>
#include <KivRLC/KivRunBuffer.h>

#include <cstddef>
#include <vector>

/// A pixel by its column and row.
struct KivPixel {
    int x; ///< column
    int y; ///< row

    /// Equal when both members are.
    friend constexpr bool operator==(const KivPixel& a, const KivPixel& b) noexcept { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator!=(const KivPixel& a, const KivPixel& b) noexcept { return !(a == b); }
};

namespace kivrlc
{

/// A vector of pixels whose resize() leaves new pixels uninitialised.
using PixelBuffer = std::vector<KivPixel, UnclearedAllocator<KivPixel>>;

} // namespace kivrlc

/// One border of KivRunBorders: points[begin] up to, but not including, points[end].
struct KivRunBorder {
    std::size_t begin; ///< its first point
    std::size_t end;   ///< past its last point; larger than begin
    std::size_t outer; ///< which of the borders is the outer one of the same component; for an outer border itself
};

/// All borders of a set of pixels: closed chains of the pixels along the edge, each a neighbour of the one before by an
/// edge or a corner. Pixels that touch by a corner are connected, those of the background only by an edge.
///
/// Outer borders come from the last found to the first, rows being searched from top to bottom and from left to right,
/// and each is followed by the borders of its holes, likewise from the last to the first. An outer border starts at the
/// leftmost pixel of its uppermost row and runs round counterclockwise as seen on the screen (y down). A hole's border
/// consists of the pixels around the hole, starts at the one to the left of the leftmost pixel of the hole's uppermost
/// row, and runs round clockwise. Border after border this is what cv::findContours() gives with RETR_CCOMP and
/// CHAIN_APPROX_NONE.
///
/// Filled by KivPolygonFill, the borders give the pixels back.
struct KIVRLC_API KivRunBorders {
    std::vector<KivRunBorder> borders; ///< in the order above
    kivrlc::PixelBuffer points;        ///< the points of all borders; those of one border stand together

    /// The borders of the pixels that any of the runs covers. The runs may come in any order, overlap, touch and
    /// repeat; a run whose begin lies past its end covers nothing.
    ///
    /// Cost: linear in the runs and the points of the borders if the runs are those of a KivRunSet, or a mask's;
    /// otherwise such a set is made first. Beside the result it takes 8 bytes a run, 16 for 2^30 runs or more.
    ///
    /// @throws std::bad_alloc if memory runs out.
    static KivRunBorders Of(KivRunView runs);

    /// The same, of the pixels in a box only.
    static KivRunBorders Of(KivRunView runs, const KivRunBox& box);
};
