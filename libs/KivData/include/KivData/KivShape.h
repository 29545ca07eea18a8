// SPDX-License-Identifier: MIT
/// @file
/// The kinds of shape that a region of interest can have, and their parameters.
#pragma once

#include <KivRLC/KivRLC.h>

#include <opencv2/core.hpp>

#include <variant>
#include <vector>

/// The shapes of regions of interest. `type` is the code that KivROI::ROIType() returns for the shape.
///
/// Coordinates and lengths are in pixels, x to the right and y down; the integer point (x, y) is the centre of the
/// pixel in column x and row y. Angles are in degrees from the x axis toward the y axis, clockwise as seen on the
/// screen, and may be of any size.
///
/// Every shape is closed: its border belongs to it. A pixel belongs to the shape when its centre does, by the formula
/// that stands with the shape, evaluated in double precision without fused operations; there, dx = x - cx and
/// dy = y - cy. So a shape without area has the pixels whose centres lie exactly on it, often none: a circle of radius
/// 0 is one pixel when its centre is an integer point and nothing otherwise.
///
/// All parameters must be finite; radii and lengths must not be negative. However large they are, only the rows of the
/// frame that the shape reaches cost time.
namespace KivShape
{

/// An upright rectangle: left <= x <= right and top <= y <= bottom. Nothing when left > right or top > bottom.
struct Rectangle {
    static constexpr int type = 1; ///< ROI type code

    double left = 0.0;   ///< x of the left side
    double top = 0.0;    ///< y of the upper side
    double right = 0.0;  ///< x of the right side
    double bottom = 0.0; ///< y of the lower side

    /// Equal when all members are.
    friend bool operator==(const Rectangle& a, const Rectangle& b) noexcept
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    friend bool operator!=(const Rectangle& a, const Rectangle& b) noexcept { return !(a == b); }
};

/// A rectangle turned about its centre: |c * dx + s * dy| <= length / 2 and |c * dy - s * dx| <= breadth / 2, where c
/// and s are the cosine and the sine of the angle (exact at multiples of 90 degrees).
struct RotatedRectangle {
    static constexpr int type = 2; ///< ROI type code

    double cx = 0.0;      ///< x of the centre
    double cy = 0.0;      ///< y of the centre
    double length = 0.0;  ///< whole side length in the direction of the angle
    double breadth = 0.0; ///< whole side length across
    double angle = 0.0;   ///< direction of `length`

    /// Equal when all members are.
    friend bool operator==(const RotatedRectangle& a, const RotatedRectangle& b) noexcept
    {
        return a.cx == b.cx && a.cy == b.cy && a.length == b.length && a.breadth == b.breadth && a.angle == b.angle;
    }
    friend bool operator!=(const RotatedRectangle& a, const RotatedRectangle& b) noexcept { return !(a == b); }
};

/// No shape at all.
struct Empty {
    static constexpr int type = 3; ///< ROI type code

    /// Always equal.
    friend bool operator==(const Empty&, const Empty&) noexcept { return true; }
    friend bool operator!=(const Empty&, const Empty&) noexcept { return false; }
};

/// A disc: dx * dx + dy * dy <= radius * radius.
struct Circle {
    static constexpr int type = 4; ///< ROI type code

    double cx = 0.0;     ///< x of the centre
    double cy = 0.0;     ///< y of the centre
    double radius = 0.0; ///< distance of the border from the centre

    /// Equal when all members are.
    friend bool operator==(const Circle& a, const Circle& b) noexcept
    {
        return a.cx == b.cx && a.cy == b.cy && a.radius == b.radius;
    }
    friend bool operator!=(const Circle& a, const Circle& b) noexcept { return !(a == b); }
};

/// An ellipse, turned about its centre.
///
/// Written as an upright ellipse whose rows are shifted: with h the half height of the turned ellipse, w the half
/// length of its row through the centre and k the shift per row, |t| <= w and |dy| <= h and (h * t)^2 + (w * dy)^2 <=
/// (w * h)^2, where t = dx - k * dy. With c and s the cosine and the sine of the angle, h = hypot(radius1 * s, radius2
/// * c), never outside of the two radii. When h is the larger radius, w is the smaller one; otherwise w = larger *
/// (smaller / h). k = (radius1 / h * c) * (radius1 / h * s) - (radius2 / h * c) * (radius2 / h * s), and 0 when c or s
/// is 0. When h is 0, w is the larger radius and k is 0. An ellipse with one radius 0 is a straight line, with two a
/// point.
struct Ellipse {
    static constexpr int type = 5; ///< ROI type code

    double cx = 0.0;      ///< x of the centre
    double cy = 0.0;      ///< y of the centre
    double radius1 = 0.0; ///< half axis in the direction of the angle
    double radius2 = 0.0; ///< half axis across
    double angle = 0.0;   ///< direction of `radius1`

