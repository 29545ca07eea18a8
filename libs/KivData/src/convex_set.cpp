// SPDX-License-Identifier: MIT
#include "convex_set.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double radians_per_degree = 3.14159265358979323846 / 180.0;

bool within(double value, double limit, kivdata::Border border)
{
    return border == kivdata::Border::closed ? value <= limit : value < limit;
}

double square(double value)
{
    return value * value;
}

} // namespace

kivdata::Direction kivdata::direction_of(double degrees)
{
    const double turn = std::remainder(degrees, 360.0);
    const double quarters = std::nearbyint(turn / 90.0);
    const double rest = (turn - quarters * 90.0) * radians_per_degree;
    const double cosine = std::cos(rest);
    const double sine = std::sin(rest);
    switch (static_cast<int>(quarters)) {
    case 0:
        return {cosine, sine};
    case 1:
        return {-sine, cosine};
    case -1:
        return {sine, -cosine};
    default:
        return {-cosine, -sine};
    }
}

double kivdata::unit_scale(double length)
{
    return std::ldexp(1.0, -std::clamp(std::ilogb(length), -1000, 1000));
}

bool kivdata::HalfPlane::holds(double x, double y) const
{
    return within(normal_x * (x - px) + normal_y * (y - py), limit, border);
}

kivdata::SlantedEllipse kivdata::SlantedEllipse::circle(double cx, double cy, double radius, Border border)
{
    const double scale = unit_scale(radius);
    return {cx, cy, 0.0, radius, radius, scale, scale, scale * radius, border};
}

kivdata::SlantedEllipse kivdata::SlantedEllipse::turned(double cx, double cy, double radius1, double radius2,
                                                        double degrees)
{
    const auto [smaller, larger] = std::minmax(radius1, radius2);
    const Direction along = direction_of(degrees);
    const double half_height = std::clamp(std::hypot(radius1 * along.y, radius2 * along.x), smaller, larger);
    double half_width = larger;
    double shift = 0.0;
    if (half_height == larger) {
        half_width = smaller; // which the quotient may fall short of
    } else if (half_height > 0.0) {
        half_width = larger * (smaller / half_height);
    }
    if (half_height > 0.0 && along.x != 0.0 && along.y != 0.0) {
        shift = (radius1 / half_height * along.x) * (radius1 / half_height * along.y) -
                (radius2 / half_height * along.x) * (radius2 / half_height * along.y);
    }
    const double width_scale = unit_scale(half_width);
    const double height_scale = unit_scale(half_height);
    const double unit_width = half_width * width_scale;
    const double unit_height = half_height * height_scale;
    return {cx,
            cy,
            shift,
            half_width,
            half_height,
            unit_height * width_scale,
            unit_width * height_scale,
            unit_width * unit_height,
            Border::closed};
}

bool kivdata::SlantedEllipse::holds(double x, double y) const
{
    const double t = offset(x, y);
    const double dy = y - cy;
    return std::abs(t) <= half_width && std::abs(dy) <= half_height &&
           within(square(t_factor * t) + square(y_factor * dy), square(limit), border);
}

bool kivdata::ConvexSet::contains(double x, double y) const
{
    const auto covers = [x, y](const auto& part) { return part_contains(part, x, y); };
    return std::all_of(half_planes.begin(), half_planes.end(), covers) &&
           std::all_of(ellipses.begin(), ellipses.end(), covers);
}

kivdata::Columns kivdata::ConvexSet::columns(double y, Columns among) const
{
    for (const HalfPlane& half_plane : half_planes) {
        among = columns_of_part(half_plane, y, among);
    }
    for (const SlantedEllipse& ellipse : ellipses) {
        among = columns_of_part(ellipse, y, among);
    }
    return among;
}
