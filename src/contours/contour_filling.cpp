// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"

#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <climits>
#include <cstdint>

namespace kiv
{
namespace
{

constexpr int all_contours = -1;
constexpr int filled = -1;
constexpr int eight_connected = 8;

int within_reach(int coordinate, int size)
{
    constexpr std::int64_t reach = 1 << 24;
    return static_cast<int>(std::clamp<std::int64_t>(coordinate, -reach, size + reach));
}

} // namespace

PixelList pixels_of(const KivContour& contour, int (*to_pixel)(double))
{
    PixelList pixels;
    for (const auto& point : points_of(contour)) {
        pixels.emplace_back(to_pixel(point.x), to_pixel(point.y));
    }
    return pixels;
}

void fill_polygon(cv::Mat& mask, PixelList polygon, int value)
{
    for (auto& corner : polygon) {
        corner.x = within_reach(corner.x, mask.cols);
        corner.y = within_reach(corner.y, mask.rows);
    }
    const std::vector<PixelList> polygons{std::move(polygon)};
    cv::drawContours(mask, polygons, all_contours, cv::Scalar(value, 0, 0, 0), filled, eight_connected, cv::noArray(),
                     INT_MAX, cv::Point(0, 0));
}

int fill_contours(KivContourArray& contours, Frame frame, cv::Mat& mask)
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
    try {
        mask = IKivROIPara::ToMAT(contours, frame.width, frame.height);
    } catch (...) {
        return KIVMV::KIVMV_ERR_EXCEPTION;
    }
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