    /// Equal when all members are.
    friend bool operator==(const Ellipse& a, const Ellipse& b) noexcept
    {
        return a.cx == b.cx && a.cy == b.cy && a.radius1 == b.radius1 && a.radius2 == b.radius2 && a.angle == b.angle;
    }
    friend bool operator!=(const Ellipse& a, const Ellipse& b) noexcept { return !(a == b); }
};

/// What lies between two circles about one centre, both circles included:
/// inner * inner <= dx * dx + dy * dy <= outer * outer. Nothing when inner > outer.
struct Ring {
    static constexpr int type = 6; ///< ROI type code

    double cx = 0.0;    ///< x of the centre
    double cy = 0.0;    ///< y of the centre
    double inner = 0.0; ///< radius of the hole; 0 for none
    double outer = 0.0; ///< radius of the outer border

    /// Equal when all members are.
    friend bool operator==(const Ring& a, const Ring& b) noexcept
    {
        return a.cx == b.cx && a.cy == b.cy && a.inner == b.inner && a.outer == b.outer;
    }
    friend bool operator!=(const Ring& a, const Ring& b) noexcept { return !(a == b); }
};

/// The part of a ring that a ray from the centre passes over when it turns from the start angle through the sweep.
///
/// With u, m and v the directions (cosine, sine) of start, start + sweep / 2 and start + sweep, a point of the ring
/// belongs up to a sweep of 180 degrees when u.x * dy - u.y * dx >= 0 and v.y * dx - v.x * dy >= 0 and
/// m.x * dx + m.y * dy >= 0; beyond, when one of the first two holds; at 360 degrees always. So the two ends belong, at
/// a sweep of 0 they are one, and the centre belongs when there is no hole.
struct RingSector {
    static constexpr int type = 7; ///< ROI type code

    double cx = 0.0;    ///< x of the centre
    double cy = 0.0;    ///< y of the centre
    double inner = 0.0; ///< radius of the hole; 0 for none
    double outer = 0.0; ///< radius of the outer border
    double start = 0.0; ///< angle of the first end
    double sweep = 0.0; ///< angle from the first end to the other, 0 to 360

    /// Equal when all members are.
    friend bool operator==(const RingSector& a, const RingSector& b) noexcept
    {
        return a.cx == b.cx && a.cy == b.cy && a.inner == b.inner && a.outer == b.outer && a.start == b.start &&
               a.sweep == b.sweep;
    }
    friend bool operator!=(const RingSector& a, const RingSector& b) noexcept { return !(a == b); }
};

/// Pixels given as runs; kept as they are given, not clipped, sorted or merged.
struct Mask {
    static constexpr int type = 8; ///< ROI type code

    std::vector<Run> runs; ///< the pixels

    /// Equal when of the same runs in the same order.
    friend bool operator==(const Mask& a, const Mask& b) { return a.runs == b.runs; }
    friend bool operator!=(const Mask& a, const Mask& b) { return !(a == b); }
};

/// A polygon, the last point joined to the first.
///
/// A pixel belongs when its centre lies on an edge or is inside by the even-odd rule: where a polygon crosses itself or
/// runs round twice, what lies inside of it twice is outside. Repeated points and points in line change nothing. One
/// point is that point, two are the line between them, none is nothing.
///
/// Side of the edge from p down to q (p.y <= q.y): (q.x - p.x) * (y - p.y) - (q.y - p.y) * (x - p.x). The centre lies
/// on the edge when that is 0 and x and y are between those of p and q; it is inside when it is negative for an odd
/// number of the edges with p.y <= y < q.y.
struct Polygon {
    static constexpr int type = 9; ///< ROI type code

    std::vector<cv::Point_<double>> points; ///< column and row of each corner, in order

    /// Equal when of the same points in the same order.
    friend bool operator==(const Polygon& a, const Polygon& b) { return a.points == b.points; }
    friend bool operator!=(const Polygon& a, const Polygon& b) { return !(a == b); }
};

/// A line through points, not closed: it has no area and so no pixels.
struct OpenCurve {
    static constexpr int type = 10; ///< ROI type code

    std::vector<cv::Point_<double>> points; ///< column and row of each point, in order

    /// Equal when of the same points in the same order.
    friend bool operator==(const OpenCurve& a, const OpenCurve& b) { return a.points == b.points; }
    friend bool operator!=(const OpenCurve& a, const OpenCurve& b) { return !(a == b); }
};

/// Any of the shapes.
using Any =
    std::variant<Empty, Mask, OpenCurve, Rectangle, RotatedRectangle, Circle, Ellipse, Ring, RingSector, Polygon>;

} // namespace KivShape
