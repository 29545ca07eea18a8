// SPDX-License-Identifier: MIT
// Contours of points with int coordinates: a contour that is reset first and not rolled back, and which of several
// faults is reported.
#include "support/coordinates.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace
{

using KIVMV::KivVarArrayToContour;
using support::same_values;

// What must come out, both for arrays that are kept packed and for arrays that somebody has reached into.
void expect_result(const KivVarArray& xs, const KivVarArray& ys, int code, const KivContour& expected)
{
    SCOPED_TRACE("columns " + support::text_of(xs) + ", rows " + support::text_of(ys));
    for (const bool reached_into : {false, true}) {
        KivVarArray input_xs = reached_into ? support::touched(xs) : xs;
        KivVarArray input_ys = reached_into ? support::touched(ys) : ys;
        KivContour contour = {{7, 8}, {9, 10}, {0.5, 0.25}, {1, 1}};
        EXPECT_EQ(KivVarArrayToContour(input_xs, input_ys, &contour), code);
        EXPECT_TRUE(same_values(contour, expected));
        EXPECT_TRUE(same_values(input_xs, xs)) << "columns";
        EXPECT_TRUE(same_values(input_ys, ys)) << "rows";
    }
}

void expect_contour(const KivVarArray& xs, const KivVarArray& ys, const KivContour& expected)
{
    expect_result(xs, ys, KIVMV::KIVMV_OK, expected);
}

// Refused, and the contour has the points before the fault.
void expect_refused(const KivVarArray& xs, const KivVarArray& ys, int code, const KivContour& points_before = {})
{
    expect_result(xs, ys, code, points_before);
}

TEST(ArraysToContour, PointsKeepTheirOrderAndRepetitions)
{
    expect_contour({5, -2, 5, 0}, {1, 9, 1, -7}, {{5, 1}, {-2, 9}, {5, 1}, {0, -7}});
}

TEST(ArraysToContour, OnePointIsEnough)
{
    expect_contour({3}, {4}, {{3, 4}});
}

TEST(ArraysToContour, AllIntsAreExact)
{
    expect_contour({INT_MAX, INT_MIN}, {INT_MIN, INT_MAX},
                   {{2147483647.0, -2147483648.0}, {-2147483648.0, 2147483647.0}});
}

TEST(ArraysToContour, DoublesAreTruncated)
{
    expect_contour({2.9, -2.9, 1}, {0.99, 3, -3.5}, {{2, 0}, {-2, 3}, {1, -3}});
}

TEST(ArraysToContour, DoublesBeyondAllIntsAreSaturatedAndNaNCountsAsZero)
{
    expect_contour({1e300, -support::infinity, support::nan}, {support::two_to_31, -1e300, support::nan},
                   {{2147483647.0, 2147483647.0}, {-2147483648.0, -2147483648.0}, {0, 0}});
    expect_contour({support::two_to_31 - 0.5}, {-support::two_to_31 + 0.5}, {{2147483647.0, -2147483647.0}});
}

TEST(ArraysToContour, AZeroIsPositive)
{
    KivVarArray xs = {-0.0, -0.5};
    KivVarArray ys = {0, -0.0};
    KivContour contour;
    ASSERT_EQ(KivVarArrayToContour(xs, ys, &contour), KIVMV::KIVMV_OK);
    ASSERT_EQ(contour.Length(), 2);
    for (const auto& point : contour.AllPoints()) {
        EXPECT_FALSE(std::signbit(point.x));
        EXPECT_FALSE(std::signbit(point.y));
    }
}

TEST(ArraysToContour, ArraysOfDifferentLengthsAreRefusedAndTheContourIsEmptied)
{
    expect_refused({1, 2, 3}, {1, 2}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({1, 2}, {1, 2, 3}, KIVMV::KIVMV_ERR_LENGTH);
}

TEST(ArraysToContour, OneEmptyArrayIsOneOfADifferentLength)
{
    expect_refused({}, {1}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({1}, {}, KIVMV::KIVMV_ERR_LENGTH);
}

TEST(ArraysToContour, TwoEmptyArraysAreRefusedAndTheContourIsEmptied)
{
    expect_refused({}, {}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ArraysToContour, AColumnThatIsNotANumberIsRefusedAndThePointsBeforeItStay)
{
    expect_refused({"1", 2, 3}, {4, 5, 6}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({1, "2", 3}, {4, 5, 6}, KIVMV::KIVMV_ERR_PARAM_1, {{1, 4}});
    expect_refused({1, 2, ""}, {4, 5, 6}, KIVMV::KIVMV_ERR_PARAM_1, {{1, 4}, {2, 5}});
}

TEST(ArraysToContour, ARowThatIsNotANumberIsRefusedAndThePointsBeforeItStay)
{
    expect_refused({1, 2, 3}, {"4", 5, 6}, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused({1, 2, 3}, {4, "5", 6}, KIVMV::KIVMV_ERR_PARAM_2, {{1, 4}});
    expect_refused({1, 2, 3}, {4, 5, ""}, KIVMV::KIVMV_ERR_PARAM_2, {{1, 4}, {2, 5}});
}

TEST(ArraysToContour, TheLengthsAreLookedAtBeforeTheKinds)
{
    expect_refused({"1", 2, 3}, {1, 2}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({1, 2, 3}, {"1", 2}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({}, {"1"}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({"1"}, {}, KIVMV::KIVMV_ERR_LENGTH);
}

TEST(ArraysToContour, OfOnePointTheColumnIsLookedAtFirst)
{
    expect_refused({"x"}, {"y"}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({1, "x", 3}, {4, "y", 6}, KIVMV::KIVMV_ERR_PARAM_1, {{1, 4}});
}

TEST(ArraysToContour, TheFirstElementThatIsNotANumberDecides)
{
    expect_refused({1, 2, "x"}, {4, "y", 6}, KIVMV::KIVMV_ERR_PARAM_2, {{1, 4}});
    expect_refused({1, "x", 3}, {4, 5, "y"}, KIVMV::KIVMV_ERR_PARAM_1, {{1, 4}});
    expect_refused({1.5, "x"}, {"y", 5}, KIVMV::KIVMV_ERR_PARAM_2);
}

TEST(ArraysToContour, OneArrayMayGiveBothCoordinates)
{
    for (const bool reached_into : {false, true}) {
        KivVarArray both = {3, -1, 7};
        if (reached_into) {
            both = support::touched(both);
        }
        KivContour contour = {{9, 9}};
        EXPECT_EQ(KivVarArrayToContour(both, both, &contour), KIVMV::KIVMV_OK);
        EXPECT_TRUE(same_values(contour, {{3, 3}, {-1, -1}, {7, 7}}));
        EXPECT_TRUE(same_values(both, {3, -1, 7}));
    }
}

TEST(ArraysToContour, OneArrayForBothCoordinatesIsRefusedLikeTwo)
{
    KivContour contour = {{9, 9}};
    KivVarArray none;
    EXPECT_EQ(KivVarArrayToContour(none, none, &contour), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_EQ(contour.Length(), 0);
    KivVarArray text = {2, "text"};
    EXPECT_EQ(KivVarArrayToContour(text, text, &contour), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same_values(contour, {{2, 2}}));
}

TEST(ArraysToContour, TheContourStaysUsable)
{
    KivContour contour = {{9, 9}};
    KivVarArray xs = {1};
    KivVarArray ys = {2};
    ASSERT_EQ(KivVarArrayToContour(xs, ys, &contour), KIVMV::KIVMV_OK);
    KivPointArray points = {{4, 5}, {6, 7}};
    ASSERT_EQ(KIVMV::KivPointArrayToContour(points, &contour), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_values(contour, {{4, 5}, {6, 7}}));
}

} // namespace
