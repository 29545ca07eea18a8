// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kivcommon
{

/// How many pixels of a run are written at once, as how long short runs are can hardly be guessed.
inline constexpr int pixels_at_once = 4;

/// How many pixels more than `full` a batch has room for.
inline constexpr std::size_t spare_pixels = 2 * pixels_at_once;

/// Lists the pixels of runs in batches that stay in the nearest cache. So lists that they are appended to need not be
/// cleared first.
///
/// `batch.write(i, column, row)` writes `pixels_at_once` pixels, pixel i of the batch being the one at that column.
/// Those of them that lie behind a run will be overwritten; their columns may be no ints. `batch.append(count)` takes
/// the first pixels, when there are `batch.full` or more, and in the end.
template <class Runs, class Batch>
void list_pixels(const Runs& runs, Batch& batch)
{
    std::size_t count = 0;
    for (const auto& run : runs) {
        for (std::int64_t column = run.colBegin; column <= run.colEnd; column += pixels_at_once) {
            batch.write(count, column, run.row);
            count += static_cast<std::size_t>(std::min<std::int64_t>(run.colEnd - column + 1, pixels_at_once));
            if (count >= batch.full) {
                batch.append(count);
                count = 0;
            }
        }
    }
    batch.append(count);
}

} // namespace kivcommon
