// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"

#include <KivDataConvert/KivDataConvert.h>

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <climits>

namespace kiv
{
namespace
{

constexpr int all_contours = -1;

constexpr int uppermost_row = -(1 << 20);

/// Where the edge from a to b, which lie on different sides of the uppermost row, meets it.
cv::Point_<int> meet_uppermost_row(const cv::Point_<double>& a, const cv::Point_<double>& b)
{
    const double part = (uppermost_row - a.y) / (b.y - a.y);
    return {round_half_even(a.x + (b.x - a.x) * part), uppermost_row};
}

/// The polygon without the part above the uppermost row. The pieces that this leaves stay joined along that row.
Polygon cut_above_uppermost_row(const Polygon& polygon)
{
    Polygon kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const auto& from = polygon[i > 0 ? i - 1 : polygon.size() - 1];
        const auto& to = polygon[i];
        if ((from.y < uppermost_row) != (to.y < uppermost_row)) {
            kept.push_back(meet_uppermost_row(from, to));
        }
        if (to.y >= uppermost_row) {
            kept.push_back(to);
        }
    }
    return kept;
}

} // namespace

Frame frame_of(const Polygon& polygon)
{
    cv::Point_<int> largest = polygon.front();
    for (const auto& corner : polygon) {
        largest.x = std::max(largest.x, corner.x);
        largest.y = std::max(largest.y, corner.y);
    }
    return frame_up_to(largest.x, largest.y);
}

cv::Rect part_of(Frame frame, const Polygon& polygon)
{
    constexpr int far = 1 << 15; // further to the right, edges overflow in some versions of OpenCV
    const auto is_near = [](const cv::Point_<int>& corner) { return corner.x >= 0 && corner.x < far && corner.y >= 0; };
    return std::all_of(polygon.begin(), polygon.end(), is_near) ? cv::boundingRect(polygon)
                                                                : cv::Rect(0, 0, frame.width, frame.height);
}

void fill_polygon(cv::Mat& mask, Polygon polygon, int value, const cv::Point_<int>& offset)
{
    const auto lies_above = [](const cv::Point_<int>& pixel) { return pixel.y < uppermost_row; };
    if (std::any_of(polygon.begin(), polygon.end(), lies_above)) {
        polygon = cut_above_uppermost_row(polygon);
    }
    if (!polygon.empty()) {
        std::vector<Polygon> polygons(1);
        polygons.front().swap(polygon);
        cv::drawContours(mask, polygons, all_contours, cv::Scalar(value, 0, 0, 0), cv::FILLED, cv::LINE_8,
                         cv::noArray(), INT_MAX, offset);
    }
}

int check_filling(KivContourArray& contours, Frame frame)
{
    if (contours.Length() < 1) {
        return KIVMV::KIVMV_ERR_PARAM_1;
    }
    if (frame.width < 2) {
        return KIVMV::KIVMV_ERR_PARAM_2;
    }
    if (frame.height < 2) {
        return KIVMV::KIVMV_ERR_PARAM_3;
    }
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
