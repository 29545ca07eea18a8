// SPDX-License-Identifier: MIT
#include "outcome.h"

#include <KivRLC/KivRunTransforms.h>

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <array>

namespace bench
{
namespace
{

template <class Point>
cv::Mat coordinates(const std::vector<Point>& points)
{
    cv::Mat list(static_cast<int>(points.size()), 1, CV_64FC2);
    for (int i = 0; i < list.rows; ++i) {
        const auto& point = points[static_cast<std::size_t>(i)];
        list.at<cv::Vec2d>(i) = {static_cast<double>(point.x), static_cast<double>(point.y)};
    }
    return list;
}

/// Area, left, top, width and height of a component.
using Extent = std::array<int, 5>;

/// Components may come in any order.
Outcome outcome_of(std::vector<Extent> extents)
{
    std::sort(extents.begin(), extents.end());
    return {cv::Mat(static_cast<int>(extents.size()), 5, CV_32S, extents.data()).clone()};
}

} // namespace

cv::Mat painted(const std::vector<Run>& runs, cv::Size frame)
{
    cv::Mat mask = cv::Mat::zeros(frame, CV_8UC1);
    for (const Run& run : runs) {
        uchar* row = mask.ptr(run.row);
        std::fill(row + run.colBegin, row + run.colEnd + 1, uchar{255});
    }
    return mask;
}

Outcome outcome_of(const KivRegion& region)
{
    return {painted(region.Runs(), {region.Width(), region.Height()}), static_cast<double>(region.Runs().size())};
}

Outcome outcome_of(const KivROI& roi)
{
    const IKivROIPara& parameters = roi.Parameters();
    const std::vector<Run> runs = parameters.MaskRuns();
    return {painted(runs, {parameters.Width(), parameters.Height()}), static_cast<double>(runs.size())};
}

Outcome outcome_of(const InFrame& in_frame)
{
    const KivRunSet within = KivRuns::Crop(in_frame.set, {0, in_frame.frame.height - 1, 0, in_frame.frame.width - 1});
    return {painted({within.Runs().begin(), within.Runs().end()}, in_frame.frame),
            static_cast<double>(in_frame.set.Runs().size())};
}

Outcome outcome_of(const ComponentStats& components)
{
    std::vector<Extent> extents;
    for (int i = 1; i < components.stats.rows; ++i) {
        const auto stat = [&](int which) { return components.stats.at<int>(i, which); };
        extents.push_back({stat(cv::CC_STAT_AREA), stat(cv::CC_STAT_LEFT), stat(cv::CC_STAT_TOP),
                           stat(cv::CC_STAT_WIDTH), stat(cv::CC_STAT_HEIGHT)});
    }
    return outcome_of(std::move(extents));
}

Outcome outcome_of(const std::vector<KivRuns::ComponentSummary>& components)
{
    std::vector<Extent> extents;
    for (const KivRuns::ComponentSummary& component : components) {
        const KivRunBox& box = component.box;
        extents.push_back({static_cast<int>(component.area), box.colBegin, box.rowBegin, box.colEnd - box.colBegin + 1,
                           box.rowEnd - box.rowBegin + 1});
    }
    return outcome_of(std::move(extents));
}

Outcome outcome_of(const KivImage& image)
{
    return {image.Mat()};
}

Outcome outcome_of(const KivMatrix& matrix)
{
    return {matrix.Mat()};
}

Outcome outcome_of(const cv::Mat& matrix)
{
    return {matrix};
}

Outcome outcome_of(const KivContourArray& contours)
{
    std::vector<cv::Point2d> all;
    for (const KivContour& contour : contours) {
        all.insert(all.end(), contour.AllPoints().begin(), contour.AllPoints().end());
        all.emplace_back(-1, -1);
    }
    return outcome_of(all);
}

Outcome outcome_of(const std::vector<std::vector<cv::Point>>& chains)
{
    std::vector<cv::Point> all;
    for (const auto& chain : chains) {
        all.insert(all.end(), chain.begin(), chain.end());
        all.emplace_back(-1, -1);
    }
    return outcome_of(all);
}

Outcome outcome_of(const KivContour& contour)
{
    return outcome_of(contour.AllPoints());
}

Outcome outcome_of(const KivPointArray& points)
{
    return {coordinates(points.Points())};
}

Outcome outcome_of(const std::vector<cv::Point>& pixels)
{
    return {coordinates(pixels)};
}

Outcome outcome_of(const std::vector<cv::Point2d>& points)
{
    return {coordinates(points)};
}

Outcome outcome_of(const Pixels& pixels)
{
    cv::Mat list(pixels.xs.Length(), 1, CV_64FC2);
    for (int i = 0; i < list.rows; ++i) {
        list.at<cv::Vec2d>(i) = {pixels.xs[i].D(), pixels.ys[i].D()};
    }
    return {list};
}

} // namespace bench
