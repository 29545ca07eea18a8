// SPDX-License-Identifier: MIT
#include "foundation/pixels.h"

#include <cmath>

namespace kiv
{
namespace
{

int one_past(int coordinate)
{
    return static_cast<int>(static_cast<unsigned>(coordinate) + 1U);
}

} // namespace

int round_half_even(double coordinate)
{
    return truncate(std::nearbyint(coordinate));
}

cv::Point_<int> largest_of(const PixelList& pixels)
{
    cv::Point_<int> largest = pixels.front();
    for (const auto& pixel : pixels) {
        largest = larger(largest, pixel);
    }
    return largest;
}

Frame frame_up_to(const cv::Point_<int>& largest)
{
    return {one_past(largest.x), one_past(largest.y)};
}

} // namespace kiv
