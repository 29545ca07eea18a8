// SPDX-License-Identifier: MIT
#include "kivconvert/outlines.h"

#include <algorithm>
#include <numeric>
#include <opencv2/imgproc.hpp>
#include <tuple>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

/// A point on the border of a hole, and the contour that it belongs to.
struct HolePoint {
    int row;
    int column;
    std::size_t hole;

    bool operator<(const HolePoint& other) const { return std::tie(row, column) < std::tie(other.row, other.column); }
};

std::vector<HolePoint> points_of_holes(const TracedContours& traced)
{
    std::vector<HolePoint> points;
    for (int i = 0; i < traced.contours.Length(); ++i) {
        if (traced.contours[i].IsHole()) {
            const cv::Point pixel(traced.contours[i].AllPoints().front());
            points.push_back({pixel.y, pixel.x, static_cast<std::size_t>(i)});
        }
    }
    std::sort(points.begin(), points.end());
    return points;
}

/// The outer borders, the smallest first.
std::vector<int> outers_by_area(const TracedContours& traced)
{
    std::vector<std::pair<double, int>> by_area;
    for (int i = 0; i < traced.contours.Length(); ++i) {
        if (!traced.contours[i].IsHole()) {
            const auto& points = traced.contours[i].AllPoints();
            by_area.emplace_back(cv::contourArea(std::vector<cv::Point>(points.begin(), points.end())), i);
        }
    }
    std::sort(by_area.begin(), by_area.end());
    std::vector<int> outers;
    for (const auto& [area, outer] : by_area) {
        outers.push_back(outer);
    }
    return outers;
}

/// The outer border of each contour, its own for an outer border. The border of a hole runs along pixels of the
/// foreground that it is a hole in, so its outer border is the smallest one around any of its points.
std::vector<int> outers_around(const TracedContours& traced)
{
    std::vector<int> outers(static_cast<std::size_t>(traced.contours.Length()));
    std::iota(outers.begin(), outers.end(), 0);
    std::vector<HolePoint> points = points_of_holes(traced);
    if (points.empty()) {
        return outers;
    }
    std::vector<char> is_placed(outers.size(), 0);
    for (const int outer : outers_by_area(traced)) {
        for (const Run& run : KivContourArray({traced.contours[outer]}).FilledRuns(traced.width, traced.height)) {
            auto point = std::lower_bound(points.begin(), points.end(), HolePoint{run.row, run.colBegin, 0});
            for (; point != points.end() && point->row == run.row && point->column <= run.colEnd; ++point) {
                if (is_placed[point->hole] == 0) {
                    outers[point->hole] = outer;
                    is_placed[point->hole] = 1;
                }
            }
        }
    }
    return outers;
}

} // namespace

std::vector<Outline> outlines_of(const TracedContours& traced)
{
    const std::vector<int> outers = traced.outers.empty() ? outers_around(traced) : traced.outers;
    std::vector<Outline> outlines(outers.size());
    for (std::size_t i = 0; i < outers.size(); ++i) {
        const KivContour& contour = traced.contours[static_cast<int>(i)];
        Outline& outline = outlines[static_cast<std::size_t>(outers[i])];
        if (outers[i] == static_cast<int>(i)) {
            outline.outer = &contour;
        } else {
            outline.holes.push_back(&contour);
        }
    }
    std::erase_if(outlines, [](const Outline& outline) { return outline.outer == nullptr; });
    return outlines;
}

} // namespace kivconvert
