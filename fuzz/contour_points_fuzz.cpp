// SPDX-License-Identifier: MIT
// Contours become points and come back bit by bit; as arrays they are rounded and saturated.
#include "inputs.h"
#include "target.h"

#include "support/coordinates.h"

#include <KivDataConvert/KivDataConvert.h>

#include <climits>
#include <cmath>

namespace
{

int rounded(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    if (value <= INT_MIN || value >= INT_MAX) {
        return value < 0 ? INT_MIN : INT_MAX;
    }
    return static_cast<int>(std::lrint(value));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    KivContour::Points points;
    KivContour::Points pixels;
    while (!input.at_end()) {
        const double x = input.fine_coordinate();
        const double y = input.fine_coordinate();
        points.emplace_back(x, y);
        pixels.emplace_back(rounded(x), rounded(y));
    }
    KivContour contour(points);
    const int expected_code = points.empty() ? KIVMV::KIVMV_ERR_PARAM_1 : KIVMV::KIVMV_OK;

    KivPointArray list;
    KivContour again;
    EXPECT_EQ(KIVMV::KivContourToPointArray(contour, &list), expected_code);
    EXPECT_EQ(KIVMV::KivPointArrayToContour(list, &again), expected_code);
    EXPECT_EQ(support::bits_of(again), support::bits_of(contour));

    KivVarArray xs;
    KivVarArray ys;
    EXPECT_EQ(KIVMV::KivContourToVarArray(contour, &xs, &ys), expected_code);
    EXPECT_EQ(KIVMV::KivVarArrayToContour(xs, ys, &again), expected_code);
    EXPECT_TRUE(support::same_values(again, KivContour(pixels)));
    return 0;
}
