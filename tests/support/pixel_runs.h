// SPDX-License-Identifier: MIT
/// @file
/// Runs of pixels that are asked about one by one.
#pragma once

#include <KivRLC/KivRun.h>

#include <vector>

namespace support
{

/// The maximal runs of the pixels for which belongs(row, column) holds, in a frame of the given size.
template <class Belongs>
std::vector<Run> runs_where(int rows, int columns, const Belongs& belongs)
{
    std::vector<Run> runs;
    for (int row = 0; row < rows; ++row) {
        bool inside = false;
        for (int column = 0; column < columns; ++column) {
            const bool was_inside = inside;
            inside = belongs(row, column);
            if (inside && was_inside) {
                runs.back().colEnd = column;
            } else if (inside) {
                runs.push_back({row, column, column});
            }
        }
    }
    return runs;
}

} // namespace support
