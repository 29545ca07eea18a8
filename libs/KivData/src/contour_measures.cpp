// SPDX-License-Identifier: MIT
#include <KivData/KivContourMeasures.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using Point = cv::Point_<double>;
using Points = KivContour::Points;

const Points& finite_points(const KivContour& contour)
{
    const Points& points = contour.AllPoints();
    if (!std::all_of(points.begin(), points.end(),
                     [](const Point& p) { return std::isfinite(p.x) && std::isfinite(p.y); })) {
        throw std::invalid_argument("KivContours: a coordinate is not finite");
    }
    return points;
}

const Points& some_finite_points(const KivContour& contour)
{
    if (contour.Length() == 0) {
        throw std::invalid_argument("KivContours: the contour has no points");
    }
    return finite_points(contour);
}

double distance_of(const Point& a, const Point& b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

/// Calls `visit` with both ends of each edge, as seen from `origin`: a contour far from (0, 0) loses no digits.
template <class Visit>
void for_each_edge(const Points& points, const Point& origin, Visit visit)
{
    for (std::size_t i = 0; i < points.size(); ++i) {
        visit(points[i] - origin, points[i + 1 < points.size() ? i + 1 : 0] - origin);
    }
}

double length_of(const Points& points)
{
    double length = 0.0;
    for_each_edge(points, {}, [&](const Point& a, const Point& b) { length += distance_of(a, b); });
    return length;
}

double doubled_area_of(const Points& points)
{
    double doubled = 0.0;
    if (!points.empty()) {
        for_each_edge(points, points.front(), [&](const Point& a, const Point& b) { doubled += a.cross(b); });
    }
    return doubled;
}

/// The centre of mass; `doubled_area` is that of the points.
Point centroid_of(const Points& points, double doubled_area)
{
    Point sum;
    double weight = 0.0;
    for_each_edge(points, points.front(), [&](const Point& a, const Point& b) {
        // A triangle with the first point, which is the origin here; or the edge, whose centre of mass is its middle.
        const double mass = doubled_area != 0.0 ? a.cross(b) / 3.0 : distance_of(a, b) / 2.0;
        sum += mass * (a + b);
        weight += doubled_area != 0.0 ? a.cross(b) : distance_of(a, b);
    });
    return weight != 0.0 ? points.front() + sum / weight : points.front();
}

/// Where the edge from a to b, from 0 to 1, is nearest to p.
double nearest_part(const Point& a, const Point& b, const Point& p)
{
    const Point along = b - a;
    const double square = along.dot(along);
    const double product = (p - a).dot(along);
    if (!std::isfinite(square) || !std::isfinite(product)) { // more than a double holds, unless seen from afar
        constexpr double afar = 0x1p-600;
        return nearest_part(afar * a, afar * b, afar * p);
    }
    return square > 0.0 ? std::clamp(product / square, 0.0, 1.0) : 0.0;
}

/// The point of the edge from a to b that is nearest to p.
Point nearest_of_edge(const Point& a, const Point& b, const Point& p)
{
    const double part = nearest_part(a, b, p);
    return {std::lerp(a.x, b.x, part), std::lerp(a.y, b.y, part)};
}

/// The point furthest from the chord between two points of a line, among those between them; and how far it is.
std::pair<std::size_t, double> furthest_between(const Points& line, std::size_t first, std::size_t last)
{
    std::pair<std::size_t, double> furthest(first, -1.0);
    for (std::size_t i = first + 1; i < last; ++i) {
        const double distance = distance_of(line[i], nearest_of_edge(line[first], line[last], line[i]));
        if (distance > furthest.second) {
            furthest = {i, distance};
        }
    }
    return furthest;
}

/// Whether the way from a over b to c turns left as seen on the screen.
bool turns_left(const Point& a, const Point& b, const Point& c)
{
    return (b - a).cross(c - a) < 0.0;
}

/// Appends the corners of the hull's half that runs through ordered points in their order, without the last one.
template <class Iterator>
void append_half_hull(Iterator begin, Iterator end, Points& hull)
{
    const std::size_t start = hull.size();
    for (; begin != end; ++begin) {
        while (hull.size() >= start + 2 && !turns_left(hull[hull.size() - 2], hull.back(), *begin)) {
            hull.pop_back();
        }
        hull.push_back(*begin);
    }
    hull.pop_back();
}

} // namespace

double KivContours::Length(const KivContour& contour)
{
    return length_of(finite_points(contour));
}

double KivContours::SignedArea(const KivContour& contour)
{
    return doubled_area_of(finite_points(contour)) / 2.0;
}

KivContours::Bounds KivContours::BoundsOf(const KivContour& contour)
{
    const Points& points = some_finite_points(contour);
    Bounds bounds = {points[0].x, points[0].y, points[0].x, points[0].y};
    for (const Point& point : points) {
        bounds.left = std::min(bounds.left, point.x);
        bounds.top = std::min(bounds.top, point.y);
        bounds.right = std::max(bounds.right, point.x);
        bounds.bottom = std::max(bounds.bottom, point.y);
    }
    return bounds;
}

cv::Point_<double> KivContours::Centroid(const KivContour& contour)
{
    const Points& points = some_finite_points(contour);
    return centroid_of(points, doubled_area_of(points));
}

