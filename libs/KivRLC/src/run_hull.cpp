// SPDX-License-Identifier: MIT
// The convex hull of pixel squares, and calipers around it.
//
// Of a row only the outer corners of its first and last pixel can be on the hull. From the uppermost line between rows
// to the lowermost one they make a left and a right chain, each of which is made convex by dropping the corners that
// the next one makes superfluous (Andrew 1979). Corners are whole numbers here: pixel (x, y) covers x to x + 1 and y to
// y + 1.
#include "run_checks.h"
#include "run_sums.h"

#include <KivRLC/KivRunMeasures.h>

#include <cmath>

namespace
{

using kivrlc::Wide;

struct Corner {
    std::int64_t x;
    std::int64_t y;
};
using Corners = std::vector<Corner>;

/// Twice the area of the triangle from a to b to c; positive if it turns clockwise on the screen.
Wide turn(const Corner& a, const Corner& b, const Corner& c)
{
    return Wide{b.x - a.x} * (c.y - a.y) - Wide{b.y - a.y} * (c.x - a.x);
}

double distance(const Corner& a, const Corner& b)
{
    return std::hypot(static_cast<double>(b.x - a.x), static_cast<double>(b.y - a.y));
}

/// One side of a hull. `Side` is 1 for the right one, -1 for the left one.
template <int Side>
class Chain
{
public:
    /// Adds a corner of the next line, or a second one of the last line. The inner one of two turns the chain inward
    /// and goes, if it is the second one when the corner of the next line comes.
    void add(const Corner& corner)
    {
        while (corners.size() > 1 && turn(corners[corners.size() - 2], corners.back(), corner) * Side <= 0) {
            corners.pop_back();
        }
        corners.push_back(corner);
    }

    Corners corners;
};

/// The corners of the hull, clockwise on the screen.
Corners hull_of(KivRunView runs)
{
    Chain<1> right;
    Chain<-1> left;
    for (const Run* row = runs.begin(); row != runs.end();) {
        const Run* const row_end = kivrlc::end_of_row(row, runs.end());
        for (const std::int64_t y : {std::int64_t{row->row}, std::int64_t{row->row} + 1}) {
            left.add({row->colBegin, y});
            right.add({std::int64_t{(row_end - 1)->colEnd} + 1, y});
        }
        row = row_end;
    }
    Corners hull{left.corners.begin(), left.corners.begin() + (left.corners.empty() ? 0 : 1)};
    hull.insert(hull.end(), right.corners.begin(), right.corners.end());
    hull.insert(hull.end(), left.corners.rbegin(), left.corners.rend());
    if (!hull.empty()) {
        hull.pop_back(); // the first corner, which the left chain gave a second time
    }
    return hull;
}

} // namespace

std::vector<KivRuns::Place> KivRuns::ConvexHull(const KivRunSet& set)
{
    std::vector<Place> places;
    for (const Corner& corner : hull_of(set.Runs())) {
        places.push_back({static_cast<double>(corner.x) - 0.5, static_cast<double>(corner.y) - 0.5});
    }
    return places;
}

KivRuns::FeretDiameters KivRuns::FeretDiametersOf(const KivRunSet& set)
{
    kivrlc::require<std::invalid_argument>(!set.Empty(), "KivRuns::FeretDiametersOf: an empty set has no diameters");
    const Corners hull = hull_of(set.Runs());
    const auto next = [&hull](std::size_t i) { return i + 1 == hull.size() ? 0 : i + 1; };
    FeretDiameters diameters{0.0, std::numeric_limits<double>::infinity()};
    for (std::size_t i = 0, opposite = 1; i < hull.size(); ++i) {
        const Corner& from = hull[i];
        const Corner& to = hull[next(i)];
        const auto measure = [&](const Corner& corner) {
            diameters.largest = std::max({diameters.largest, distance(from, corner), distance(to, corner)});
        };
        while (turn(from, to, hull[next(opposite)]) > turn(from, to, hull[opposite])) {
            opposite = next(opposite);
            measure(hull[opposite]);
        }
        measure(hull[opposite]);
        measure(hull[next(opposite)]); // which is as far away if the sides are parallel
        diameters.smallest =
            std::min(diameters.smallest, static_cast<double>(turn(from, to, hull[opposite])) / distance(from, to));
    }
    return diameters;
}
