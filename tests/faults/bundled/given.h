// SPDX-License-Identifier: MIT
// Arguments of the bundled data types.
#pragma once

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <cstring>
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
    return std::make_shared<KivRegion>(width, height, std::move(runs));
}

inline Ptr<KivROI> roi(int width, int height, Runs runs)
{
    return std::make_shared<KivROI>(KivShape::Mask{std::move(runs)}, width, height);
}

inline Ptr<KivROI> disc(int x, int y, int radius, int width, int height)
{
    return std::make_shared<KivROI>(KivROI::Circle(x, y, radius, width, height));
}

template <class Holder>
Ptr<Holder> holder_of_bytes(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    return std::make_shared<Holder>(cv::Mat(rows, cols, CV_8UC1, const_cast<unsigned char*>(bytes.data())).clone());
}

inline Ptr<KivImage> image(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    return holder_of_bytes<KivImage>(cols, rows, bytes);
}

inline Ptr<KivMatrix> matrix(int cols, int rows, const std::vector<unsigned char>& bytes)
{
    return holder_of_bytes<KivMatrix>(cols, rows, bytes);
}

inline Ptr<KivContour> contour(std::vector<cv::Point_<double>> points)
{
    return std::make_shared<KivContour>(std::move(points));
}

inline Ptr<KivContourArray> contours(std::vector<cv::Point_<double>> points)
{
    auto all = std::make_shared<KivContourArray>();
    all->Append(KivContour(std::move(points)));
    return all;
}

inline Ptr<KivVarArray> array(const std::vector<int>& values)
{
    return std::make_shared<KivVarArray>(values);
}

inline Ptr<KivPointArray> points(std::vector<KivPoint> values)
{
    return std::make_shared<KivPointArray>(std::move(values));
}

inline std::string described(const Runs& runs)
{
    std::ostringstream text;
    for (const Run& run : runs) {
        text << " (" << run.row << "," << run.colBegin << "," << run.colEnd << ")";
    }
    return text.str();
}

inline std::string described(const KivRegion& region)
{
    return std::to_string(region.Width()) + " x " + std::to_string(region.Height()) + described(region.Runs());
}

inline std::string described(const KivROI& roi)
{
    const IKivROIPara& parameters = roi.Parameters();
    return "type " + std::to_string(roi.ROIType()) + ", " + std::to_string(parameters.Width()) + " x " +
           std::to_string(parameters.Height()) + described(parameters.MaskRuns());
}

inline std::string described(const KivMatHolder& holder)
{
    std::ostringstream text;
    text << holder.Mat().type() << ": " << holder.Mat();
    return text.str();
}

inline std::string described(const KivContour& contour)
{
    std::ostringstream text;
    for (const auto& point : contour.AllPoints()) {
        text << " (" << point.x << "," << point.y << ")";
    }
    return text.str();
}

inline std::string described(const KivContourArray& contours)
{
    std::string text;
    for (const KivContour& contour : contours) {
        text += " contour" + described(contour);
    }
    return text;
}

inline std::string described(const KivVarArray& values)
{
    std::ostringstream text;
    for (int i = 0; i < values.Length(); ++i) {
        text << " " << values[i].ValType() << ":" << values[i].D();
    }
    return text.str();
}

inline std::string described(const KivPointArray& points)
{
    std::ostringstream text;
    for (const KivPoint& point : points) {
        text << " (" << point.x << "," << point.y << ")";
    }
    return text.str();
}

} // namespace given
