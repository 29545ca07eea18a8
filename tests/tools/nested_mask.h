// SPDX-License-Identifier: MIT
// A mask whose contours are hard to sort.
#pragma once

#include <opencv2/imgproc.hpp>

namespace tools_tests
{

/// Three pieces of foreground, one within the hole of the other: a disc with a hole of one pixel in a square frame with
/// a second hole, which a diagonal of single pixels cuts in two; and beside it all a single pixel.
inline cv::Mat nested_mask()
{
    cv::Mat mask = cv::Mat::zeros(40, 60, CV_8UC1);
    cv::rectangle(mask, {2, 3}, {45, 36}, cv::Scalar(255), cv::FILLED);
    cv::rectangle(mask, {5, 6}, {30, 33}, cv::Scalar(0), cv::FILLED);
    cv::rectangle(mask, {34, 10}, {40, 16}, cv::Scalar(0), cv::FILLED);
    cv::line(mask, {34, 10}, {40, 16}, cv::Scalar(255));
    cv::circle(mask, {17, 19}, 7, cv::Scalar(255), cv::FILLED);
    mask.at<uchar>(19, 17) = 0;
    mask.at<uchar>(20, 55) = 255;
    return mask;
}

} // namespace tools_tests