double KivContours::Orientation(const KivContour& contour)
{
    const Points& points = some_finite_points(contour);
    const double doubled_area = doubled_area_of(points);
    double xx = 0.0;
    double xy = 0.0;
    double yy = 0.0;
    // The second moments of a triangle with the centroid, which is the origin here, and of an edge, but for a factor
    // that is the same for all. The mean of products over an edge has the same form as over such a triangle.
    for_each_edge(points, centroid_of(points, doubled_area), [&](const Point& a, const Point& b) {
        const double mass = doubled_area != 0.0 ? a.cross(b) : distance_of(a, b);
        xx += mass * (a.x * a.x + a.x * b.x + b.x * b.x);
        xy += mass * (2.0 * a.x * a.y + a.x * b.y + b.x * a.y + 2.0 * b.x * b.y) / 2.0;
        yy += mass * (a.y * a.y + a.y * b.y + b.y * b.y);
    });
    const double sign = doubled_area < 0.0 ? -1.0 : 1.0;
    if (xy == 0.0 && xx == yy) {
        return 0.0;
    }
    const double angle = std::atan2(sign * 2.0 * xy, sign * (xx - yy)) / 2.0;
    return angle > -CV_PI / 2.0 ? angle : CV_PI / 2.0;
}

bool KivContours::Contains(const KivContour& contour, const cv::Point_<double>& point)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
        throw std::invalid_argument("KivContours: a coordinate is not finite");
    }
    bool on_line = false;
    bool inside = false;
    for_each_edge(finite_points(contour), point, [&](const Point& a, const Point& b) {
        const double side = a.cross(b);
        on_line = on_line || (side == 0.0 && a.x * b.x <= 0.0 && a.y * b.y <= 0.0);
        // The edge crosses the ray from the point to the right.
        if ((a.y <= 0.0) != (b.y <= 0.0) && (b.y > a.y) == (side > 0.0)) {
            inside = !inside;
        }
    });
    return on_line || inside;
}

KivContours::LinePoint KivContours::Nearest(const KivContour& contour, const cv::Point_<double>& point)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
        throw std::invalid_argument("KivContours: a coordinate is not finite");
    }
    const Points& points = some_finite_points(contour);
    LinePoint nearest = {points.front(), std::numeric_limits<double>::infinity(), 0};
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point candidate = nearest_of_edge(points[i], points[i + 1 < points.size() ? i + 1 : 0], point);
        const double distance = distance_of(candidate, point);
        if (distance < nearest.distance) {
            nearest = {candidate, distance, static_cast<int>(i)};
        }
    }
    return nearest;
}

KivContour KivContours::Simplified(const KivContour& contour, double tolerance)
{
    if (!(tolerance >= 0.0)) {
        throw std::invalid_argument("KivContours: the tolerance is negative or NaN");
    }
    Points line = finite_points(contour);
    if (line.size() < 2) {
        return contour;
    }
    line.push_back(line.front());
    const std::size_t last = line.size() - 1;
    std::vector<bool> stays(line.size());
    stays[0] = true;
    std::vector<std::pair<std::size_t, std::size_t>> chords; // to be looked at; their ends stay
    const std::size_t opposite = furthest_between(line, 0, last).first;
    if (line[opposite] != line[0]) {
        stays[opposite] = true;
        chords = {{0, opposite}, {opposite, last}};
    }
    while (!chords.empty()) {
        const auto [first, second] = chords.back();
        chords.pop_back();
        const auto [furthest, distance] = furthest_between(line, first, second);
        if (distance > tolerance) {
            stays[furthest] = true;
            chords.emplace_back(first, furthest);
            chords.emplace_back(furthest, second);
        }
    }
    Points kept;
    for (std::size_t i = 0; i < last; ++i) {
        if (stays[i]) {
            kept.push_back(line[i]);
        }
    }
    return KivContour(std::move(kept));
}

KivContour KivContours::Hull(const KivContour& contour)
{
    Points points = finite_points(contour);
    std::sort(points.begin(), points.end(),
              [](const Point& a, const Point& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; });
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() < 3) {
        return KivContour(std::move(points));
    }
    Points hull;
    append_half_hull(points.begin(), points.end(), hull);
    append_half_hull(points.rbegin(), points.rend(), hull);
    return KivContour(std::move(hull));
}

KivContour KivContours::Resampled(const KivContour& contour, int count)
{
    if (count < 1) {
        throw std::invalid_argument("KivContours: fewer than one point");
    }
    const Points& points = some_finite_points(contour);
    const double step = length_of(points) / count;
    Points sampled = {points.front()};
    sampled.reserve(static_cast<std::size_t>(count));
    double passed = 0.0; // from the first point to the start of the edge
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& from = points[i];
        const Point& to = points[i + 1 < points.size() ? i + 1 : 0];
        const double length = distance_of(from, to);
        while (sampled.size() < static_cast<std::size_t>(count) &&
               step * static_cast<double>(sampled.size()) <= passed + length && length > 0.0) {
            sampled.push_back(from + (step * static_cast<double>(sampled.size()) - passed) / length * (to - from));
        }
        passed += length;
    }
    sampled.resize(static_cast<std::size_t>(count), points.front()); // all points are equal
    return KivContour(std::move(sampled));
}
