// SPDX-License-Identifier: MIT
// Sub-pixel coordinates made pixels, and the frame that pixels need. Each function of the library says which of the two
// conversions is its own.
#pragma once

#include "foundation/runs.h"

#include <opencv2/core.hpp>

#include <vector>

namespace kiv
{

using PixelList = std::vector<cv::Point_<int>>;

/// Toward zero. What no int can hold becomes the nearest int, and NaN becomes 0.
int truncate(double coordinate);

/// To the nearest int, ties to the even one. What no int can hold becomes the nearest int, and NaN becomes 0.
int round_half_even(double coordinate);

/// The largest column and the largest row of a list that is not empty.
cv::Point_<int> largest_of(const PixelList& pixels);

/// The frame from (0, 0) up to and including a pixel. A frame wider or higher than an int can say comes out negative,
/// which OpenCV refuses when a mask of it is made.
Frame frame_up_to(const cv::Point_<int>& largest);

} // namespace kiv
