// SPDX-License-Identifier: MIT
// Sub-pixel coordinates made pixels, and the frame that pixels need. Each function of the library says which of the two
// conversions is its own.
#pragma once

#include "foundation/runs.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace kiv
{

using PixelList = std::vector<cv::Point_<int>>;

/// Toward zero. What no int can hold becomes the nearest int, and NaN becomes 0.
inline int truncate(double coordinate)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (coordinate > lowest - 1.0 && coordinate < highest + 1.0) {
        return static_cast<int>(coordinate);
    }
    return std::isnan(coordinate) ? 0 : static_cast<int>(std::clamp(coordinate, lowest, highest));
}

/// To the nearest int, ties to the even one. What no int can hold becomes the nearest int, and NaN becomes 0.
int round_half_even(double coordinate);

/// The larger column and the larger row of two pixels.
inline cv::Point_<int> larger(const cv::Point_<int>& a, const cv::Point_<int>& b)
{
    return {std::max(a.x, b.x), std::max(a.y, b.y)};
}

/// The largest column and the largest row of a list that is not empty.
cv::Point_<int> largest_of(const PixelList& pixels);

/// The frame from (0, 0) up to and including a pixel. A frame wider or higher than an int can say comes out negative,
/// which OpenCV refuses when a mask of it is made.
Frame frame_up_to(const cv::Point_<int>& largest);

} // namespace kiv
