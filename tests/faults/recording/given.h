// SPDX-License-Identifier: MIT
// Arguments of the recording data types.
#pragma once

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace given
{

template <class T>
using Ptr = std::shared_ptr<T>;
using Runs = std::vector<Run>;

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

inline cv::Mat matrix_of_bytes(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    return cv::Mat(rows, cols, CV_8UC1, const_cast<unsigned char*>(bytes.data())).clone();
}

inline Ptr<KivImage> image(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    auto made = std::make_shared<KivImage>();
    made->test_set(matrix_of_bytes(cols, rows, bytes));
    return made;
}

inline Ptr<KivMatrix> matrix(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    auto made = std::make_shared<KivMatrix>();
    made->test_matrix = matrix_of_bytes(cols, rows, bytes);
    return made;
}

inline Ptr<KivContour> contour(std::vector<cv::Point_<double>> points)
{
    auto made = std::make_shared<KivContour>();
    made->test_points = std::move(points);
    return made;
}

inline Ptr<KivContourArray> contours(const std::vector<cv::Point_<double>>& points)
{
    auto made = std::make_shared<KivContourArray>();
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
    auto made = std::make_shared<KivPointArray>();
    for (const auto& value : values) {
        made->test_append(value.x, value.y);
    }
    return made;
}

inline std::string described(const Runs& runs)
{
    std::ostringstream text;
    for (const Run& run : runs) {
        text << " (" << run.row << "," << run.colBegin << "," << run.colEnd << ")";
    }
    return text.str();
}

inline std::string described(int width, int height, const Runs& runs)
{
    return std::to_string(width) + " x " + std::to_string(height) + described(runs);
}

inline std::string described(const KivRegion& region)
{
    return described(region.test_width, region.test_height, region.test_runs);
}

inline std::string described(const KivROI& roi)
{
    const IKivROIPara& parameters = roi.test_parameters;
    return "type " + std::to_string(roi.test_type) + ", " +
           described(parameters.test_width, parameters.test_height, parameters.test_runs);
}

inline std::string described(const KivImage& image)
{
    return recording::text_of(image.test_matrix);
}
inline std::string described(const KivMatrix& matrix)
{
    return recording::text_of(matrix.test_matrix);
}

inline std::string described(const KivContour& contour)
{
    std::ostringstream text;
    text << contour.test_points;
    return text.str();
}

inline std::string described(const KivContourArray& contours)
{
    return std::to_string(contours.test_length) + " " + contours.test_written_by;
}

inline std::string described(const KivVarArray& values)
{
    std::ostringstream text;
    for (const int value : values.test_values()) {
        text << " " << value;
    }
    return text.str();
}

inline std::string described(const KivPointArray& points)
{
    std::ostringstream text;
    for (const auto& point : points.test_points()) {
        text << " " << point;
    }
    return text.str();
}

} // namespace given
