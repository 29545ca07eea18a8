// SPDX-License-Identifier: MIT
// Contours, filled into a mask.
#pragma once

#include "foundation/first_member.h"
#include "foundation/pixels.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

namespace kiv
{

/// The contour's points as pixels, each coordinate converted by `to_pixel`.
template <class ToPixel>
PixelList pixels_of(const KivContour& contour, ToPixel to_pixel)
{
    const auto& points = points_of(contour);
    PixelList pixels;
    pixels.reserve(points.size());
    for (const auto& point : points) {
        pixels.emplace_back(to_pixel(point.x), to_pixel(point.y));
    }
    return pixels;
}

/// Fills the polygon, interior and 8-connected border, with a grey value. What lies outside the mask is cut off.
///
/// What lies more than 2^20 rows above the mask is cut off before it is drawn, as drawing takes time for every row of a
/// polygon from its top on; the cut ends of edges are rounded to pixels.
void fill_polygon(cv::Mat& mask, PixelList polygon, int value);

/// Makes `mask` the contours, filled by the data types, at a size of at least 2 x 2. Returns the result code; `mask` is
/// as it was unless that is KIVMV_OK.
int fill_contours(KivContourArray& contours, Frame frame, cv::Mat& mask);

} // namespace kiv
