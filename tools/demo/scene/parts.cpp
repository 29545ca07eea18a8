// SPDX-License-Identifier: MIT
#include "demo/scene/parts.h"

#include <algorithm>
#include <cmath>

namespace demo::scene
{
namespace
{

cv::Point2d polar(double radius, double angle)
{
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

std::vector<cv::Point2d> rectangle(double left, double top, double right, double bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

std::vector<cv::Point2d> hexagon(double radius)
{
    std::vector<cv::Point2d> corners;
    for (int corner = 0; corner < 6; ++corner) {
        corners.push_back(polar(radius, corner * CV_PI / 3.0));
    }
    return corners;
}

std::vector<cv::Point2d> toothed_rim(double root, double tip, int teeth)
{
    // Per tooth: up the left flank, along the tip, down the right flank, along the root; in parts of a pitch.
    const double flank[] = {0.16, 0.34, 0.66, 0.84};
    std::vector<cv::Point2d> rim;
    for (int tooth = 0; tooth < teeth; ++tooth) {
        for (int i = 0; i < 4; ++i) {
            const bool at_tip = i == 1 || i == 2;
            rim.push_back(polar(at_tip ? tip : root, (tooth + flank[i]) * 2.0 * CV_PI / teeth));
        }
    }
    return rim;
}

void drill_circle(OutlinePen& pen, int count, double pitch_radius, double hole_radius)
{
    for (int i = 0; i < count; ++i) {
        pen.hole(polar(pitch_radius, (i + 0.5) * 2.0 * CV_PI / count), hole_radius);
    }
}

/// A round shaft along the x axis with a thread from `thread_begin` on, and a hexagonal head left of 0, of which three
/// faces are seen.
double bolt_height(cv::Point2d point, double radius, double thread_begin)
{
    const double across = std::abs(point.y);
    if (point.x < 0.0) {
        const double face = 0.95 * radius;
        const double side = std::max(0.0, across - face) * 0.7;
        const double chamfer = std::max(0.0, -point.x - 1.15 * radius) * 0.8;
        return 1.6 * radius - side - chamfer;
    }
    const double shaft = std::sqrt(std::max(0.0, radius * radius - across * across));
    if (point.x < thread_begin) {
        return 0.6 * shaft;
    }
    const double pitch = 7.0;
    const double phase = point.x / pitch + point.y / (7.0 * radius);
    return 0.6 * shaft + 2.2 * std::abs(2.0 * (phase - std::floor(phase)) - 1.0);
}

} // namespace

Part washer(const Placement& placement, double outer_radius, double inner_radius)
{
    return OutlinePen(placement, outer_radius)
        .disc({}, outer_radius)
        .hole({}, inner_radius)
        .bevelled(Finish::turned, 0.55, 3.0);
}

Part flange(const Placement& placement, double radius, int bolt_holes)
{
    OutlinePen pen(placement, radius);
    pen.disc({}, radius).hole({}, 0.44 * radius);
    drill_circle(pen, bolt_holes, 0.76 * radius, 0.095 * radius);
    Part part = pen.bevelled(Finish::turned, 0.5, 3.5);
    part.thickness = 14.0;
    // A raised collar around the bore.
    for (int row = 0; row < part.relief.rows; ++row) {
        for (int column = 0; column < part.relief.cols; ++column) {
            const double out = cv::norm(to_local(part, column, row)) - 0.59 * radius;
            part.relief(row, column) += static_cast<float>(5.0 * std::clamp(0.5 - out / 5.0, 0.0, 1.0));
        }
    }
    return part;
}

Part gear(const Placement& placement, double radius, int teeth)
{
    OutlinePen pen(placement, radius);
    pen.polygon(toothed_rim(0.87 * radius, 0.99 * radius, teeth)).hole({}, 0.2 * radius);
    drill_circle(pen, 6, 0.53 * radius, 0.15 * radius);
    Part part = pen.bevelled(Finish::turned, 0.44, 2.0);
    part.thickness = 12.0;
    return part;
}

Part angle_bracket(const Placement& placement)
{
    const std::vector<cv::Point2d> l_shape = {{-145, -95}, {145, -95}, {145, -25}, {-65, -25}, {-65, 125}, {-145, 125}};
    return OutlinePen(placement, 215)
        .polygon(l_shape, 10)
        .hole({-105, -60}, 21)
        .hole({-105, 95}, 14)
        .hole({120, -60}, 14)
        .slot({5, -60}, {60, -60}, 11)
        .slot({-105, 5}, {-105, 45}, 9)
        .bevelled(Finish::brushed, 0.52, 2.5);
}

Part slotted_bar(const Placement& placement, double length, double width)
{
    const double end = length / 2.0 - 14.0;
    const double side = width / 2.0 - 14.0;
    return OutlinePen(placement, length / 2.0 + width / 2.0)
        .polygon(rectangle(-end, -side, end, side), 14)
        .slot({-0.22 * length, 0}, {0.22 * length, 0}, 0.15 * width)
        .hole({-0.4 * length, 0}, 0.17 * width)
        .hole({0.4 * length, 0}, 0.17 * width)
        .bevelled(Finish::brushed, 0.6, 2.5);
}

Part hex_nut(const Placement& placement, double radius)
{
    const double bore = 0.47 * radius;
    OutlinePen pen(placement, radius);
    pen.polygon(hexagon(0.98 * radius)).hole({}, bore);
    Part part = pen.modelled(Finish::turned, 0.5, [&](cv::Point2d point) {
        const double distance = cv::norm(point);
        const double chamfer = std::max(0.0, distance - 0.84 * radius) * 0.6;
        const double countersink = std::max(0.0, bore + 0.09 * radius - distance) * 1.0;
        return 10.0 - chamfer - countersink;
    });
    part.thickness = 20.0;
    return part;
}

Part hex_bolt(const Placement& placement, double length, double radius)
{
    const double head = 1.35 * radius;
    OutlinePen pen(placement, length + head);
    pen.polygon(rectangle(-head, -1.8 * radius, 0.0, 1.8 * radius), 2);
    pen.polygon(rectangle(0.0, -radius, length - 4.0, radius));
    pen.polygon({{length - 4.5, -radius}, {length, -0.75 * radius}, {length, 0.75 * radius}, {length - 4.5, radius}});
    Part part =
        pen.modelled(Finish::rolled, 0.6, [&](cv::Point2d point) { return bolt_height(point, radius, 0.42 * length); });
    part.thickness = 16.0;
    return part;
}

} // namespace demo::scene
