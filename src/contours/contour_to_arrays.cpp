// SPDX-License-Identifier: MIT
#include "foundation/coordinate_lists.h"
#include "foundation/first_member.h"
#include "foundation/pixels.h"

#include <KivDataConvert/KivDataConvert.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace
{

/// The sign, the exponent and the upper bits of the fraction.
constexpr std::uint32_t high_word(double number)
{
    return static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32);
}

/// Its highest bit is set unless the magnitude is less than 2^31 - 1024.
std::uint32_t far_from_zero(double coordinate)
{
    constexpr std::uint32_t sign = 0x80000000U;
    return (high_word(coordinate) & ~sign) + (sign - high_word(2147483648.0 - 1024.0));
}

/// Rounds what is not far from zero, as nearly all points are, to the nearest int, ties to even. No comparison keeps
/// compilers from rounding several at once.
int round_near(double coordinate)
{
    // From 2^52 to 2^53, doubles are the whole numbers, and the lowest bits of theirs are those of the ints.
    return static_cast<int>(std::bit_cast<std::int64_t>(coordinate + 1.5 * 4503599627370496.0));
}

/// Rounds all coordinates to the nearest ints, ties to even.
void round_points(const kiv::ContourPoints& points, std::vector<int>& columns, std::vector<int>& rows)
{
    std::uint32_t far = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        far |= far_from_zero(points[i].x) | far_from_zero(points[i].y);
        columns[i] = round_near(points[i].x);
        rows[i] = round_near(points[i].y);
    }
    if (far >> 31 != 0) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            columns[i] = kiv::round_half_even(points[i].x);
            rows[i] = kiv::round_half_even(points[i].y);
        }
    }
}

} // namespace

int KIVMV::KivContourToVarArray(KivContour& contour, KivVarArray* xs, KivVarArray* ys)
{
    xs->Clear();
    ys->Clear();
    const auto& points = kiv::points_of(contour);
    if (points.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    std::vector<int> columns(points.size());
    std::vector<int> rows(points.size());
    round_points(points, columns, rows);
    kiv::fill_coordinates(*xs, *ys, std::move(columns), std::move(rows));
    return KIVMV_OK;
}
