// SPDX-License-Identifier: MIT
/// @file
/// Measures of a set of pixels: size, place, moments, perimeters, Euler number, hull, diameters. This header needs no
/// OpenCV.
///
/// Coordinates are those of the runs: x counts columns, y rows downwards, and the centre of pixel (x, y) is the point
/// (x, y). Where pixels are points, that is their centre; where they are squares, pixel (x, y) covers x - 0.5 to x +
/// 0.5 and y - 0.5 to y + 0.5. All sums are exact integers for sets of less than 2^31 runs, wherever they lie, and are
/// rounded once, to a double, at the end.
///
/// Unless said otherwise, a function throws nothing and costs one pass over the runs.
#pragma once

#include <KivRLC/KivRLCExport.h>
#include <KivRLC/KivRunBox.h>
#include <KivRLC/KivRunSet.h>

#include <cstdint>
#include <vector>

namespace KivRuns
{

/// Which pixels are neighbours.
enum class Connectivity {
    Four = 4, ///< those with a common edge
    Eight = 8 ///< those with a common edge or corner
};

/// The connectivity of the background of a set that has the given one: the other one, as only then borders separate
/// (Rosenfeld 1970).
constexpr Connectivity BackgroundOf(Connectivity connectivity) noexcept
{
    return connectivity == Connectivity::Four ? Connectivity::Eight : Connectivity::Four;
}

/// A place in the plane.
struct Place {
    double x; ///< in columns
    double y; ///< in rows, downwards

    /// Equal when both members are.
    friend constexpr bool operator==(const Place& a, const Place& b) noexcept { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator!=(const Place& a, const Place& b) noexcept { return !(a == b); } ///< Not ==.
};

/// The smallest box that has all pixels of the set.
///
/// @throws std::invalid_argument if the set is empty.
KIVRLC_API KivRunBox BoundingBox(const KivRunSet& set);

/// The centroid: the mean of the pixels' centres.
///
/// @throws std::invalid_argument if the set is empty.
KIVRLC_API Place Centroid(const KivRunSet& set);

/// The moments of pixels as points of mass 1, up to the second order: those of cv::moments of a mask.
struct Moments {
    std::int64_t area; ///< pixels, the moment of order 0
    Place centroid;    ///< mean place of the pixels, the moments of order 1
    double xx;         ///< sum of (x - centroid.x)^2, called mu20
    double xy;         ///< sum of (x - centroid.x) (y - centroid.y), called mu11
    double yy;         ///< sum of (y - centroid.y)^2, called mu02
};

/// The central moments: sums over the pixels, in closed form for each run.
///
/// @throws std::invalid_argument if the set is empty.
KIVRLC_API Moments MomentsOf(const KivRunSet& set);

/// The ellipse that has the same second moments, divided by the area, as a shape (Hu 1962; the axis lengths of
/// scikit-image's regionprops).
struct Ellipse {
    double majorAxis; ///< length of the longer axis, from end to end, in pixels
    double minorAxis; ///< length of the shorter one; 0 for pixels in a line, which are points here
    double angle;     ///< of the longer axis, in radians from the x axis towards growing y; above -pi/2, at most pi/2;
                      ///< 0 if both axes have the same length
};

/// The ellipse of the same moments: lengths 4 sqrt(e) for the eigenvalues e of the covariance matrix.
///
/// Pixels are points. For pixels as squares, add area / 12 to moments.xx and moments.yy first.
KIVRLC_API Ellipse EllipseOf(const Moments& moments) noexcept;

/// The perimeter along pixel edges: the number of pairs of a pixel of the set and a pixel outside that share an edge.
KIVRLC_API std::int64_t EdgePerimeter(const KivRunSet& set) noexcept;

/// Crofton's estimate of the perimeter, from how often lines in four directions enter the set.
///
/// Each horizontal and vertical line through pixel centres counts 1, and each diagonal one, of which there are more by
/// sqrt(2), counts 1 / sqrt(2); the estimate is pi / 4 times the sum of all entries (Legland, Kieu, Devaux 2007; the
/// weights of scikit-image's perimeter_crofton with four directions). It comes nearer than the perimeter along edges to
/// that of a smooth shape, and does not depend on how the shape is turned.
KIVRLC_API double CroftonPerimeter(const KivRunSet& set) noexcept;

/// The Euler number: components of the set minus holes, both by the given connectivity (for holes, that is the one of
/// the components around them).
///
/// It is the number of runs minus the pairs of runs in neighbouring rows that touch (Bishnu et al. 2005).
///
/// Cost: linear. No memory is asked for, but 24 KB of the stack are needed.
KIVRLC_API std::int64_t EulerNumber(const KivRunSet& set, Connectivity connectivity) noexcept;

/// The number of holes: components of the background, by the other connectivity, that are finite.
///
/// Cost: that of NumberComponents().
///
/// @throws std::bad_alloc if memory runs out.
KIVRLC_API std::int64_t HoleCount(const KivRunSet& set, Connectivity connectivity);

/// The convex hull of the pixels' squares: the corners of the smallest convex polygon that covers them.
///
/// The corners come in the order right, down, left, up on the screen, from the leftmost one of the upper edge, none of
/// them on the line between its neighbours; their coordinates are whole numbers and a half. An empty set has none.
///
/// Cost: one pass over the runs, and one over the first and last pixels of the rows.
///
/// @throws std::bad_alloc if memory runs out.
KIVRLC_API std::vector<Place> ConvexHull(const KivRunSet& set);

/// Distances of parallel lines that touch the pixels' squares from both sides (caliper diameters).
struct FeretDiameters {
    double largest;  ///< over all directions; the largest distance of two points of the squares
    double smallest; ///< over all directions; the width of the narrowest slot that the shape fits through
};

/// The largest and the smallest Feret diameter, by rotating calipers around the convex hull (Shamos 1978).
///
/// Cost: that of ConvexHull().
///
/// @throws std::invalid_argument if the set is empty.
/// @throws std::bad_alloc if memory runs out.
KIVRLC_API FeretDiameters FeretDiametersOf(const KivRunSet& set);

/// All measures that a single pass over the runs gives, of a set that is not empty.
struct Measures {
    KivRunBox box;              ///< BoundingBox()
    Moments moments;            ///< MomentsOf()
    std::int64_t edgePerimeter; ///< EdgePerimeter()
    double croftonPerimeter;    ///< CroftonPerimeter()
    std::int64_t eulerNumber;   ///< EulerNumber(); 1 minus the holes of a single component
};

/// All measures at once.
///
/// @throws std::invalid_argument if the set is empty.
KIVRLC_API Measures Measure(const KivRunSet& set, Connectivity connectivity);

} // namespace KivRuns
