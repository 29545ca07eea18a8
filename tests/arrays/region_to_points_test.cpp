// SPDX-License-Identifier: MIT
// Regions listed as points: the runs' own order, nothing clipped, and an array that is emptied before anything else.
#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{

using KIVMV::KivRegionToPointArray;
using support::same_region;
using support::same_values;

void expect_result(const KivRegion& region, int code, const KivPointArray& expected)
{
    KivRegion input(region);
    KivPointArray points = {{7, 8}, {0.5, -3}};
    EXPECT_EQ(KivRegionToPointArray(input, &points), code);
    EXPECT_TRUE(same_values(points, expected));
    EXPECT_TRUE(same_region(input, region));
}

void expect_points(const KivRegion& region, const KivPointArray& expected)
{
    expect_result(region, KIVMV::KIVMV_OK, expected);
}

TEST(RegionToPoints, RunsAreListedInTheirOwnOrder)
{
    expect_points(KivRegion(8, 2, {{1, 2, 4}, {0, 7, 7}}), {{2, 1}, {3, 1}, {4, 1}, {7, 0}});
}

TEST(RegionToPoints, RunsOfOneRowAreListedInTheirOwnOrder)
{
    expect_points(KivRegion(8, 1, {{0, 6, 7}, {0, 1, 1}, {0, 3, 4}}), {{6, 0}, {7, 0}, {1, 0}, {3, 0}, {4, 0}});
}

TEST(RegionToPoints, PixelsOfSeveralRunsAreListedSeveralTimes)
{
    expect_points(KivRegion(8, 2, {{1, 2, 3}, {1, 3, 4}, {1, 3, 3}}), {{2, 1}, {3, 1}, {3, 1}, {4, 1}, {3, 1}});
}

TEST(RegionToPoints, RunsOutsideOfTheFrameAreListedAsTheyAre)
{
    expect_points(KivRegion(1, 1, {{5, -2, 1}, {-3, 9, 9}}), {{-2, 5}, {-1, 5}, {0, 5}, {1, 5}, {9, -3}});
}

TEST(RegionToPoints, ARegionWithoutRowsIsListed)
{
    expect_points(KivRegion(4, 0, {{0, 1, 2}}), {{1, 0}, {2, 0}});
}

TEST(RegionToPoints, ARunThatEndsBeforeItBeginsGivesNoPoints)
{
    expect_points(KivRegion(9, 9, {{0, 5, 4}, {1, 7, 2}, {2, 8, 8}, {3, INT_MAX, INT_MIN}}), {{8, 2}});
}

TEST(RegionToPoints, ARegionWithoutRunsGivesNoPoints)
{
    expect_points(KivRegion(1, 1, {}), {});
    expect_points(KivRegion(5, 0, {}), {});
}

TEST(RegionToPoints, ARegionWithoutColumnsIsRefusedAndTheArrayIsEmptied)
{
    expect_result(KivRegion(), KIVMV::KIVMV_ERR_PARAM_1, {});
    expect_result(KivRegion(0, 5, {}), KIVMV::KIVMV_ERR_PARAM_1, {});
}

TEST(RegionToPoints, ARegionWithoutColumnsIsRefusedWhateverItsRuns)
{
    expect_result(KivRegion(0, 5, {{1, 2, 3}}), KIVMV::KIVMV_ERR_PARAM_1, {});
    expect_result(KivRegion(0, 0, {{1, 2, 3}}), KIVMV::KIVMV_ERR_PARAM_1, {});
}

TEST(RegionToPoints, RunsAtTheEndsOfTheRangeOfIntAreListedToTheirLastColumn)
{
    expect_points(KivRegion(1, 1, {{INT_MAX, INT_MAX - 1, INT_MAX}, {INT_MIN, INT_MIN, INT_MIN + 1}}),
                  {{2147483646.0, 2147483647.0},
                   {2147483647.0, 2147483647.0},
                   {-2147483648.0, -2147483648.0},
                   {-2147483647.0, -2147483648.0}});
}

TEST(RegionToPoints, TheSizeOfTheFrameDoesNotMatter)
{
    EXPECT_TRUE(support::is_quick([] { expect_points(KivRegion(INT_MAX, INT_MAX, {{4, 2, 3}}), {{2, 4}, {3, 4}}); }));
}

} // namespace
