// SPDX-License-Identifier: MIT
// The shapes that are one convex set less others: rectangles, circles, ellipses, rings and ring sectors.
#pragma once

#include "convex_set.h"

#include <KivData/KivShape.h>

#include <vector>

namespace kivdata
{

/// A convex body without its holes, which are convex, too.
struct Solid {
    double top;    ///< no point of the body lies above, rounding apart
    double bottom; ///< no point of the body lies below, rounding apart
    ConvexSet body;
    std::vector<ConvexSet> holes;

    bool contains(double x, double y) const;
    std::vector<Run> runs(int width, int height) const;
};

Solid solid_of(const KivShape::Rectangle& rectangle);
Solid solid_of(const KivShape::RotatedRectangle& rectangle);
Solid solid_of(const KivShape::Circle& circle);
Solid solid_of(const KivShape::Ellipse& ellipse);
Solid solid_of(const KivShape::Ring& ring);
Solid solid_of(const KivShape::RingSector& sector);

} // namespace kivdata
