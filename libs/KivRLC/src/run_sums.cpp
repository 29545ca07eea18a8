// SPDX-License-Identifier: MIT
// Central moments from sums about the origin: moved to the whole pixel below the centroid, everything is still exact,
// and what is then subtracted for the centroid's fraction is divided into a whole part, which is exact, too, and a
// rest.
#include "run_sums.h"

#include <cmath>
#include <numbers>

namespace
{

using kivrlc::Wide;

Wide divided_down(Wide sum, std::int64_t by)
{
    const Wide quotient = sum / by;
    return sum % by < 0 ? quotient - 1 : quotient;
}

/// A mean as a whole number and what is left of the sum.
struct Mean {
    Mean(Wide sum, std::int64_t count) : whole(divided_down(sum, count)), rest(sum - whole * count) {}

    Wide whole;
    Wide rest;
};

/// sum (u - mean u) (v - mean v), of sum u v, sum u and sum v.
double central(Wide sum_uv, Wide sum_u, Wide sum_v, std::int64_t count)
{
    const Mean u(sum_u, count);
    const Mean v(sum_v, count);
    const Wide about_whole = sum_uv - u.whole * sum_v - v.whole * u.rest;
    const Wide product = u.rest * v.rest;
    const Wide whole_part = product / count;
    return static_cast<double>(about_whole - whole_part) -
           static_cast<double>(product - whole_part * count) / static_cast<double>(count);
}

} // namespace

KivRuns::Place kivrlc::PlaceSums::centroid() const
{
    const auto mean = [count = static_cast<double>(area)](Wide sum) { return static_cast<double>(sum) / count; };
    return {mean(twice_x / 2), mean(y)};
}

KivRuns::Moments kivrlc::MomentSums::moments() const
{
    const Wide x = place.twice_x / 2;
    return {place.area, place.centroid(), central(twelve_xx / 12, x, x, place.area),
            central(twice_xy / 2, x, place.y, place.area), central(yy, place.y, place.y, place.area)};
}

double kivrlc::BorderSums::crofton_perimeter() const
{
    const auto straight_entries = static_cast<double>(runs + (area - straight));
    const auto diagonal_entries = static_cast<double>(2 * area - diagonal);
    return std::numbers::pi / 4 * (straight_entries + diagonal_entries / std::numbers::sqrt2);
}
