// SPDX-License-Identifier: MIT
/// @file
/// Polygons as OpenCV fills them, which is how the functions that take a single contour are documented to draw.
#pragma once

#include <KivData/KivData.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <vector>

namespace support
{

/// A mask of the given size with a polygon filled, border included. Its corners have int coordinates.
inline cv::Mat drawn(const KivContour::Points& corners, int width, int height)
{
    std::vector<std::vector<cv::Point>> polygons(1);
    for (const auto& corner : corners) {
        polygons.front().emplace_back(static_cast<int>(corner.x), static_cast<int>(corner.y));
    }
    cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
    cv::drawContours(mask, polygons, -1, cv::Scalar(255), cv::FILLED, cv::LINE_8);
    return mask;
}

} // namespace support
