// SPDX-License-Identifier: MIT
// Regions of the pixels that points fall on: truncation, frames, rejected points and coordinates beyond all ints.
#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{

using KIVMV::KivPointArrayToRegion;
using support::infinity;
using support::nan;
using support::same_region;
using support::two_to_31;

const KivRegion earlier(9, 8, {{7, 3, 4}, {1, 2, 2}});

void expect_result(const KivPointArray& points, int code, const KivRegion& expected)
{
    SCOPED_TRACE(support::text_of(points));
    KivPointArray input(points);
    KivRegion region(earlier);
    EXPECT_EQ(KivPointArrayToRegion(input, &region), code);
    EXPECT_TRUE(same_region(region, expected));
    EXPECT_EQ(support::bits_of(input), support::bits_of(points));
}

void expect_region(const KivPointArray& points, const KivRegion& expected)
{
    expect_result(points, KIVMV::KIVMV_OK, expected);
}

void expect_refused(const KivPointArray& points)
{
    expect_result(points, KIVMV::KIVMV_ERR_PARAM_1, earlier);
}

void expect_raised(const KivPointArray& points)
{
    SCOPED_TRACE(support::text_of(points));
    KivPointArray input(points);
    KivRegion region(earlier);
    EXPECT_TRUE(support::raises([&] { return KivPointArrayToRegion(input, &region); }));
    EXPECT_TRUE(same_region(region, earlier));
    EXPECT_EQ(support::bits_of(input), support::bits_of(points));
}

TEST(PointsToRegion, ManyRunsComeInOrder)
{
    KivPointArray points;
    std::vector<::Run> runs;
    for (int i = 0; i < 3000; ++i) {
        const ::Run run = {i / 100, 25 * (i % 100), 25 * (i % 100) + i % 23};
        for (int x = run.colBegin; x <= run.colEnd; ++x) {
            points.Append(KivPoint{x + 0.75, run.row + 0.5});
        }
        runs.push_back(run);
    }
    KivRegion region;
    EXPECT_EQ(KivPointArrayToRegion(points, &region), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_region(region, KivRegion(2498, 30, runs)));
}

// Long runs of whole numbers go on in a way of their own.
TEST(PointsToRegion, LongRunsEndWhereTheirPixelsDo)
{
    for (int length = 1; length < 60; ++length) {
        KivPointArray points;
        const auto append = [&points](double x, double y) { points.Append(KivPoint{x, y}); };
        for (const int row : {1, 2, 3, 5}) {
            for (int x = 4; x < 4 + length; ++x) {
                append(x, row);
            }
            append(3 + length, row);        // again
            append(4 + length + 0.5, row);  // no whole number
            append(5 + length, row + 0.25); // neither
            append(7 + length, row);        // beyond a gap
        }
        append(-1, 5); // left out
        std::vector<::Run> runs;
        for (const int row : {1, 2, 3, 5}) {
            runs.push_back({row, 4, 5 + length});
            runs.push_back({row, 7 + length, 7 + length});
        }
        expect_region(points, KivRegion(8 + length, 6, runs));
    }
}

TEST(PointsToRegion, LongRunsEndWithTheirRows)
{
    KivPointArray points;
    std::vector<::Run> runs;
    for (int row = 1; row < 9; ++row) { // each begins where the one above ends
        runs.push_back({row, 20 * row, 20 * row + 19});
        for (int x = 20 * row; x < 20 * row + 20; ++x) {
            points.Append(KivPoint{static_cast<double>(x), static_cast<double>(row)});
        }
    }
    expect_region(points, KivRegion(180, 9, runs));
}

TEST(PointsToRegion, RepeatedPointsCountOnce)
{
    expect_region({{1, 1}, {1, 1}, {2.7, 1.2}}, KivRegion(3, 2, {{1, 1, 2}}));
}

TEST(PointsToRegion, CoordinatesAreTruncated)
{
    expect_region({{3.9, 2.99}}, KivRegion(4, 3, {{2, 3, 3}}));
    expect_region({{1.5, 2.5}}, KivRegion(2, 3, {{2, 1, 1}}));
}

TEST(PointsToRegion, NegativeFractionsBelongToColumnAndRowZero)
{
    expect_region({{-0.5, 4}, {1, 1}}, KivRegion(2, 5, {{1, 1, 1}, {4, 0, 0}}));
    expect_region({{4, -0.999}, {1, 1}}, KivRegion(5, 2, {{0, 4, 4}, {1, 1, 1}}));
    expect_region({{-0.0, 1}, {1, 0}}, KivRegion(2, 2, {{0, 1, 1}, {1, 0, 0}}));
}

TEST(PointsToRegion, PointsAtMinusOneAreLeftOut)
{
    expect_region({{-1.0, 4}, {1, 1}}, KivRegion(2, 5, {{1, 1, 1}}));
    expect_region({{4, -1.0}, {1, 1}}, KivRegion(5, 2, {{1, 1, 1}}));
}

TEST(PointsToRegion, PointsWithNegativeCoordinatesAreLeftOut)
{
    expect_region({{-3, -3}, {2, 2}}, KivRegion(3, 3, {{2, 2, 2}}));
    expect_region({{2, 2}, {-3, 1}, {1, -3}}, KivRegion(3, 3, {{2, 2, 2}}));
}

