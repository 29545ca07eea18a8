// SPDX-License-Identifier: MIT
// Contours, grouped by the piece of foreground that they belong to.
#pragma once

#include "kivconvert/contour_files.h"

#include <vector>

namespace kivconvert
{

/// The borders of one connected piece of foreground.
struct Outline {
    const KivContour* outer = nullptr;
    std::vector<const KivContour*> holes;
};

/// The outlines in the order of their outer borders. They point into `traced`. Where that does not say which outer
/// border a hole belongs to, it is the smallest one around it. A hole in none of them, which tracing never gives,
/// becomes an outline by itself. Costs as filling the outer borders into runs does; the frame costs nothing.
std::vector<Outline> outlines_of(const TracedContours& traced);

} // namespace kivconvert
