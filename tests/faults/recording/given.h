// SPDX-License-Identifier: MIT
// Arguments of the recording data types.
#pragma once

#include "described.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <memory>
#include <vector>

namespace given
{

template <class T>
using Ptr = std::shared_ptr<T>;
using Runs = std::vector<Run>;
using recording::described;

inline Ptr<KivRegion> region(int width, int height, Runs runs)
{
    auto made = std::make_shared<KivRegion>();
    made->test_width = width;
    made->test_height = height;
    made->test_runs = std::move(runs);
    return made;
}

inline Ptr<KivROI> roi(int width, int height, Runs runs)
{
    auto made = std::make_shared<KivROI>();
    made->test_become("roi", 8, width, height, std::move(runs));
    return made;
}

/// Round or not is for the recording types the same: runs that GetMask() delivers.
inline Ptr<KivROI> disc(int x, int y, int radius, int width, int height)
{
    return roi(width, height, {{y - 1, x, x}, {y, x - radius, x + radius}, {y + 1, x, x}});
}

inline cv::Mat matrix_of_bytes(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    return cv::Mat(rows, cols, CV_8UC1, const_cast<unsigned char*>(bytes.data())).clone();
}

inline Ptr<KivImage> image(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    auto made = std::make_shared<KivImage>("image");
    made->test_set(matrix_of_bytes(cols, rows, bytes));
    return made;
}

inline Ptr<KivMatrix> matrix(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    return std::make_shared<KivMatrix>(matrix_of_bytes(cols, rows, bytes));
}

inline Ptr<KivContour> contour(std::vector<cv::Point_<double>> points)
{
    auto made = std::make_shared<KivContour>();
    made->test_points = std::move(points);
    return made;
}

inline Ptr<KivContourArray> contours(const std::vector<cv::Point_<double>>& points)
{
    auto made = std::make_shared<KivContourArray>("contours");
    made->test_length = static_cast<int>(points.size());
    return made;
}

inline Ptr<KivVarArray> array(const std::vector<int>& values)
{
    auto made = std::make_shared<KivVarArray>();
    for (const int value : values) {
        made->test_append(value);
    }
    return made;
}

inline Ptr<KivPointArray> points(const std::vector<cv::Point_<double>>& values)
{
    auto made = std::make_shared<KivPointArray>("points");
    for (const auto& value : values) {
        made->test_append(value.x, value.y);
    }
    return made;
}

} // namespace given
