// SPDX-License-Identifier: MIT
// Shapes of regions of interest rasterised straight to runs.
#pragma once

#include <KivData/KivShape.h>

#include <vector>

namespace kivdata
{

/// The runs of the shape's pixels. A mask's runs are verbatim; those of any other shape lie in the frame of
/// width x height pixels and are maximal, rows from top to bottom, within a row from left to right.
std::vector<Run> runs_of_shape(const KivShape::Any& shape, int width, int height);

/// Whether one of runs_of_shape() covers the pixel in column x and row y.
bool shape_contains(const KivShape::Any& shape, int width, int height, int x, int y);

} // namespace kivdata
