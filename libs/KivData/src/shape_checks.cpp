// SPDX-License-Identifier: MIT
#include "shape_checks.h"

#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>

namespace
{

[[noreturn]] void throw_unfit(const std::string& parameter, double value, const char* demand)
{
    std::ostringstream sentence;
    sentence << parameter << " is " << value << "; it must be " << demand;
    throw std::invalid_argument(sentence.str());
}

struct Parameter {
    const char* name;
    double value;
};

void check_finite(std::initializer_list<Parameter> parameters)
{
    for (const auto& [name, value] : parameters) {
        if (!std::isfinite(value)) {
            throw_unfit(name, value, "finite");
        }
    }
}

void check_sizes(std::initializer_list<Parameter> parameters)
{
    check_finite(parameters);
    for (const auto& [name, value] : parameters) {
        if (value < 0.0) {
            throw_unfit(name, value, "0 or more");
        }
    }
}

void check_points(const std::string& shape, const std::vector<cv::Point_<double>>& points)
{
    for (std::size_t i = 0; i < points.size(); ++i) {
        for (const double coordinate : {points[i].x, points[i].y}) {
            if (!std::isfinite(coordinate)) {
                throw_unfit(shape + ": a coordinate of point " + std::to_string(i), coordinate, "finite");
            }
        }
    }
}

struct Check {
    void operator()(const KivShape::Empty&) const {}
    void operator()(const KivShape::Mask&) const {}
    void operator()(const KivShape::OpenCurve& curve) const { check_points("open curve", curve.points); }
    void operator()(const KivShape::Polygon& polygon) const { check_points("polygon", polygon.points); }
    void operator()(const KivShape::Rectangle& rectangle) const
    {
        check_finite({{"rectangle: left", rectangle.left},
                      {"rectangle: top", rectangle.top},
                      {"rectangle: right", rectangle.right},
                      {"rectangle: bottom", rectangle.bottom}});
    }
    void operator()(const KivShape::RotatedRectangle& rectangle) const
    {
        check_finite({{"rotated rectangle: cx", rectangle.cx},
                      {"rotated rectangle: cy", rectangle.cy},
                      {"rotated rectangle: angle", rectangle.angle}});
        check_sizes(
            {{"rotated rectangle: length", rectangle.length}, {"rotated rectangle: breadth", rectangle.breadth}});
    }
    void operator()(const KivShape::Circle& circle) const
    {
        check_finite({{"circle: cx", circle.cx}, {"circle: cy", circle.cy}});
        check_sizes({{"circle: radius", circle.radius}});
    }
    void operator()(const KivShape::Ellipse& ellipse) const
    {
        check_finite({{"ellipse: cx", ellipse.cx}, {"ellipse: cy", ellipse.cy}, {"ellipse: angle", ellipse.angle}});
        check_sizes({{"ellipse: radius1", ellipse.radius1}, {"ellipse: radius2", ellipse.radius2}});
    }
    void operator()(const KivShape::Ring& ring) const
    {
        check_finite({{"ring: cx", ring.cx}, {"ring: cy", ring.cy}});
        check_sizes({{"ring: inner", ring.inner}, {"ring: outer", ring.outer}});
    }
    void operator()(const KivShape::RingSector& sector) const
    {
        check_finite(
            {{"ring sector: cx", sector.cx}, {"ring sector: cy", sector.cy}, {"ring sector: start", sector.start}});
        check_sizes({{"ring sector: inner", sector.inner},
                     {"ring sector: outer", sector.outer},
                     {"ring sector: sweep", sector.sweep}});
        if (sector.sweep > 360.0) {
            throw_unfit("ring sector: sweep", sector.sweep, "360 at most");
        }
    }
};

} // namespace

void kivdata::check_shape(const KivShape::Any& shape)
{
    std::visit(Check(), shape);
}
