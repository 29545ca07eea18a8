// SPDX-License-Identifier: MIT
// One contour, filled into a mask.
#pragma once

#include "foundation/pixels.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

namespace kiv
{

/// The contour's points as pixels, each coordinate converted by `to_pixel`.
PixelList pixels_of(const KivContour& contour, int (*to_pixel)(double));

/// Fills the polygon, interior and 8-connected border, with a grey value. What lies outside the mask is cut off.
///
/// Corners further than 2^24 pixels outside the mask are drawn at that distance, as drawing takes time for every row
/// that a polygon spans above the mask.
void fill_polygon(cv::Mat& mask, PixelList polygon, int value);

/// Makes `mask` the contours, filled by the data types, at a size of at least 2 x 2. Returns the result code; `mask` is
/// as it was unless that is KIVMV_OK.
int fill_contours(KivContourArray& contours, Frame frame, cv::Mat& mask);

} // namespace kiv
