// SPDX-License-Identifier: MIT
// What is added up of a shape, a run at a time and exactly, and the measures that follow from the sums.
//
// For a run of n pixels whose ends add up to s: the sum of x is n s / 2, that of x^2 is n (3 s^2 + n^2 - 1) / 12. For
// coordinates of 32 bits n s fits in 64 bits, as its factors cannot both be large, and so does n y. 12 times the sum of
// x^2 is at most 2^96; so the sums over less than 2^31 runs fit in 128 bits.
#pragma once

#include "run_neighbours.h"
#include "wide_int.h"

#include <KivRLC/KivRunMeasures.h>

#include <algorithm>
#include <cstdint>

namespace kivrlc
{

/// Area and place of runs.
struct PlaceSums {
    std::int64_t area = 0;
    Wide twice_x = 0;
    Wide y = 0;

    void add(const Run& run)
    {
        const std::int64_t length = length_of(run);
        area += length;
        const std::int64_t twice_x_of_run = length * (std::int64_t{run.colBegin} + run.colEnd);
        const std::int64_t y_of_run = length * run.row;
        twice_x += twice_x_of_run;
        y += y_of_run;
    }

    KivRuns::Place centroid() const;
};

/// The same, and the box, of the runs that were added in the order of a set.
struct BoxSums : PlaceSums {
    KivRunBox box{0, 0, 0, 0};

    void add(const Run& run)
    {
        if (area == 0) {
            box = {run.row, run.row, run.colBegin, run.colEnd};
        }
        box.rowEnd = run.row;
        box.colBegin = std::min(box.colBegin, run.colBegin);
        box.colEnd = std::max(box.colEnd, run.colEnd);
        PlaceSums::add(run);
    }
};

/// The sums of second order as well.
struct MomentSums {
    BoxSums place;
    Wide twelve_xx = 0;
    Wide twice_xy = 0;
    Wide yy = 0;

    void add(const Run& run)
    {
        place.add(run);
        const std::int64_t length = length_of(run);
        const std::int64_t ends = std::int64_t{run.colBegin} + run.colEnd;
        twelve_xx += length * (3 * (Wide{ends} * ends) + Wide{length} * length - 1);
        twice_xy += Wide{length} * ends * run.row;
        yy += Wide{length} * run.row * run.row;
    }

    KivRuns::Moments moments() const;
};

/// How runs border on each other: how many pixels have one above them, straight or diagonally.
struct BorderSums {
    std::int64_t runs = 0;
    std::int64_t area = 0;
    std::int64_t straight = 0;     // pixels of two rows one above the other
    std::int64_t diagonal = 0;     // to the left and to the right, added up
    std::int64_t edge_pairs = 0;   // of runs that touch by edges
    std::int64_t corner_pairs = 0; // or by corners

    void add(const Run& run)
    {
        ++runs;
        area += length_of(run);
    }

    /// A pair of runs in neighbouring rows that touch by edges or corners.
    void add_pair(const Run& above, const Run& run)
    {
        const std::int64_t begin = std::max(above.colBegin, run.colBegin);
        const std::int64_t common = std::min(above.colEnd, run.colEnd) - begin + 1; // 0 if they touch by a corner
        const auto shifted = [&](std::int64_t shift) {
            return std::max<std::int64_t>(0, std::min(above.colEnd + shift, std::int64_t{run.colEnd}) -
                                                 std::max(above.colBegin + shift, std::int64_t{run.colBegin}) + 1);
        };
        straight += common;
        diagonal += shifted(-1) + shifted(1);
        edge_pairs += common > 0 ? 1 : 0;
        ++corner_pairs;
    }

    std::int64_t edge_perimeter() const { return 2 * (runs + (area - straight)); }
    double crofton_perimeter() const;
    std::int64_t euler_number(KivRuns::Connectivity connectivity) const
    {
        return runs - (connectivity == KivRuns::Connectivity::Four ? edge_pairs : corner_pairs);
    }
};

} // namespace kivrlc
