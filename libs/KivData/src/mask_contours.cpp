// SPDX-License-Identifier: MIT
// Filling all borders in one call is what makes the two inverse: the interior of a hole lies inside of two contours,
// the hole's and the outer one's, and stays unfilled by the even-odd rule, while the border pixels, all foreground, are
// painted by every contour they belong to.
#include "mask_contours.h"

#include "argument_checks.h"
#include "border_tracing.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using Point = cv::Point_<double>;
using Points = KivContour::Points;
using PixelChain = std::vector<cv::Point_<int>>;

constexpr int all_contours = -1;
constexpr int filled = -1;
constexpr int eight_connected = 8;

// cv::drawContours follows an edge row by row from its top on, also above of the mask, and is wrong by up to 1/65536 of
// a pixel more with each row: from so far out by a pixel, after a fraction of a millisecond.
constexpr double drawable_margin = 1 << 16;

/// The side of a half plane at which a coordinate of its points is at most, or at least, a limit.
struct Side {
    double Point::*across; // the limited coordinate
    double Point::*along;  // the other one
    double sign;           // 1 for at most, -1 for at least
    double limit;

    bool holds(const Point& point) const { return sign * point.*across <= sign * limit; }

    /// Where the line from a to b, of which one holds, meets the limit.
    Point meet(const Point& a, const Point& b) const
    {
        Point met;
        met.*across = limit;
        met.*along = a.*along + (b.*along - a.*along) * ((limit - a.*across) / (b.*across - a.*across));
        return met;
    }
};

/// The polygon's part on one side of a line (a step of Sutherland's and Hodgman's algorithm). What the line cuts apart
/// stays joined by edges along the line.
Points cut(const Points& polygon, const Side& side)
{
    Points kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& from = polygon[i > 0 ? i - 1 : polygon.size() - 1];
        const Point& to = polygon[i];
        if (side.holds(from) != side.holds(to)) {
            kept.push_back(side.meet(from, to));
        }
        if (side.holds(to)) {
            kept.push_back(to);
        }
    }
    return kept;
}

/// The polygon's part within the drawable margin around the mask; all of it, unchanged, when it does not reach farther.
Points cut_to_drawable(Points polygon, const cv::Mat& mask)
{
    const Side sides[] = {{&Point::x, &Point::y, -1.0, -drawable_margin},
                          {&Point::x, &Point::y, 1.0, mask.cols + drawable_margin},
                          {&Point::y, &Point::x, -1.0, -drawable_margin},
                          {&Point::y, &Point::x, 1.0, mask.rows + drawable_margin}};
    for (const Side& side : sides) {
        if (!std::all_of(polygon.begin(), polygon.end(), [&](const Point& point) { return side.holds(point); })) {
            polygon = cut(polygon, side);
        }
    }
    return polygon;
}

/// The nearest pixel, ties to even, saturated to the range of int.
Point rounded(const Point& point)
{
    const auto round = [](double value) { return std::nearbyint(std::clamp<double>(value, INT_MIN, INT_MAX)); };
    return {round(point.x), round(point.y)};
}

PixelChain nearest_pixels(const Points& points)
{
    PixelChain pixels;
    pixels.reserve(points.size());
    for (const Point& point : points) {
        pixels.emplace_back(static_cast<int>(std::nearbyint(point.x)), static_cast<int>(std::nearbyint(point.y)));
    }
    return pixels;
}

/// The contour's points as pixels that can be drawn.
PixelChain drawable_pixels(const KivContour& contour, const cv::Mat& mask)
{
    const Points& points = contour.AllPoints();
    const auto is_near = [&mask](const Point& point) {
        return std::abs(point.x) <= mask.cols && std::abs(point.y) <= mask.rows;
    };
    if (std::all_of(points.begin(), points.end(), is_near)) { // nothing to cut, saturate or leave out
        return nearest_pixels(points);
    }
    Points polygon;
    polygon.reserve(points.size());
    for (const Point& point : points) {
        if (!std::isnan(point.x) && !std::isnan(point.y)) {
            polygon.push_back(rounded(point));
        }
    }
    return nearest_pixels(cut_to_drawable(std::move(polygon), mask));
}

/// The mask with its foreground made 255, and a border of background around it, which keeps foreground at the mask's
/// edge apart from the edge.
cv::Mat framed_foreground(const cv::Mat& mask)
{
    cv::Mat framed(mask.rows + 2, mask.cols + 2, CV_8UC1);
    std::memset(framed.ptr(0), 0, framed.step[0]);
    for (int y = 0; y < mask.rows; ++y) {
        const uchar* from = mask.ptr(y);
        uchar* to = framed.ptr(y + 1);
        to[0] = 0;
        uchar* end = std::transform(from, from + mask.cols, to + 1,
                                    [](uchar byte) { return static_cast<uchar>(byte != 0 ? 255 : 0); });
        *end = 0;
    }
    std::memset(framed.ptr(mask.rows + 1), 0, framed.step[0]);
    return framed;
}

} // namespace

KivContourArray kivdata::trace_contours(const cv::Mat& mask)
{
    if (mask.dims > 2 || mask.channels() != 1) {
        throw std::invalid_argument("MatToMask: the mask must have two dimensions and one channel");
    }
    if (mask.empty()) {
        return KivContourArray();
    }
    if (mask.rows > INT_MAX - 2 || mask.cols > INT_MAX - 2) {
        throw std::invalid_argument("MatToMask: the mask is too large to be traced");
    }
    cv::Mat framed = mask.depth() == CV_8U ? framed_foreground(mask) : framed_foreground(mask != 0);
    return KivContourArray(trace_borders(framed, cv::Point_<int>(-1, -1)));
}

cv::Mat kivdata::fill_contours(const KivContourArray& contours, int width, int height)
{
    check_frame(width, height);
    cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
    std::vector<PixelChain> chains;
    for (const KivContour& contour : contours) {
        chains.push_back(drawable_pixels(contour, mask));
    }
    std::erase_if(chains, [](const PixelChain& chain) { return chain.empty(); });
    if (!chains.empty() && !mask.empty()) {
        cv::drawContours(mask, chains, all_contours, cv::Scalar(255), filled, eight_connected, cv::noArray(), INT_MAX);
    }
    return mask;
}
