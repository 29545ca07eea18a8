// SPDX-License-Identifier: MIT
// Row by row, with a list of the edges that touch the row. What lies inside is found between the columns from which on
// one more edge lies to the left; the edges themselves are added to that as stretches of their own.
#include "polygon_area.h"

#include "convex_set.h"
#include "rows.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

using kivdata::Columns;
using kivdata::PolygonEdge;
using kivdata::Rows;
using KivRuns::FillRule;

double scale_of(const std::vector<cv::Point_<double>>* rings, std::size_t count)
{
    double largest = 1.0;
    for (std::size_t i = 0; i < count; ++i) {
        for (const cv::Point_<double>& point : rings[i]) {
            largest = std::max({largest, std::abs(point.x), std::abs(point.y)});
        }
    }
    return kivdata::unit_scale(largest);
}

/// The edges in ascending order of their upper ends.
std::vector<PolygonEdge> from_top_to_bottom(std::vector<PolygonEdge> edges)
{
    std::sort(edges.begin(), edges.end(), [](const PolygonEdge& a, const PolygonEdge& b) { return a.top() < b.top(); });
    return edges;
}

/// The rows of the frame from the uppermost to the lowermost point.
Rows rows_of(const std::vector<PolygonEdge>& edges, int height)
{
    if (edges.empty()) {
        return {0, 0};
    }
    const auto lowest = std::max_element(
        edges.begin(), edges.end(), [](const PolygonEdge& a, const PolygonEdge& b) { return a.bottom() < b.bottom(); });
    return kivdata::rows_between(edges.front().top(), lowest->bottom(), height);
}

/// From a column on, one more edge lies to the left.
struct Crossing {
    int column;
    int turn;
};

/// Whether so many turns round a point mean that it is inside. An odd number of edges makes an odd number of turns.
bool is_inside(int turns, FillRule rule)
{
    return rule == FillRule::EvenOdd ? turns % 2 != 0 : turns != 0;
}

/// Appends the stretches of a row that lie inside, borders apart.
void append_inside(const std::vector<PolygonEdge>& edges, int row, FillRule rule, Columns frame,
                   std::vector<Columns>& found)
{
    std::vector<Crossing> crossings;
    for (const PolygonEdge& edge : edges) {
        if (edge.crosses(row)) {
            const int column = kivdata::first_column(frame, [&](double x) { return edge.side(x, row) < 0.0; });
            crossings.push_back({column, edge.turn()});
        }
    }
    std::sort(crossings.begin(), crossings.end(),
              [](const Crossing& a, const Crossing& b) { return a.column < b.column; });
    int turns = 0;
    for (std::size_t i = 1; i < crossings.size(); ++i) {
        turns += crossings[i - 1].turn;
        if (is_inside(turns, rule)) {
            found.push_back({crossings[i - 1].column, crossings[i].column});
        }
    }
}

/// Appends the stretches of a row that lie on the edges, some of them empty.
void append_borders(const std::vector<PolygonEdge>& edges, int row, Columns frame, std::vector<Columns>& found)
{
    for (const PolygonEdge& edge : edges) {
        found.push_back(kivdata::columns_of_part(edge, row, frame));
    }
}

/// Appends the stretches as runs, those that touch or overlap as one.
void append_merged(std::vector<Columns> stretches, int row, std::vector<Run>& runs)
{
    std::sort(stretches.begin(), stretches.end(), [](const Columns& a, const Columns& b) { return a.begin < b.begin; });
    const std::size_t first_of_row = runs.size();
    for (const Columns& stretch : stretches) {
        if (stretch.empty()) {
            continue;
        }
        if (runs.size() > first_of_row && stretch.begin <= runs.back().colEnd + 1) {
            runs.back().colEnd = std::max(runs.back().colEnd, stretch.stop - 1);
        } else {
            runs.push_back({row, stretch.begin, stretch.stop - 1});
        }
    }
}

void append_runs(const std::vector<PolygonEdge>& touching, int row, FillRule rule, Columns frame,
                 std::vector<Run>& runs)
{
    std::vector<Columns> stretches;
    append_inside(touching, row, rule, frame, stretches);
    append_borders(touching, row, frame, stretches);
    append_merged(std::move(stretches), row, runs);
}

} // namespace

kivdata::PolygonEdge::PolygonEdge(cv::Point_<double> a, cv::Point_<double> b, double scale)
    : upper_(a.y <= b.y ? a : b),
      lower_(a.y <= b.y ? b : a),
      left_(std::min(a.x, b.x)),
      right_(std::max(a.x, b.x)),
      scale_(scale),
      turn_(a.y <= b.y ? 1 : -1)
{
}

double kivdata::PolygonEdge::side(double x, double y) const
{
    const auto difference = [this](double a, double b) { return a * scale_ - b * scale_; };
    return difference(lower_.x, upper_.x) * difference(y, upper_.y) -
           difference(lower_.y, upper_.y) * difference(x, upper_.x);
}

kivdata::PolygonArea::PolygonArea(const Ring* rings, std::size_t count, KivRuns::FillRule rule) : rule_(rule)
{
    const double scale = scale_of(rings, count);
    for (std::size_t i = 0; i < count; ++i) {
        const Ring& points = rings[i];
        edges_.reserve(edges_.size() + points.size());
        for (std::size_t k = 0; k < points.size(); ++k) {
            edges_.emplace_back(points[k], points[k + 1 < points.size() ? k + 1 : 0], scale);
        }
    }
}

bool kivdata::PolygonArea::contains(double x, double y) const
{
    const auto passed = std::count_if(edges_.begin(), edges_.end(), [x, y](const PolygonEdge& edge) {
        return edge.crosses(y) && edge.side(x, y) < 0.0;
    });
    return passed % 2 == 1 || std::any_of(edges_.begin(), edges_.end(), [x, y](const PolygonEdge& edge) {
               return edge.touches(y) && part_contains(edge, x, y);
           });
}

std::vector<Run> kivdata::PolygonArea::runs(int width, int height) const
{
    const std::vector<PolygonEdge> edges = from_top_to_bottom(edges_);
    std::vector<Run> runs;
    std::vector<PolygonEdge> touching;
    auto next = edges.begin();
    const Rows rows = rows_of(edges, height);
    for (int row = rows.begin; row < rows.stop; ++row) {
        for (; next != edges.end() && next->top() <= row; ++next) {
            touching.push_back(*next);
        }
        std::erase_if(touching, [row](const PolygonEdge& edge) { return !edge.touches(row); });
        append_runs(touching, row, rule_, {0, width}, runs);
    }
    return runs;
}
