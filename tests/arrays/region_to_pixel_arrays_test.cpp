// SPDX-License-Identifier: MIT
// Regions listed pixel by pixel: order, clipping, and arrays that are emptied before anything else.
#include "support/coordinates.h"
#include "support/rasters.h"
#include "support/sanitizer_memory.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace
{

using KIVMV::KivRegionToVarArray;
using support::same_region;
using support::same_values;

void expect_pixels(const KivRegion& region, const KivVarArray& xs, const KivVarArray& ys)
{
    KivRegion input(region);
    KivVarArray actual_xs = {KivVar(7), KivVar("text"), KivVar(0.5)};
    KivVarArray actual_ys = {KivVar(8)};
    EXPECT_EQ(KivRegionToVarArray(input, &actual_xs, &actual_ys), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_values(actual_xs, xs)) << "columns";
    EXPECT_TRUE(same_values(actual_ys, ys)) << "rows";
    EXPECT_TRUE(same_region(input, region));
}

void expect_empty(const KivRegion& region)
{
    KivRegion input(region);
    KivVarArray xs = {KivVar("text"), KivVar(2)};
    KivVarArray ys = {KivVar(1), KivVar(2), KivVar(3)};
    EXPECT_EQ(KivRegionToVarArray(input, &xs, &ys), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_EQ(xs.Length(), 0);
    EXPECT_EQ(ys.Length(), 0);
    EXPECT_TRUE(same_region(input, region));
}

TEST(RegionToPixelArrays, ARunGivesItsColumnsAndItsRowForEach)
{
    expect_pixels(KivRegion(10, 4, {{2, 3, 6}}), {3, 4, 5, 6}, {2, 2, 2, 2});
}

TEST(RegionToPixelArrays, TheElementsAreInts)
{
    KivRegion region(3, 3, {{2, 1, 1}});
    KivVarArray xs;
    KivVarArray ys;
    ASSERT_EQ(KivRegionToVarArray(region, &xs, &ys), KIVMV::KIVMV_OK);
    ASSERT_EQ(xs.Length(), 1);
    ASSERT_EQ(ys.Length(), 1);
    EXPECT_EQ(xs[0].ValType(), KivVar::IntKind);
    EXPECT_EQ(ys[0].ValType(), KivVar::IntKind);
}

TEST(RegionToPixelArrays, ARegionWithoutColumnsIsRefusedAndBothArraysAreEmptied)
{
    expect_empty(KivRegion());
    expect_empty(KivRegion(0, 5, {}));
}

TEST(RegionToPixelArrays, ARegionWithoutColumnsIsRefusedWhateverItsRuns)
{
    expect_empty(KivRegion(0, 5, {{0, 0, 3}, {1, 0, 0}}));
    expect_empty(KivRegion(0, 0, {{0, 0, 3}}));
}

TEST(RegionToPixelArrays, ColumnsPastTheFrameAreLeftOut)
{
    expect_pixels(KivRegion(1, 1, {{0, 0, 5}}), {0}, {0});
}

TEST(RegionToPixelArrays, ColumnsBeforeTheFrameAreLeftOut)
{
    expect_pixels(KivRegion(4, 2, {{1, -3, 1}}), {0, 1}, {1, 1});
}

TEST(RegionToPixelArrays, ARunPastBothSidesGivesTheWholeRow)
{
    expect_pixels(KivRegion(3, 2, {{1, -5, 8}}), {0, 1, 2}, {1, 1, 1});
}

TEST(RegionToPixelArrays, RunsBesideTheFrameGiveNothing)
{
    expect_pixels(KivRegion(3, 2, {{0, -5, -1}, {0, 3, 9}, {1, 2, 2}}), {2}, {1});
}

TEST(RegionToPixelArrays, RowsOutsideOfTheFrameGiveNothing)
{
    expect_pixels(KivRegion(3, 2, {{-1, 0, 2}, {2, 0, 2}, {INT_MIN, 0, 2}, {INT_MAX, 0, 2}, {1, 0, 0}}), {0}, {1});
}

TEST(RegionToPixelArrays, ARunAtAnySideOfTheFrameGivesWhatLiesInIt)
{
    expect_pixels(KivRegion(3, 2, {{1, 2, 3}}), {2}, {1});
    expect_pixels(KivRegion(3, 2, {{0, -1, 0}}), {0}, {0});
    expect_pixels(KivRegion(3, 2, {{0, 0, 2}, {1, 0, 2}}), {0, 1, 2, 0, 1, 2}, {0, 0, 0, 1, 1, 1});
    expect_pixels(KivRegion(3, 2, {{-1, 0, 2}}), {}, {});
    expect_pixels(KivRegion(3, 2, {{2, 0, 2}}), {}, {});
}

TEST(RegionToPixelArrays, ARunThatEndsBeforeItBeginsGivesNothing)
{
    expect_pixels(KivRegion(9, 1, {{0, 5, 4}, {0, 7, 2}, {0, 8, 8}}), {8}, {0});
    expect_pixels(KivRegion(9, 1, {{0, INT_MAX, INT_MIN}}), {}, {});
}

TEST(RegionToPixelArrays, OverlappingRunsGiveEachPixelOnce)
{
    expect_pixels(KivRegion(10, 1, {{0, 2, 5}, {0, 4, 8}}), {2, 3, 4, 5, 6, 7, 8}, {0, 0, 0, 0, 0, 0, 0});
}

TEST(RegionToPixelArrays, RunsThatShareOnePixelGiveItOnce)
{
    expect_pixels(KivRegion(9, 1, {{0, 1, 3}, {0, 3, 4}}), {1, 2, 3, 4}, {0, 0, 0, 0});
}

TEST(RegionToPixelArrays, OneArrayForBothGetsColumnsAndRowsInTurn)
{
    KivRegion region(9, 3, {{1, 4, 5}, {2, 7, 7}});
    KivVarArray both = {KivVar("text")};
    EXPECT_EQ(KivRegionToVarArray(region, &both, &both), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_values(both, {4, 1, 5, 1, 7, 2}));
}

TEST(RegionToPixelArrays, RepeatedRunsGiveEachPixelOnce)
{
    expect_pixels(KivRegion(10, 2, {{1, 2, 3}, {1, 2, 3}, {1, 3, 3}}), {2, 3}, {1, 1});
}

TEST(RegionToPixelArrays, PixelsAreOrderedByRowThenByColumnWhateverTheOrderOfTheRuns)
{
    expect_pixels(KivRegion(9, 4, {{3, 1, 2}, {0, 7, 7}, {3, 0, 0}, {1, 4, 5}, {0, 2, 3}}), {2, 3, 7, 4, 5, 0, 1, 2},
                  {0, 0, 0, 1, 1, 3, 3, 3});
}

TEST(RegionToPixelArrays, ARegionWithoutRunsGivesEmptyArrays)
{
    expect_pixels(KivRegion(1, 1, {}), {}, {});
    expect_pixels(KivRegion(50, 40, {}), {}, {});
}

TEST(RegionToPixelArrays, ARegionWithoutRowsGivesEmptyArrays)
{
    expect_pixels(KivRegion(5, 0, {{0, 0, 4}, {1, 2, 3}}), {}, {});
    expect_pixels(KivRegion(5, 0, {}), {}, {});
}

TEST(RegionToPixelArrays, RunsThatReachFarOutsideOfTheFrameCostNothingThere)
{
    EXPECT_TRUE(support::is_quick([] {
        expect_pixels(KivRegion(3, 1, {{0, INT_MIN, INT_MAX}, {0, 2, INT_MAX}, {0, INT_MIN, 0}}), {0, 1, 2}, {0, 0, 0});
    }));
}

TEST(RegionToPixelArrays, AFrameThatIsTooLargeToHoldRaisesAndTheArraysAreEmptied)
{
    KivRegion region(INT_MAX, INT_MAX, {{0, 0, 0}});
    KivVarArray xs = {KivVar(7)};
    KivVarArray ys = {KivVar(8)};
    EXPECT_TRUE(support::raises([&] { return KivRegionToVarArray(region, &xs, &ys); }));
    EXPECT_EQ(xs.Length(), 0);
    EXPECT_EQ(ys.Length(), 0);
    EXPECT_TRUE(same_region(region, KivRegion(INT_MAX, INT_MAX, {{0, 0, 0}})));
}

TEST(RegionToPixelArrays, AWideRowIsListedToItsEnd)
{
    constexpr int width = 1000;
    KivRegion region(width, 2, {{0, 0, width - 1}, {1, width - 1, width - 1}});
    std::vector<int> columns;
    for (int x = 0; x < width; ++x) {
        columns.push_back(x);
    }
    columns.push_back(width - 1);
    std::vector<int> rows(width, 0);
    rows.push_back(1);
    expect_pixels(region, KivVarArray(columns), KivVarArray(rows));
}

} // namespace
