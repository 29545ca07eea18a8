// SPDX-License-Identifier: MIT
// The rows of a frame that a shape can reach.
#pragma once

#include <algorithm>
#include <cmath>

namespace kivdata
{

/// The rows begin, begin + 1, …, stop - 1.
struct Rows {
    int begin;
    int stop;
};

/// The rows of a frame of the given height from `top` to `bottom`, both included; either may be infinite.
inline Rows rows_between(double top, double bottom, int height)
{
    const auto into_frame = [height](double row) { return static_cast<int>(std::clamp<double>(row, 0.0, height)); };
    return {into_frame(std::ceil(top)), into_frame(std::floor(bottom) + 1.0)};
}

} // namespace kivdata
