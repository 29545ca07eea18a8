// SPDX-License-Identifier: MIT
#include "kivconvert/outlines.h"

#include <algorithm>
#include <numeric>
#include <opencv2/imgproc.hpp>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

std::vector<cv::Point> pixels_of(const KivContour& border)
{
    return {border.AllPoints().begin(), border.AllPoints().end()};
}

/// For every pixel of the frame, the index of the smallest outer border around it, or -1: they are painted over the
/// larger ones.
cv::Mat1i smallest_around(const TracedContours& traced)
{
    std::vector<std::pair<double, int>> by_area;
    for (int i = 0; i < traced.contours.Length(); ++i) {
        if (!traced.contours[i].IsHole()) {
            by_area.emplace_back(cv::contourArea(pixels_of(traced.contours[i])), i);
        }
    }
    std::sort(by_area.rbegin(), by_area.rend());
    cv::Mat1i smallest(traced.height, traced.width, -1);
    for (const auto& [area, outer] : by_area) {
        cv::fillPoly(smallest, std::vector{pixels_of(traced.contours[outer])}, outer);
    }
    return smallest;
}

/// The border of a hole runs along pixels of the foreground that it is a hole in, and belongs to the border of that.
std::vector<int> outers_around(const TracedContours& traced)
{
    std::vector<int> outers(static_cast<std::size_t>(traced.contours.Length()));
    std::iota(outers.begin(), outers.end(), 0);
    const auto is_hole = [&](int i) { return traced.contours[i].IsHole(); };
    if (std::none_of(outers.begin(), outers.end(), is_hole)) {
        return outers;
    }
    const cv::Mat1i smallest = smallest_around(traced);
    for (int& outer : outers) {
        const cv::Point pixel(traced.contours[outer].AllPoints().front());
        if (is_hole(outer) && cv::Rect(cv::Point(), smallest.size()).contains(pixel) && smallest(pixel) >= 0) {
            outer = smallest(pixel);
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
