// SPDX-License-Identifier: MIT
// Regions traced into contours: outlines, clipping, regions without pixels and rejected regions.
#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace
{

using KIVMV::KivRegionToContourArray;
using support::same_outline;
using support::same_region;
using support::same_values;

using Outline = std::vector<cv::Point_<double>>;

const KivContourArray earlier = {{{7, 8}, {9, 10}}, {{0.5, 0.25}}};

KivContourArray traced(const KivRegion& region)
{
    KivRegion input(region);
    KivContourArray contours(earlier);
    EXPECT_EQ(KivRegionToContourArray(input, &contours), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_region(input, region));
    return contours;
}

void expect_one_outline(const KivRegion& region, const Outline& expected)
{
    const KivContourArray contours = traced(region);
    ASSERT_EQ(contours.Length(), 1);
    EXPECT_TRUE(same_outline(contours[0], expected));
}

void expect_refused(const KivRegion& region)
{
    KivRegion input(region);
    KivContourArray contours(earlier);
    EXPECT_EQ(KivRegionToContourArray(input, &contours), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same_values(contours, earlier));
    EXPECT_TRUE(same_region(input, region));
}

TEST(RegionToContours, ASquareHasItsBorderPixelsAsOutline)
{
    expect_one_outline(KivRegion(6, 5, {{1, 2, 4}, {2, 2, 4}, {3, 2, 4}}),
                       {{2, 1}, {2, 2}, {2, 3}, {3, 3}, {4, 3}, {4, 2}, {4, 1}, {3, 1}});
}

TEST(RegionToContours, ASinglePixelIsOnePoint)
{
    expect_one_outline(KivRegion(6, 5, {{2, 3, 3}}), {{3, 2}});
    expect_one_outline(KivRegion(1, 1, {{0, 0, 0}}), {{0, 0}});
}

TEST(RegionToContours, PartsApartHaveContoursOfTheirOwn)
{
    const KivContourArray contours = traced(KivRegion(5, 5, {{0, 0, 0}, {2, 2, 2}, {4, 4, 4}}));
    EXPECT_EQ(contours.Length(), 3);
}

TEST(RegionToContours, DiagonalNeighboursBelongTogether)
{
    expect_one_outline(KivRegion(2, 2, {{0, 0, 0}, {1, 1, 1}}), {{0, 0}, {1, 1}});
}

TEST(RegionToContours, AHoleHasAContourOfItsOwn)
{
    const KivContourArray contours = traced(KivRegion(3, 3, {{0, 0, 2}, {1, 0, 0}, {1, 2, 2}, {2, 0, 2}}));
    ASSERT_EQ(contours.Length(), 2);
    EXPECT_NE(contours[0].IsHole(), contours[1].IsHole());
    const KivContour& hole = contours[contours[0].IsHole() ? 0 : 1];
    EXPECT_TRUE(same_outline(hole, {{1, 0}, {2, 1}, {1, 2}, {0, 1}}));
}

TEST(RegionToContours, ARunPastBothSidesIsTheWholeRow)
{
    const KivRegion whole_row(6, 3, {{1, 0, 5}});
    EXPECT_TRUE(same_values(traced(KivRegion(6, 3, {{1, -5, 11}})), traced(whole_row)));
    EXPECT_TRUE(same_values(traced(KivRegion(6, 3, {{1, INT_MIN, INT_MAX}})), traced(whole_row)));
    expect_one_outline(whole_row, {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {4, 1}, {3, 1}, {2, 1}, {1, 1}});
}

TEST(RegionToContours, RowsOutsideOfTheFrameGiveNothing)
{
    expect_one_outline(KivRegion(6, 3, {{-1, 0, 5}, {3, 0, 5}, {2, 4, 4}, {INT_MIN, 0, 5}, {INT_MAX, 0, 5}}), {{4, 2}});
}

TEST(RegionToContours, RunsBesideTheFrameGiveNothing)
{
    expect_one_outline(KivRegion(6, 3, {{1, 6, 9}, {1, -4, -1}, {2, 4, 4}}), {{4, 2}});
}

TEST(RegionToContours, ARunThatEndsBeforeItBeginsGivesNothing)
{
    expect_one_outline(KivRegion(6, 3, {{1, 3, 2}, {1, 5, 0}, {2, 4, 4}}), {{4, 2}});
}

TEST(RegionToContours, OrderRepetitionAndOverlapOfTheRunsDoNotMatter)
{
    EXPECT_TRUE(same_values(traced(KivRegion(7, 4, {{2, 3, 5}, {1, 1, 2}, {2, 1, 3}, {1, 1, 2}, {1, 2, 5}})),
                            traced(KivRegion(7, 4, {{1, 1, 5}, {2, 1, 5}}))));
}

TEST(RegionToContours, ARegionWithoutRunsHasNoContours)
{
    EXPECT_TRUE(same_values(traced(KivRegion(1, 1, {})), {}));
    EXPECT_TRUE(same_values(traced(KivRegion(50, 40, {})), {}));
}

TEST(RegionToContours, ARegionWithoutRowsHasNoContours)
{
    EXPECT_TRUE(same_values(traced(KivRegion(5, 0, {})), {}));
    EXPECT_TRUE(same_values(traced(KivRegion(5, 0, {{0, 0, 4}})), {}));
}

TEST(RegionToContours, ARegionWithoutColumnsIsRefused)
{
    expect_refused(KivRegion());
    expect_refused(KivRegion(0, 5, {}));
}

TEST(RegionToContours, ARegionWithoutColumnsIsRefusedWhateverItsRuns)
{
    expect_refused(KivRegion(0, 5, {{0, 0, 3}}));
    expect_refused(KivRegion(0, 0, {{0, 0, 3}}));
}

TEST(RegionToContours, AFrameThatIsTooLargeToHoldRaises)
{
    KivRegion region(INT_MAX, INT_MAX, {{0, 0, 0}});
    KivContourArray contours(earlier);
    EXPECT_TRUE(support::raises([&] { return KivRegionToContourArray(region, &contours); }));
    EXPECT_TRUE(same_values(contours, earlier));
}

} // namespace
