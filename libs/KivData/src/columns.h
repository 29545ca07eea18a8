// SPDX-License-Identifier: MIT
// Columns of one row, found by binary search.
//
// Every part of a shape meets a row in one stretch of columns. A part says so by two conditions, begun(x, y) and
// ended(x, y), each of which, going right, turns true at most once and stays true; its columns are those that have
// begun and not ended. Rounding is monotonic, so conditions built from sums and products that are monotonic in x stay
// monotonic in floating point, and a binary search finds exactly what a linear scan would.
#pragma once

#include <numeric>

namespace kivdata
{

/// The columns begin, begin + 1, …, stop - 1 of a row; none when begin >= stop.
struct Columns {
    int begin;
    int stop;

    bool empty() const noexcept { return begin >= stop; }
};

/// The first of the columns for which `reached` is true; the column behind the last one if there is none.
template <class Condition>
int first_column(Columns columns, Condition reached)
{
    while (!columns.empty()) {
        const int middle = std::midpoint(columns.begin, columns.stop);
        if (reached(middle)) {
            columns.stop = middle;
        } else {
            columns.begin = middle + 1;
        }
    }
    return columns.begin;
}

/// Whether the part covers the point.
template <class Part>
bool part_contains(const Part& part, double x, double y)
{
    return part.begun(x, y) && !part.ended(x, y);
}

/// Those of the columns that the part covers in row y.
template <class Part>
Columns columns_of_part(const Part& part, double y, Columns among)
{
    const int begin = first_column(among, [&](double x) { return part.begun(x, y); });
    const int stop = first_column({begin, among.stop}, [&](double x) { return part.ended(x, y); });
    return {begin, stop};
}

} // namespace kivdata
