// SPDX-License-Identifier: MIT
/// @file
/// What can be asked of one contour, and other contours made of it: length, area, box, centroid, orientation, what lies
/// inside, the nearest point; simplified, hull, resampled.
///
/// A contour is the closed line through its points, the last one joined to the first. Coordinates are pixel
/// coordinates, y downwards. All is computed in double from the coordinates as they are. Every function throws
/// std::invalid_argument if a coordinate is NaN or infinite; unless said otherwise it takes any number of points and
/// costs one or two passes over them.
#pragma once

#include <KivData/KivContour.h>
#include <KivData/KivDataExport.h>

#include <opencv2/core.hpp>

namespace KivContours
{

/// The length of the closed line, in pixels: 0 for fewer than two points, twice the distance for two.
KIVDATA_API double Length(const KivContour& contour);

/// The enclosed area in square pixels, by the shoelace formula: positive where the points run clockwise as seen on the
/// screen, which is where KivContour::IsHole() says so, otherwise negative or 0. Parts that the line runs round in
/// opposite directions cancel out.
KIVDATA_API double SignedArea(const KivContour& contour);

/// The smallest upright rectangle around the points; all bounds are reached.
struct Bounds {
    double left;   ///< smallest x
    double top;    ///< smallest y
    double right;  ///< largest x
    double bottom; ///< largest y

    /// Equal when all members are.
    friend constexpr bool operator==(const Bounds& a, const Bounds& b) noexcept
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    friend constexpr bool operator!=(const Bounds& a, const Bounds& b) noexcept { return !(a == b); } ///< Not ==.
};

/// The bounds of the points.
///
/// @throws std::invalid_argument if there are no points.
KIVDATA_API Bounds BoundsOf(const KivContour& contour);

/// The centre of mass of the enclosed area; of the line, if its area is 0; the point, if all points are equal.
///
/// @throws std::invalid_argument if there are no points.
KIVDATA_API cv::Point_<double> Centroid(const KivContour& contour);

/// The direction in which the enclosed area extends most, from its second central moments; of the line, if its area is
/// 0. In radians from the x axis towards growing y, above -pi/2 and at most pi/2; 0 if it extends equally everywhere.
///
/// @throws std::invalid_argument if there are no points.
KIVDATA_API double Orientation(const KivContour& contour);

/// Whether a point lies inside by the even-odd rule, or on the line.
KIVDATA_API bool Contains(const KivContour& contour, const cv::Point_<double>& point);

/// A point of a contour's line.
struct LinePoint {
    cv::Point_<double> point; ///< in pixels
    double distance;          ///< from the point that was asked about, in pixels
    int edge;                 ///< it lies on the edge from the point of this index to the next one
};

/// The point of the line that is nearest to a point; of several, that on the first edge.
///
/// @throws std::invalid_argument if there are no points.
KIVDATA_API LinePoint Nearest(const KivContour& contour, const cv::Point_<double>& point);

/// The contour with some of its points left out (Douglas and Peucker 1973), so that both lines stay within `tolerance`
/// pixels of each other: every point of either has one of the other no further away. The first point stays, and so does
/// the one furthest from it. Takes up to the square of the number of points, n log n as a rule.
///
/// @throws std::invalid_argument if the tolerance is negative or NaN.
KIVDATA_API KivContour Simplified(const KivContour& contour, double tolerance);

/// The corners of the convex hull of the points, counterclockwise as seen on the screen, as outer borders run, from the
/// leftmost point of the uppermost ones. Points on its sides are left out. Costs n log n.
KIVDATA_API KivContour Hull(const KivContour& contour);

/// `count` points at equal steps along the line, from the first point on.
///
/// @throws std::invalid_argument if there are no points or the count is less than 1.
KIVDATA_API KivContour Resampled(const KivContour& contour, int count);

} // namespace KivContours
