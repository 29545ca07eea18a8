// SPDX-License-Identifier: MIT
// Contours listed as ints: rounding, coordinates beyond all ints, and arrays that are emptied before anything else.
#include "support/coordinates.h"
#include "support/sanitizer_memory.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{

using KIVMV::KivContourToVarArray;
using support::infinity;
using support::same_values;
using support::two_to_31;

void expect_result(const KivContour& contour, int code, const KivVarArray& expected_xs, const KivVarArray& expected_ys)
{
    SCOPED_TRACE(support::text_of(contour));
    KivContour input(contour);
    KivVarArray xs = {KivVar("text"), KivVar(0.5), KivVar(3)};
    KivVarArray ys = {KivVar(8)};
    EXPECT_EQ(KivContourToVarArray(input, &xs, &ys), code);
    EXPECT_TRUE(same_values(xs, expected_xs)) << "columns";
    EXPECT_TRUE(same_values(ys, expected_ys)) << "rows";
    EXPECT_EQ(support::bits_of(input), support::bits_of(contour));
}

void expect_arrays(const KivContour& contour, const KivVarArray& xs, const KivVarArray& ys)
{
    expect_result(contour, KIVMV::KIVMV_OK, xs, ys);
}

TEST(ContourToArrays, CoordinatesAreRoundedToTheNearestInt)
{
    expect_arrays({{2.5, -1.5}, {3.5, 0.49}}, {2, 4}, {-2, 0});
    expect_arrays({{1.51, 2.49}, {-1.51, -2.49}, {0.9, -0.9}}, {2, -2, 1}, {2, -2, -1});
}

TEST(ContourToArrays, TiesGoToTheEvenNeighbour)
{
    expect_arrays({{0.5, -0.5}, {1.5, -1.5}, {2.5, -2.5}, {3.5, -3.5}}, {0, 2, 2, 4}, {0, -2, -2, -4});
    expect_arrays({{1000000.5, 1000001.5}}, {1000000}, {1000002});
}

TEST(ContourToArrays, NextToATieTheNearestIsTaken)
{
    expect_arrays({{0.49999999999999994, 0.50000000000000011}, {2.4999999999999996, 2.5000000000000004}}, {0, 2},
                  {1, 3});
}

TEST(ContourToArrays, NumbersOfManyDigitsAreRoundedLikeOthers)
{
    expect_arrays({{2147482623.5, -2147482623.5}, {2147482624.5, -2147482624.5}, {2147482622.5, -2147482622.4}},
                  {2147482624, 2147482624, 2147482622}, {-2147482624, -2147482624, -2147482622});
    expect_arrays({{2147482624, -2147482624}, {2147483646.5, -2147483646.5}}, {2147482624, 2147483646},
                  {-2147482624, -2147483646});
}

TEST(ContourToArrays, AmongManyPointsEachIsRoundedByItself)
{
    for (const int odd_one : {0, 255, 256, 299}) {
        KivContour::Points points;
        KivVarArray xs;
        KivVarArray ys;
        for (int i = 0; i < 300; ++i) {
            const bool is_odd_one = i == odd_one;
            points.emplace_back(is_odd_one ? infinity : i + 0.5, is_odd_one ? support::nan : -i - 0.5);
            const int even = i + i % 2;
            xs.Append(KivVar(is_odd_one ? INT_MAX : even));
            ys.Append(KivVar(is_odd_one ? 0 : -even));
        }
        expect_arrays(KivContour(points), xs, ys);
    }
}

TEST(ContourToArrays, PointsKeepTheirOrderAndRepetitions)
{
    expect_arrays({{5, 1}, {2, 9}, {5, 1}, {0, 0}}, {5, 2, 5, 0}, {1, 9, 1, 0});
}

TEST(ContourToArrays, IntsAtTheEndsOfTheRangeAreExact)
{
    expect_arrays({{2147483647.0, -2147483648.0}, {2147483646.0, -2147483647.0}}, {INT_MAX, INT_MAX - 1},
                  {INT_MIN, INT_MIN + 1});
    expect_arrays({{2147483646.5, 2147483645.5}, {-2147483647.5, -2147483646.5}}, {INT_MAX - 1, INT_MIN},
                  {INT_MAX - 1, INT_MIN + 2});
}

TEST(ContourToArrays, CoordinatesAboveAllIntsGiveTheHighest)
{
    for (const double highest : {two_to_31 - 0.5, two_to_31, two_to_31 + 1, 1e10, 1e300, infinity}) {
        expect_arrays({{highest, 1}, {2, highest}}, {INT_MAX, 2}, {1, INT_MAX});
    }
}

TEST(ContourToArrays, CoordinatesBelowAllIntsGiveTheLowest)
{
    for (const double lowest : {-two_to_31 - 0.5, -two_to_31 - 1, -1e10, -1e300, -infinity}) {
        expect_arrays({{lowest, 1}, {2, lowest}}, {INT_MIN, 2}, {1, INT_MIN});
    }
}

TEST(ContourToArrays, NaNGivesZero)
{
    expect_arrays({{support::nan, 1}, {2, support::nan}, {-support::nan, 3}}, {0, 2, 0}, {1, 0, 3});
}

TEST(ContourToArrays, TheElementsAreInts)
{
    KivContour contour = {{1.25, 2.75}};
    KivVarArray xs;
    KivVarArray ys;
    ASSERT_EQ(KivContourToVarArray(contour, &xs, &ys), KIVMV::KIVMV_OK);
    ASSERT_EQ(xs.Length(), 1);
    ASSERT_EQ(ys.Length(), 1);
    EXPECT_EQ(xs[0].ValType(), KivVar::IntKind);
    EXPECT_EQ(ys[0].ValType(), KivVar::IntKind);
}

TEST(ContourToArrays, AContourWithoutPointsIsRefusedAndBothArraysAreEmptied)
{
    expect_result({}, KIVMV::KIVMV_ERR_PARAM_1, {}, {});
}

} // namespace