TEST(PointsToRegion, APointThatIsLeftOutStillEnlargesTheFrame)
{
    expect_region({{2, 2}, {-3, 5.5}, {7, -1}}, KivRegion(8, 6, {{2, 2, 2}}));
    expect_region({{-1, 5}, {5, -1}}, KivRegion(6, 6, {}));
}

TEST(PointsToRegion, RunsAreMaximalAndOrderedByRowThenByColumn)
{
    expect_region({{4, 2}, {0, 2}, {3, 1}, {2, 1}, {1, 1}, {3, 2}}, KivRegion(5, 3, {{1, 1, 3}, {2, 0, 0}, {2, 3, 4}}));
}

TEST(PointsToRegion, TheLargestCoordinatesAreFoundBehindSmallerAndLargerOnes)
{
    expect_region({{1, 1}, {6.5, 1}, {6.2, 3.9}, {2, 3.1}},
                  KivRegion(7, 4, {{1, 1, 1}, {1, 6, 6}, {3, 2, 2}, {3, 6, 6}}));
}

TEST(PointsToRegion, TheSmallestFrameIsTwoByTwo)
{
    expect_region({{1, 1}}, KivRegion(2, 2, {{1, 1, 1}}));
}

TEST(PointsToRegion, NoPointsAreRefused)
{
    expect_refused({});
}

TEST(PointsToRegion, PointsInRowZeroAloneAreRefused)
{
    expect_refused({{5, 0}});
    expect_refused({{5, 0.99}, {2, -3}});
}

TEST(PointsToRegion, PointsInColumnZeroAloneAreRefused)
{
    expect_refused({{0, 5}});
    expect_refused({{0, 0}, {0, 9}});
    expect_refused({{0.99, 5}, {-3, 2}});
}

TEST(PointsToRegion, TheOriginAloneIsRefused)
{
    expect_refused({{0, 0}});
}

TEST(PointsToRegion, NegativeRowsOrColumnsAloneAreRefused)
{
    expect_refused({{5, -2}});
    expect_refused({{-2, 5}});
    expect_refused({{-2, -2}, {-7, -1}});
}

TEST(PointsToRegion, ARowZeroFrameIsRefusedHoweverWide)
{
    expect_refused({{1e300, 0}});
    expect_refused({{0, infinity}});
    expect_refused({{-1, 2147483646.0}, {-2, 3}});
}

TEST(PointsToRegion, NaNCountsAsZero)
{
    expect_region({{nan, 1}, {1, 0}}, KivRegion(2, 2, {{0, 1, 1}, {1, 0, 0}}));
    expect_region({{1, 0}, {nan, 1}}, KivRegion(2, 2, {{0, 1, 1}, {1, 0, 0}}));
    expect_region({{2, nan}, {1, 3}}, KivRegion(3, 4, {{0, 2, 2}, {3, 1, 1}}));
    expect_region({{1, 3}, {2, nan}}, KivRegion(3, 4, {{0, 2, 2}, {3, 1, 1}}));
    expect_region({{-nan, -nan}, {1, 1}}, KivRegion(2, 2, {{0, 0, 0}, {1, 1, 1}}));
    expect_refused({{nan, nan}});
    expect_refused({{nan, 5}});
    expect_refused({{5, nan}});
    expect_refused({{-5, 5}, {nan, 5}});
}

TEST(PointsToRegion, CoordinatesBelowAllIntsAreLeftOut)
{
    for (const double lowest : {-infinity, -1e300, -two_to_31 - 1, -two_to_31 - 0.5, -two_to_31, -two_to_31 + 0.5}) {
        expect_region({{lowest, 1}, {1, 2}}, KivRegion(2, 3, {{2, 1, 1}}));
        expect_region({{1, 2}, {1, lowest}}, KivRegion(2, 3, {{2, 1, 1}}));
        expect_region({{lowest, lowest}, {1, 2}}, KivRegion(2, 3, {{2, 1, 1}}));
        expect_refused({{lowest, 1}});
        expect_refused({{1, lowest}});
    }
}

TEST(PointsToRegion, AFrameOfMoreColumnsOrRowsThanAnIntCountsRaises)
{
    for (const double highest : {infinity, 1e300, two_to_31 + 1, two_to_31, two_to_31 - 0.5, two_to_31 - 1}) {
        expect_raised({{highest, 1}});
        expect_raised({{1, highest}});
        expect_raised({{1, 1}, {highest, highest}});
        expect_raised({{-1, highest}, {highest, -1}});
    }
}

TEST(PointsToRegion, ALongRunToTheLargestIntRaises)
{
    KivPointArray points;
    for (double x = two_to_31 - 20; x < two_to_31 + 20; ++x) {
        points.Append(KivPoint{x, 1});
    }
    expect_raised(points);
}

TEST(PointsToRegion, AFrameThatIsTooLargeToHoldRaises)
{
    expect_raised({{2147483646.0, 2147483646.0}});
    expect_raised({{1, 2147483646.9}, {2147483646.9, 1}});
}

} // namespace
