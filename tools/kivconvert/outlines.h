// SPDX-License-Identifier: MIT
// Contours, sorted by the piece of foreground that they belong to.
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

/// The outlines in the order of their outer borders. They point into `traced`. Where that does not tell which hole is
/// in which outer border, it is the smallest one around it. A border of a hole that lies in none of them, as tracing
/// never gives it, becomes an outline of its own.
std::vector<Outline> outlines_of(const TracedContours& traced);

} // namespace kivconvert
