// SPDX-License-Identifier: MIT
// The borders of a mask's foreground, pixel by pixel.
#pragma once

#include <KivData/KivContour.h>

#include <opencv2/core.hpp>

#include <vector>

namespace kivdata
{

/// All borders of the foreground of a mask (0 is background, 255 foreground), whose outermost pixels must be
/// background; pixels that touch by a corner are connected. Outer borders come from the last found to the first, rows
/// being searched from top to bottom, and each is followed by those of its holes, likewise from the last to the first.
/// This is what cv::findContours() gives with RETR_CCOMP and CHAIN_APPROX_NONE, points and order alike.
///
/// Points are given with `offset` added. The mask's foreground pixels are changed, but stay foreground.
std::vector<KivContour> trace_borders(cv::Mat& mask, cv::Point_<int> offset);

} // namespace kivdata
