// SPDX-License-Identifier: MIT
#include "demo/scene/part.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace demo::scene
{
namespace
{

constexpr int shift = 4; // fractional bits of coordinates that are drawn

cv::Point2d turned_by(cv::Point2d point, double degrees)
{
    const double angle = degrees * CV_PI / 180.0;
    return {point.x * std::cos(angle) - point.y * std::sin(angle),
            point.x * std::sin(angle) + point.y * std::cos(angle)};
}

} // namespace

cv::Point2d to_local(const Part& part, int column, int row)
{
    const cv::Point2d in_picture(static_cast<double>(part.box.x + column) / oversampling,
                                 static_cast<double>(part.box.y + row) / oversampling);
    return turned_by(in_picture - part.placement.centre, -part.placement.degrees);
}

OutlinePen::OutlinePen(const Placement& placement, double reach)
{
    part_.placement = placement;
    const int half = static_cast<int>(std::ceil(reach + 2.0)) * oversampling;
    part_.box = {cvRound(placement.centre.x * oversampling) - half, cvRound(placement.centre.y * oversampling) - half,
                 2 * half, 2 * half};
    part_.outline = cv::Mat1b::zeros(part_.box.size());
}

OutlinePen& OutlinePen::polygon(const std::vector<cv::Point2d>& corners, double corner_radius)
{
    std::vector<cv::Point> points;
    std::transform(corners.begin(), corners.end(), std::back_inserter(points),
                   [this](cv::Point2d corner) { return to_box(corner); });
    cv::fillPoly(part_.outline, std::vector<std::vector<cv::Point>>{points}, cv::Scalar(255), cv::LINE_8, shift);
    if (corner_radius > 0.0) {
        const int thickness = std::max(1, cvRound(2.0 * corner_radius * oversampling));
        cv::polylines(part_.outline, std::vector<std::vector<cv::Point>>{points}, true, cv::Scalar(255), thickness,
                      cv::LINE_8, shift);
    }
    return *this;
}

OutlinePen& OutlinePen::slot(cv::Point2d from, cv::Point2d to, double radius)
{
    cv::line(part_.outline, to_box(from), to_box(to), cv::Scalar(0), cvRound(2.0 * radius * oversampling), cv::LINE_8,
             shift);
    return *this;
}

Part OutlinePen::bevelled(Finish finish, double reflectance, double bevel) const
{
    Part part = part_;
    part.finish = finish;
    part.reflectance = reflectance;
    cv::Mat distance;
    cv::distanceTransform(part.outline, distance, cv::DIST_L2, 5);
    cv::Mat clipped = cv::min(distance, bevel * oversampling);
    clipped.convertTo(part.relief, CV_32F, 1.0 / oversampling);
    return part;
}

Part OutlinePen::modelled(Finish finish, double reflectance, const std::function<double(cv::Point2d)>& height) const
{
    Part part = part_;
    part.finish = finish;
    part.reflectance = reflectance;
    part.relief.create(part.box.size());
    for (int row = 0; row < part.relief.rows; ++row) {
        for (int column = 0; column < part.relief.cols; ++column) {
            part.relief(row, column) = static_cast<float>(height(to_local(part, column, row)));
        }
    }
    return part;
}

OutlinePen& OutlinePen::fill_disc(cv::Point2d centre, double radius, int value)
{
    cv::circle(part_.outline, to_box(centre), fixed(radius), cv::Scalar(value), cv::FILLED, cv::LINE_8, shift);
    return *this;
}

cv::Point OutlinePen::to_box(cv::Point2d local) const
{
    const cv::Point2d in_picture = turned_by(local, part_.placement.degrees) + part_.placement.centre;
    const cv::Point2d corner(part_.box.x, part_.box.y);
    const cv::Point2d in_box = in_picture * oversampling - corner;
    return {cvRound(in_box.x * (1 << shift)), cvRound(in_box.y * (1 << shift))};
}

int OutlinePen::fixed(double length) const
{
    return cvRound(length * oversampling * (1 << shift));
}

} // namespace demo::scene
