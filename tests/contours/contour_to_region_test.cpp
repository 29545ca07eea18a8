// SPDX-License-Identifier: MIT
// One contour filled into a region: truncation, frames, parts outside of the frame and coordinates beyond all ints.
#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace
{

using KIVMV::KivContourToRegion;
using support::infinity;
using support::nan;
using support::same_region;
using support::two_to_31;

const KivRegion earlier(9, 8, {{7, 3, 4}, {1, 2, 2}});

void expect_region(const KivContour& contour, const KivRegion& expected)
{
    SCOPED_TRACE(support::text_of(contour));
    KivContour input(contour);
    KivRegion region(earlier);
    EXPECT_EQ(KivContourToRegion(input, &region), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_region(region, expected));
    EXPECT_EQ(support::bits_of(input), support::bits_of(contour));
}

void expect_raised(const KivContour& contour)
{
    SCOPED_TRACE(support::text_of(contour));
    KivContour input(contour);
    KivRegion region(earlier);
    EXPECT_TRUE(
        support::is_quick([&] { EXPECT_TRUE(support::raises([&] { return KivContourToRegion(input, &region); })); }));
    EXPECT_TRUE(same_region(region, earlier));
    EXPECT_EQ(support::bits_of(input), support::bits_of(contour));
}

// All columns of all rows.
KivRegion full(int width, int height)
{
    std::vector<Run> runs;
    for (int y = 0; y < height; ++y) {
        runs.push_back({y, 0, width - 1});
    }
    return KivRegion(width, height, runs);
}

TEST(ContourToRegion, ASquareIsFilledWithItsBorder)
{
    expect_region({{1, 1}, {4, 1}, {4, 3}, {1, 3}}, KivRegion(5, 4, {{1, 1, 4}, {2, 1, 4}, {3, 1, 4}}));
}

TEST(ContourToRegion, CoordinatesAreTruncated)
{
    expect_region({{0.9, 0.9}, {10.9, 0.9}, {10.9, 10.9}, {0.9, 10.9}}, full(11, 11));
    expect_region({{2.5, 3.5}}, KivRegion(3, 4, {{3, 2, 2}}));
    expect_region({{3.5, 2.99}}, KivRegion(4, 3, {{2, 3, 3}}));
}

TEST(ContourToRegion, NegativeFractionsAreTruncatedToZero)
{
    expect_region({{-0.9, -0.9}, {2, -0.9}, {2, 1}, {-0.9, 1}}, full(3, 2));
    expect_region({{-0.9, -0.9}}, KivRegion(1, 1, {{0, 0, 0}}));
}

TEST(ContourToRegion, OnePointIsOnePixel)
{
    expect_region({{2.7, 4.2}}, KivRegion(3, 5, {{4, 2, 2}}));
    expect_region({{0, 0}}, KivRegion(1, 1, {{0, 0, 0}}));
}

TEST(ContourToRegion, TwoPointsAreALine)
{
    expect_region({{1, 2}, {5, 2}}, KivRegion(6, 3, {{2, 1, 5}}));
    expect_region({{3, 3}, {0, 0}}, KivRegion(4, 4, {{0, 0, 0}, {1, 1, 1}, {2, 2, 2}, {3, 3, 3}}));
}

TEST(ContourToRegion, RowZeroAndColumnZeroAreTaken)
{
    expect_region({{0, 0}, {4, 0}}, KivRegion(5, 1, {{0, 0, 4}}));
    expect_region({{0, 0}, {0, 2}}, KivRegion(1, 3, {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}));
}

TEST(ContourToRegion, ADiamondHasDiagonalBorders)
{
    expect_region({{2, 0}, {4, 2}, {2, 4}, {0, 2}},
                  KivRegion(5, 5, {{0, 2, 2}, {1, 1, 3}, {2, 0, 4}, {3, 1, 3}, {4, 2, 2}}));
}

TEST(ContourToRegion, AnOpenEndIsJoinedToTheBegin)
{
    expect_region({{0, 0}, {4, 4}, {0, 4}}, KivRegion(5, 5, {{0, 0, 0}, {1, 0, 1}, {2, 0, 2}, {3, 0, 3}, {4, 0, 4}}));
}

TEST(ContourToRegion, TheSenseOfTheOutlineDoesNotMatter)
{
    expect_region({{1, 3}, {4, 3}, {4, 1}, {1, 1}}, KivRegion(5, 4, {{1, 1, 4}, {2, 1, 4}, {3, 1, 4}}));
}

TEST(ContourToRegion, WhatLiesInsideTwiceIsOutside)
{
    // An 8 x 8 square, and from its first corner round a 4 x 4 one inside of it.
    expect_region({{0, 0}, {8, 0}, {8, 8}, {0, 8}, {0, 0}, {2, 2}, {6, 2}, {6, 6}, {2, 6}, {2, 2}},
                  KivRegion(9, 9,
                            {{0, 0, 8},
                             {1, 0, 8},
                             {2, 0, 8},
                             {3, 0, 2},
                             {3, 6, 8},
                             {4, 0, 2},
                             {4, 6, 8},
                             {5, 0, 2},
                             {5, 6, 8},
                             {6, 0, 8},
                             {7, 0, 8},
                             {8, 0, 8}}));
}

TEST(ContourToRegion, PartsAtNegativeCoordinatesAreCutOff)
{
    expect_region({{-3, -2}, {2, -2}, {2, 1}, {-3, 1}}, full(3, 2));
    expect_region({{-2, 1}, {2, 1}}, KivRegion(3, 2, {{1, 0, 2}}));
    expect_region({{-2, -2}, {2, 2}}, KivRegion(3, 3, {{0, 0, 0}, {1, 1, 1}, {2, 2, 2}}));
}

TEST(ContourToRegion, AllOfTheContourMayBeCutOff)
{
    expect_region({{-4, 3}, {2, -3}}, KivRegion(3, 4, {}));
}

TEST(ContourToRegion, AContourWithoutPointsIsRefused)
{
    KivContour contour;
    KivRegion region(earlier);
    EXPECT_EQ(KivContourToRegion(contour, &region), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same_region(region, earlier));
}

TEST(ContourToRegion, AnEndAtColumnMinusOneGivesAFrameWithoutColumns)
{
    expect_region({{-1, 4}, {-3, 2}}, KivRegion(0, 5, {}));
    expect_region({{-1.9, 0}}, KivRegion(0, 1, {}));
}

TEST(ContourToRegion, AnEndAtRowMinusOneGivesAFrameWithoutRows)
{
    expect_region({{4, -1}, {2, -3}}, KivRegion(5, 0, {}));
    expect_region({{0, -1.5}}, KivRegion(1, 0, {}));
}

TEST(ContourToRegion, AnEndAtMinusOneBothWaysGivesAnEmptyFrame)
{
    expect_region({{-1, -1}}, KivRegion(0, 0, {}));
    expect_region({{-5, -1.2}, {-1.7, -9}}, KivRegion(0, 0, {}));
}

TEST(ContourToRegion, AnEndBelowMinusOneRaises)
{
    expect_raised({{-2, 4}, {-3, 2}});
    expect_raised({{4, -2}, {2, -3}});
    expect_raised({{-2, -2}});
    expect_raised({{-2, -1}});
    expect_raised({{-1, -2}});
    expect_raised({{-infinity, 5}});
    expect_raised({{5, -1e300}});
    expect_raised({{-two_to_31, -two_to_31}});
}

TEST(ContourToRegion, NaNCountsAsZero)
{
    expect_region({{nan, nan}}, KivRegion(1, 1, {{0, 0, 0}}));
    expect_region({{nan, 2}, {3, nan}, {3, 2}}, KivRegion(4, 3, {{0, 3, 3}, {1, 1, 3}, {2, 0, 3}}));
    expect_region({{4, 1}, {nan, 1}}, KivRegion(5, 2, {{1, 0, 4}}));
    expect_region({{nan, 1}, {-5, 1}}, KivRegion(1, 2, {{1, 0, 0}}));
    expect_region({{-5, 1}, {nan, 1}}, KivRegion(1, 2, {{1, 0, 0}}));
    expect_region({{1, -5}, {1, nan}}, KivRegion(2, 1, {{0, 1, 1}}));
}

TEST(ContourToRegion, FarNegativeCoordinatesAreQuick)
{
    EXPECT_TRUE(support::is_quick([] {
        expect_region({{-2e9, -2e9}, {5, 5}, {5, 0}},
                      KivRegion(6, 6, {{0, 0, 5}, {1, 1, 5}, {2, 2, 5}, {3, 3, 5}, {4, 4, 5}, {5, 5, 5}}));
    }));
}

TEST(ContourToRegion, AContourFromFarAboveMayBeginAtAnyOfItsPoints)
{
    std::vector<cv::Point_<double>> points = {{5, 5}, {0, 5}, {0, -3e6}, {2, -4e6}, {5, -3e6}};
    for (std::size_t first = 0; first < points.size(); ++first) {
        expect_region(KivContour(points), full(6, 6));
        std::rotate(points.begin(), points.begin() + 1, points.end());
    }
}

TEST(ContourToRegion, ALineFromFarAwayIsQuick)
{
    EXPECT_TRUE(support::is_quick([] { expect_region({{-2e9, 3}, {2, 3}}, KivRegion(3, 4, {{3, 0, 2}})); }));
    EXPECT_TRUE(support::is_quick([] {
        expect_region({{2, -2e9}, {2, 3}}, KivRegion(3, 4, {{0, 2, 2}, {1, 2, 2}, {2, 2, 2}, {3, 2, 2}}));
    }));
}

TEST(ContourToRegion, CoordinatesBelowAllIntsAreCutOffAndQuick)
{
    for (const double lowest : {-infinity, -1e300, -two_to_31 - 1, -two_to_31 - 0.5, -two_to_31, -two_to_31 + 0.5}) {
        EXPECT_TRUE(support::is_quick([&] {
            expect_region({{lowest, lowest}, {7, lowest}, {7, 5}, {lowest, 5}}, full(8, 6));
        }));
        EXPECT_TRUE(support::is_quick([&] { expect_region({{lowest, 3}, {2, 3}}, KivRegion(3, 4, {{3, 0, 2}})); }));
    }
}

TEST(ContourToRegion, AContourFarOutsideOfItsFrameIsQuick)
{
    EXPECT_TRUE(support::is_quick([] {
        expect_region({{-2e9, 3}, {-2e9, -2e9}, {2, -2e9}, {-1e9, -1e9}}, KivRegion(3, 4, {}));
    }));
}

TEST(ContourToRegion, AFrameOfMoreColumnsOrRowsThanAnIntCountsRaises)
{
    for (const double highest : {infinity, 1e300, two_to_31 + 1, two_to_31, two_to_31 - 0.5, two_to_31 - 1}) {
        expect_raised({{highest, 1}});
        expect_raised({{1, highest}});
        expect_raised({{1, 1}, {highest, highest}});
        expect_raised({{-1, highest}, {highest, -1}});
    }
}

TEST(ContourToRegion, AFrameThatIsTooLargeToHoldRaises)
{
    expect_raised({{2147483646.0, 2147483646.0}});
    expect_raised({{1, 2147483646.9}, {2147483646.9, 1}});
}

} // namespace
