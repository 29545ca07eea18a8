// SPDX-License-Identifier: MIT
#include "shape_runs.h"

#include "polygon_area.h"
#include "solid.h"

#include <algorithm>

namespace
{

using kivdata::PolygonArea;
using kivdata::solid_of;

/// Rasterises a shape.
struct RunsOf {
    int width;
    int height;

    std::vector<Run> operator()(const KivShape::Empty&) const { return {}; }
    std::vector<Run> operator()(const KivShape::OpenCurve&) const { return {}; }
    std::vector<Run> operator()(const KivShape::Mask& mask) const { return mask.runs; }
    std::vector<Run> operator()(const KivShape::Polygon& polygon) const
    {
        return PolygonArea(polygon.points).runs(width, height);
    }
    template <class Shape>
    std::vector<Run> operator()(const Shape& shape) const
    {
        return solid_of(shape).runs(width, height);
    }
};

/// Asks a shape for one pixel.
struct Contains {
    int width;
    int height;
    int x;
    int y;

    bool operator()(const KivShape::Empty&) const { return false; }
    bool operator()(const KivShape::OpenCurve&) const { return false; }
    bool operator()(const KivShape::Mask& mask) const
    {
        return std::any_of(mask.runs.begin(), mask.runs.end(),
                           [this](const Run& run) { return run.row == y && run.colBegin <= x && x <= run.colEnd; });
    }
    bool operator()(const KivShape::Polygon& polygon) const
    {
        return in_frame() && PolygonArea(polygon.points).contains(x, y);
    }
    template <class Shape>
    bool operator()(const Shape& shape) const
    {
        return in_frame() && solid_of(shape).contains(x, y);
    }

    bool in_frame() const { return 0 <= x && x < width && 0 <= y && y < height; }
};

} // namespace

std::vector<Run> kivdata::runs_of_shape(const KivShape::Any& shape, int width, int height)
{
    return std::visit(RunsOf{width, height}, shape);
}

bool kivdata::shape_contains(const KivShape::Any& shape, int width, int height, int x, int y)
{
    return std::visit(Contains{width, height, x, y}, shape);
}
