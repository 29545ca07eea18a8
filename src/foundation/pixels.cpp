// SPDX-License-Identifier: MIT
#include "foundation/pixels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kiv
{
namespace
{

int saturate(double whole)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return std::isnan(whole) ? 0 : static_cast<int>(std::clamp(whole, lowest, highest));
}

int one_past(int coordinate)
{
    return static_cast<int>(static_cast<unsigned>(coordinate) + 1U);
}

} // namespace

int truncate(double coordinate)
{
    return saturate(std::trunc(coordinate));
}

int round_half_even(double coordinate)
{
    return saturate(std::nearbyint(coordinate));
}

cv::Point_<int> largest_of(const PixelList& pixels)
{
    cv::Point_<int> largest = pixels.front();
    for (const auto& pixel : pixels) {
        largest.x = std::max(largest.x, pixel.x);
        largest.y = std::max(largest.y, pixel.y);
    }
    return largest;
}

Frame frame_up_to(const cv::Point_<int>& largest)
{
    return {one_past(largest.x), one_past(largest.y)};
}

} // namespace kiv
