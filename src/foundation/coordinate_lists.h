// SPDX-License-Identifier: MIT
#pragma once

#include <KivData/KivData.h>

#include <vector>

namespace kiv
{

/// Appends the coordinates of points, x to one empty array and y to the other. One array for both gets them in turn.
void fill_coordinates(KivVarArray& xs, KivVarArray& ys, std::vector<int> columns, std::vector<int> rows);

} // namespace kiv
