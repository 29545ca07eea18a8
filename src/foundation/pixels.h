// SPDX-License-Identifier: MIT
// The conversion of sub-pixel coordinates to pixels, and the frame that pixels need. Each function of the library
// documents which of the two conversions it uses.
#pragma once

#include "foundation/runs.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>
#include <span>

namespace kiv
{

/// Listed pixels: the column and the row of pixel i are columns[i] and rows[i].
struct PixelLists {
    std::span<const int> columns;
    std::span<const int> rows;
};

/// Rounds toward zero. Saturates to the range of int; NaN becomes 0.
inline int truncate(double coordinate)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (coordinate > lowest - 1.0 && coordinate < highest + 1.0) {
        return static_cast<int>(coordinate);
    }
    return std::isnan(coordinate) ? 0 : static_cast<int>(std::clamp(coordinate, lowest, highest));
}

/// Rounds to the nearest int, ties to even. Saturates to the range of int; NaN becomes 0.
///
/// Without a branch or a call, so that compilers round several at once: doubles from 2^52 on are whole, so the sum of a
/// coordinate and 1.5 * 2^52 is rounded to a whole number, and the difference is exact.
inline int round_half_even(double coordinate)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    constexpr double whole = 1.5 * 4503599627370496.0;
    static_assert(FLT_EVAL_METHOD == 0 || FLT_EVAL_METHOD == 1, "sums of doubles must be rounded to doubles");
    const double number = coordinate == coordinate ? coordinate : 0.0;
    const double in_range = std::min(std::max(number, lowest), highest);
    return static_cast<int>((in_range + whole) - whole);
}

/// The frame from (0, 0) up to and including a pixel.
///
/// @throws cv::Exception where an int cannot hold its width or height, as OpenCV does for sizes that no matrix can
/// have.
inline Frame frame_up_to(int column, int row)
{
    CV_Assert(column < std::numeric_limits<int>::max() && row < std::numeric_limits<int>::max());
    return {column + 1, row + 1};
}

} // namespace kiv
