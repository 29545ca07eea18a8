// SPDX-License-Identifier: MIT
// Convex sets of points as what half planes and ellipses have in common.
#pragma once

#include "columns.h"

#include <vector>

namespace kivdata
{

/// Whether the border of a set belongs to it.
enum class Border { closed, open };

/// A vector of length 1.
struct Direction {
    double x;
    double y;
};

/// The direction at an angle in degrees, from the x axis toward the y axis; exact at multiples of 90.
Direction direction_of(double degrees);

/// The points (x, y) with normal_x * (x - px) + normal_y * (y - py) <= limit (less, when open).
struct HalfPlane {
    double px;
    double py;
    double normal_x;
    double normal_y;
    double limit = 0.0;
    Border border = Border::closed;

    bool holds(double x, double y) const;
    bool begun(double x, double y) const { return normal_x >= 0.0 || holds(x, y); }
    bool ended(double x, double y) const { return normal_x >= 0.0 && !holds(x, y); }
};

/// An ellipse as an upright one whose rows are shifted: with t = (x - cx) - shift * (y - cy), the points with
/// |t| <= half_width and |y - cy| <= half_height and
/// (t_factor * t)^2 + (y_factor * (y - cy))^2 <= limit^2 (less, when open).
///
/// The factors and the limit carry powers of two that keep the squares of any finite lengths from overflowing; such
/// scaling is exact.
struct SlantedEllipse {
    double cx;
    double cy;
    double shift;
    double half_width;
    double half_height;
    double t_factor;
    double y_factor;
    double limit;
    Border border;

    static SlantedEllipse circle(double cx, double cy, double radius, Border border);
    static SlantedEllipse turned(double cx, double cy, double radius1, double radius2, double degrees);

    double offset(double x, double y) const { return (x - cx) - shift * (y - cy); }
    bool holds(double x, double y) const;
    bool begun(double x, double y) const { return offset(x, y) >= 0.0 || holds(x, y); }
    bool ended(double x, double y) const { return offset(x, y) >= 0.0 && !holds(x, y); }
};

/// The points that lie in all of the parts.
struct ConvexSet {
    std::vector<HalfPlane> half_planes;
    std::vector<SlantedEllipse> ellipses;

    bool contains(double x, double y) const;

    /// Those of the columns that the set covers in row y.
    Columns columns(double y, Columns among) const;
};

/// The power of two that brings a length near 1. Lengths near the ends of the range of double, and 0, are brought as
/// near as one normal factor can.
double unit_scale(double length);

} // namespace kivdata
