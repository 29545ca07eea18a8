// SPDX-License-Identifier: MIT
// Which runs of neighbouring rows touch. Runs of a row ascend and lie apart, so two rows are walked once, side by side:
// of two runs, the one that ends first can touch nothing that comes later in the other row.
#pragma once

#include "combine_row.h"

#include <KivRLC/KivRunBuffer.h>

#include <cstdint>

namespace kivrlc
{

/// How far apart the columns of two runs may be that touch: by an edge they share one, by a corner they are neighbours.
constexpr std::int64_t by_edges = 0;
constexpr std::int64_t by_corners = 1;

inline std::int64_t length_of(const Run& run)
{
    return std::int64_t{run.colEnd} - run.colBegin + 1;
}

inline bool ends_before(const Run& run, const Run& other, std::int64_t reach)
{
    return run.colEnd + reach < other.colBegin;
}

/// The first run of the next row.
inline const Run* end_of_row(const Run* run, const Run* end)
{
    const int row = run->row;
    if (run + 1 == end || run[1].row != row) { // as most rows of shapes are
        return run + 1;
    }
    constexpr std::ptrdiff_t stride = 4; // runs are looked at by fours first, as rows may be long
    while (end - run > stride && run[stride].row == row) {
        run += stride;
    }
    do {
        ++run;
    } while (run != end && run->row == row);
    return run;
}

/// Calls `visit(above, above_end, row, row_end)` for each row with the runs of the row above, which may be none.
template <class Visit>
void for_each_row(KivRunView runs, Visit visit)
{
    const Run* above = runs.begin();
    for (const Run* row = runs.begin(); row != runs.end();) {
        const Run* const row_end = end_of_row(row, runs.end());
        const bool follows = above != row && above->row + std::int64_t{1} == row->row;
        visit(follows ? above : row, row, row, row_end);
        above = row;
        row = row_end;
    }
}

inline bool touch(const Run& run, const Run& other, std::int64_t reach)
{
    return (static_cast<int>(ends_before(run, other, reach)) | static_cast<int>(ends_before(other, run, reach))) == 0;
}

/// Calls `visit(upper, lower)` for pairs of runs of a row and the one above, among which are all that touch. In rows of
/// shapes, most runs have one run below them and go on together with it, which can be guessed.
template <class Visit>
void for_each_near_pair(RowRuns above, RowRuns row, Visit visit)
{
    const Run* upper = above.begin;
    const Run* lower = row.begin;
    if (upper + 1 == above.end && lower + 1 == row.end) { // as most rows of shapes are
        visit(*upper, *lower);
        return;
    }
    while (upper + 1 != above.end && lower + 1 != row.end) {
        visit(*upper, *lower);
        if (!ends_before(*upper, lower[1], by_corners)) {
            ++lower;
        } else if (!ends_before(*lower, upper[1], by_corners)) {
            ++upper;
        } else {
            ++upper;
            ++lower;
        }
    }
    for (; upper + 1 != above.end; ++upper) {
        visit(*upper, *lower);
    }
    for (; lower != row.end; ++lower) {
        visit(*upper, *lower);
    }
}

/// The same for all rows.
template <class Visit>
void for_each_near_pair(KivRunView runs, Visit visit)
{
    for_each_row(runs, [&](const Run* above, const Run* above_end, const Run* run, const Run* row_end) {
        if (above != above_end) {
            for_each_near_pair(RowRuns{above, above_end}, RowRuns{run, row_end}, visit);
        }
    });
}

/// Calls `visit(upper, lower)` for each pair of runs in neighbouring rows that touch.
template <class Visit>
void for_each_touching_pair(KivRunView runs, std::int64_t reach, Visit visit)
{
    for_each_near_pair(runs, [&](const Run& upper, const Run& lower) {
        if (touch(upper, lower, reach)) {
            visit(upper, lower);
        }
    });
}

} // namespace kivrlc
