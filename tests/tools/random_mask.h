// SPDX-License-Identifier: MIT
// Masks for round trips.
#pragma once

#include <opencv2/core.hpp>

#include <random>

namespace tools_tests
{

/// Up to 40 x 40 pixels, from nearly empty to nearly full.
inline cv::Mat random_mask(std::mt19937& random)
{
    const auto number = [&](int least, int most) { return std::uniform_int_distribution(least, most)(random); };
    cv::Mat mask(number(1, 40), number(1, 40), CV_8UC1);
    const int share = number(0, 100);
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            mask.at<uchar>(y, x) = number(0, 99) < share ? 255 : 0;
        }
    }
    return mask;
}

} // namespace tools_tests
