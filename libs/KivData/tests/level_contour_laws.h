// SPDX-License-Identifier: MIT
/// @file
/// What holds for the lines at a level of every image.
#pragma once

#include <KivData/KivContourMeasures.h>
#include <KivData/KivLevelContours.h>

#include <gtest/gtest.h>

#include <opencv2/core.hpp>

namespace level_contour_laws
{

/// Whether what the lines enclose, by the even-odd rule, and what lies on them, is what is bright.
inline void expect_bright_inside(const cv::Mat& image, double level)
{
    const KivContourArray lines = KivContours::AtLevel(image, level);
    for (int y = 0; y < image.rows; ++y) {
        for (int x = 0; x < image.cols; ++x) {
            bool inside = false;
            bool on_line = false;
            for (const KivContour& line : lines) {
                inside = inside != KivContours::Contains(line, {double(x), double(y)});
                on_line = on_line || KivContours::Nearest(line, {double(x), double(y)}).distance == 0.0;
            }
            ASSERT_EQ(inside || on_line, image.at<unsigned char>(y, x) >= level) << image << " at " << level;
        }
    }
}

} // namespace level_contour_laws
