// SPDX-License-Identifier: MIT
#include "solid.h"

#include "rows.h"

#include <algorithm>
#include <cmath>

namespace
{

using kivdata::Border;
using kivdata::Columns;
using kivdata::ConvexSet;
using kivdata::Direction;
using kivdata::HalfPlane;
using kivdata::Rows;
using kivdata::SlantedEllipse;
using kivdata::Solid;

/// The rows between the solid's top and bottom, and those that rounding of large coordinates could add to them.
Rows rows_of(const Solid& solid, int height)
{
    const double slack = 1.0 + 1e-15 * std::abs(solid.top) + 1e-15 * std::abs(solid.bottom);
    return kivdata::rows_between(solid.top - slack, solid.bottom + slack, height);
}

/// The columns of each hole in a row of the body, from left to right.
std::vector<Columns> columns_of_holes(const std::vector<ConvexSet>& holes, int row, Columns body)
{
    std::vector<Columns> found;
    for (const ConvexSet& hole : holes) {
        const Columns columns = hole.columns(row, body);
        if (!columns.empty()) {
            found.push_back(columns);
        }
    }
    std::sort(found.begin(), found.end(), [](const Columns& a, const Columns& b) { return a.begin < b.begin; });
    return found;
}

void append_run(int row, int begin, int stop, std::vector<Run>& runs)
{
    if (begin < stop) {
        runs.push_back({row, begin, stop - 1});
    }
}

Solid solid_of_ellipse(const SlantedEllipse& ellipse)
{
    return {ellipse.cy - ellipse.half_height, ellipse.cy + ellipse.half_height, {{}, {ellipse}}, {}};
}

/// The half plane of the points seen from the centre clockwise of a direction, by half a turn at most.
HalfPlane clockwise_of(const KivShape::RingSector& sector, Direction direction, Border border)
{
    return {sector.cx, sector.cy, direction.y, -direction.x, 0.0, border};
}

HalfPlane counterclockwise_of(const KivShape::RingSector& sector, Direction direction, Border border)
{
    return {sector.cx, sector.cy, -direction.y, direction.x, 0.0, border};
}

HalfPlane ahead_of(const KivShape::RingSector& sector, Direction direction)
{
    return {sector.cx, sector.cy, -direction.x, -direction.y, 0.0, Border::closed};
}

} // namespace

bool kivdata::Solid::contains(double x, double y) const
{
    return body.contains(x, y) &&
           std::none_of(holes.begin(), holes.end(), [x, y](const ConvexSet& hole) { return hole.contains(x, y); });
}

std::vector<Run> kivdata::Solid::runs(int width, int height) const
{
    std::vector<Run> runs;
    const Rows rows = rows_of(*this, height);
    for (int row = rows.begin; row < rows.stop; ++row) {
        const Columns covered = body.columns(row, {0, width});
        int begin = covered.begin;
        for (const Columns& hole : columns_of_holes(holes, row, covered)) {
            append_run(row, begin, hole.begin, runs);
            begin = std::max(begin, hole.stop);
        }
        append_run(row, begin, covered.stop, runs);
    }
    return runs;
}

kivdata::Solid kivdata::solid_of(const KivShape::Rectangle& rectangle)
{
    const auto& [left, top, right, bottom] = rectangle;
    return {
        top,
        bottom,
        {{{left, top, -1.0, 0.0}, {left, top, 0.0, -1.0}, {right, bottom, 1.0, 0.0}, {right, bottom, 0.0, 1.0}}, {}},
        {}};
}

kivdata::Solid kivdata::solid_of(const KivShape::RotatedRectangle& rectangle)
{
    const auto& [cx, cy, length, breadth, angle] = rectangle;
    const Direction along = direction_of(angle);
    const double half_height = std::abs(along.y) * (length / 2.0) + std::abs(along.x) * (breadth / 2.0);
    return {cy - half_height,
            cy + half_height,
            {{{cx, cy, along.x, along.y, length / 2.0},
              {cx, cy, -along.x, -along.y, length / 2.0},
              {cx, cy, -along.y, along.x, breadth / 2.0},
              {cx, cy, along.y, -along.x, breadth / 2.0}},
             {}},
            {}};
}

kivdata::Solid kivdata::solid_of(const KivShape::Circle& circle)
{
    return solid_of_ellipse(SlantedEllipse::circle(circle.cx, circle.cy, circle.radius, Border::closed));
}

kivdata::Solid kivdata::solid_of(const KivShape::Ellipse& ellipse)
{
    return solid_of_ellipse(
        SlantedEllipse::turned(ellipse.cx, ellipse.cy, ellipse.radius1, ellipse.radius2, ellipse.angle));
}

kivdata::Solid kivdata::solid_of(const KivShape::Ring& ring)
{
    Solid solid = solid_of_ellipse(SlantedEllipse::circle(ring.cx, ring.cy, ring.outer, Border::closed));
    solid.holes.push_back({{}, {SlantedEllipse::circle(ring.cx, ring.cy, ring.inner, Border::open)}});
    return solid;
}

kivdata::Solid kivdata::solid_of(const KivShape::RingSector& sector)
{
    Solid solid = solid_of(KivShape::Ring{sector.cx, sector.cy, sector.inner, sector.outer});
    const double start = std::remainder(sector.start, 360.0);
    const Direction first = direction_of(start);
    const Direction last = direction_of(start + sector.sweep);
    if (sector.sweep <= 180.0) {
        // Without the third one, a sector of sweep 0 would reach to both sides of the centre.
        solid.body.half_planes = {clockwise_of(sector, first, Border::closed),
                                  counterclockwise_of(sector, last, Border::closed),
                                  ahead_of(sector, direction_of(start + sector.sweep / 2.0))};
    } else if (sector.sweep < 360.0) {
        solid.holes.push_back(
            {{counterclockwise_of(sector, first, Border::open), clockwise_of(sector, last, Border::open)}, {}});
    }
    return solid;
}
