// SPDX-License-Identifier: MIT
// Contours filled into a mask.
#pragma once

#include "foundation/first_member.h"
#include "foundation/pixels.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <vector>

namespace kiv
{

using Polygon = std::vector<cv::Point_<int>>;

/// The contour's points as pixels, each coordinate converted by `to_pixel`.
template <class ToPixel>
Polygon polygon_of(const KivContour& contour, ToPixel to_pixel)
{
    const auto& points = points_of(contour);
    Polygon polygon;
    polygon.reserve(points.size());
    for (const auto& point : points) {
        polygon.emplace_back(to_pixel(point.x), to_pixel(point.y));
    }
    return polygon;
}

/// The frame from (0, 0) up to and including the largest column and row of a polygon that is not empty.
Frame frame_of(const Polygon& polygon);

/// The part of its frame that a polygon, which is not empty, reaches, if it has the same pixels where it is drawn in
/// just that part; otherwise the whole frame.
cv::Rect part_of(Frame frame, const Polygon& polygon);

/// Fills the polygon, moved by an offset, interior and 8-connected border, with a grey value. What lies outside the
/// mask is cut off.
///
/// The part more than 2^20 rows above the mask is cut off before drawing, because drawing takes time for every row of a
/// polygon, visible or not. The cut ends of edges are rounded to pixels.
void fill_polygon(cv::Mat& mask, Polygon polygon, int value, const cv::Point_<int>& offset = {0, 0});

/// KIVMV_OK if the contours can be filled in the frame, which takes a contour and 2 x 2 pixels; otherwise the result
/// code.
int check_filling(KivContourArray& contours, Frame frame);

} // namespace kiv
