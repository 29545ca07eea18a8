// SPDX-License-Identifier: MIT
// Which pixels polygons have, by the definition, pixel by pixel and edge by edge, in integers of 128 bits.
#pragma once

#include "../src/wide_int.h"
#include "support/pixel_runs.h"

#include <KivRLC/KivPolygonFill.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace polygon_pixels
{

using Polygon = std::vector<KivPixel>;
using Polygons = std::vector<Polygon>;
using kivrlc::Wide;

/// An edge with its ends in the order of their columns, and the pixel's place seen from its left end.
struct Seen {
    Seen(const KivPixel& a, const KivPixel& b, const KivPixel& pixel)
        : left(a.x <= b.x ? a : b),
          right(a.x <= b.x ? b : a),
          width(Wide{right.x} - left.x),
          height(Wide{right.y} - left.y),
          x(Wide{pixel.x} - left.x),
          y(Wide{pixel.y} - left.y)
    {
    }

    KivPixel left;
    KivPixel right;
    Wide width;
    Wide height; // negative if the edge rises
    Wide x;
    Wide y;
};

inline Wide magnitude(Wide value)
{
    return value < 0 ? -value : value;
}

inline bool is_between(Wide value, Wide a, Wide b)
{
    return std::min(a, b) <= value && value <= std::max(a, b);
}

/// Whether an edge passes a pixel: of the pixels of a row, if it is steep, or else of a column, the pixel nearest to
/// the edge; of two that are equally near the one on the side of its left end.
inline bool passes(const KivPixel& a, const KivPixel& b, const KivPixel& pixel)
{
    const Seen edge(a, b, pixel);
    if (!is_between(edge.x, 0, edge.width) || !is_between(edge.y, 0, edge.height)) {
        return false; // the nearest pixels lie between the ends
    }
    if (magnitude(edge.height) >= edge.width) { // x must be height-wise nearest to y * width / height
        const Wide twice_off = 2 * (edge.x * magnitude(edge.height) - magnitude(edge.y) * edge.width);
        return -magnitude(edge.height) <= twice_off && (twice_off < magnitude(edge.height) || edge.height == 0);
    }
    const Wide twice_off = 2 * (magnitude(edge.y) * edge.width - edge.x * magnitude(edge.height));
    return -edge.width <= twice_off && twice_off < edge.width;
}

/// Whether a row meets an edge, the lower end of which does not belong, to the left of a pixel.
inline bool crosses_left_of(const KivPixel& a, const KivPixel& b, const KivPixel& pixel)
{
    const Seen edge(a, b, pixel);
    if (pixel.y < std::min(a.y, b.y) || pixel.y >= std::max(a.y, b.y)) {
        return false;
    }
    const Wide right_of_edge = edge.x * magnitude(edge.height) - magnitude(edge.y) * edge.width;
    return right_of_edge > 0;
}

/// Whether a pixel belongs to the polygons.
inline bool belongs(const Polygons& polygons, const KivPixel& pixel)
{
    bool inside = false;
    for (const Polygon& polygon : polygons) {
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const KivPixel& from = polygon[i];
            const KivPixel& to = polygon[i + 1 < polygon.size() ? i + 1 : 0];
            if (passes(from, to, pixel)) {
                return true;
            }
            inside ^= crosses_left_of(from, to, pixel);
        }
    }
    return inside;
}

/// The runs of the pixels of a box that belong.
inline std::vector<Run> runs_by_pixels(const Polygons& polygons, const KivRunBox& box)
{
    std::vector<Run> runs = support::runs_where(
        box.rowEnd - box.rowBegin + 1, box.colEnd - box.colBegin + 1, [&polygons, &box](int row, int column) {
            return belongs(polygons, {box.colBegin + column, box.rowBegin + row});
        });
    for (Run& run : runs) {
        run = {run.row + box.rowBegin, run.colBegin + box.colBegin, run.colEnd + box.colBegin};
    }
    return runs;
}

inline std::vector<Run> filled(const Polygons& polygons, const KivRunBox& box)
{
    KivPolygonFill fill(box);
    for (const Polygon& polygon : polygons) {
        fill.Add(polygon.data(), polygon.size());
    }
    return fill.Runs();
}

} // namespace polygon_pixels
