// SPDX-License-Identifier: MIT
/// @file
/// Run sets from polygons with holes, by the rule of the regions of interest: which pixel centres lie inside.
#pragma once

#include <KivData/KivDataExport.h>
#include <KivRLC/KivRunSet.h>

#include <opencv2/core.hpp>

#include <vector>

namespace KivRuns
{

/// What is inside of polygons that overlap, cross themselves or lie in each other.
enum class FillRule {
    EvenOdd, ///< what a way out to the left crosses an odd number of edges from; holes may run either way round
    NonZero  ///< what the polygons run round, one way more often than the other; holes run the other way round
};

/// The pixels of a frame whose centres lie inside of the polygons or on one of their edges, those of holes included.
///
/// The centre of pixel (x, y) is the point (x, y). The last point of a ring is joined to the first. One ring by the
/// even-odd rule has the pixels of a KivShape::Polygon, where the arithmetic is defined. The outlines of
/// KivRuns::Outlines, whose corners lie half a pixel up and left of the centres, give their set back when 0.5 is taken
/// from both coordinates of each corner.
///
/// Cost: for each row of the frame that the polygons reach, two binary searches in the frame's columns and a sort for
/// each edge on the row.
///
/// @throws std::invalid_argument if width or height is negative or a coordinate is not finite.
/// @throws std::bad_alloc if memory runs out.
KIVDATA_API KivRunSet FromPolygons(const std::vector<std::vector<cv::Point_<double>>>& rings, int width, int height,
                                   FillRule rule = FillRule::EvenOdd);

} // namespace KivRuns
