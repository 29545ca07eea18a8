// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

using ArraysContract = ContractTest;

TEST_F(ArraysContract, RegionToVarArrayListsThePaintedPixels)
{
    KivRegion region;
    set(region, "region", 4, 2, {{1, 2, 9}, {0, 1, 1}, {1, -3, 2}});
    KivVarArray xs;
    KivVarArray ys;
    set(xs, {77});
    start();
    EXPECT_EQ(KivRegionToVarArray(region, &xs, &ys), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"region.Width()", "region.Height()", "region.GetRegionRuns()"}));
    EXPECT_EQ(xs.test_values(), (std::vector<int>{1, 0, 1, 2, 3}));
    EXPECT_EQ(ys.test_values(), (std::vector<int>{0, 1, 1, 1, 1}));
}

TEST_F(ArraysContract, VarArrayToRegionExtractsFromAMaskOfThePixels)
{
    KivVarArray xs;
    KivVarArray ys;
    set(xs, {2, -1, 0, 2});
    set(ys, {1, 1, 0, 1});
    KivRegion region;
    region.test_name = "region";
    start();
    EXPECT_EQ(KivVarArrayToRegion(xs, ys, &region), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"KivRLC()", find_contours("2x3[255 0 0 | 0 0 255]"), "~KivRLC()",
                              "region.CreateRegion(3, 2, {(0,0,0) (1,2,2)})"}));
}

TEST_F(ArraysContract, PointArrayToRegionExtractsFromAMaskOfThePixels)
{
    KivPointArray points;
    points.test_append(2.9, 1.2);
    points.test_append(-0.5, 1.0);
    points.test_append(-1.0, 0.0);
    KivRegion region;
    region.test_name = "region";
    start();
    EXPECT_EQ(KivPointArrayToRegion(points, &region), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"KivRLC()", find_contours("2x3[0 0 0 | 255 0 255]"), "~KivRLC()",
                              "region.CreateRegion(3, 2, {(1,0,0) (1,2,2)})"}));
}

TEST_F(ArraysContract, RegionToPointArrayRefusesANegativeHeightBeforeAnyPoint)
{
    KivRegion region;
    set(region, "region", 4, -1, {{1, 2, 3}});
    KivPointArray points;
    points.test_append(1.0, 1.0);
    start();
    EXPECT_THROW(KivRegionToPointArray(region, &points), cv::Exception);
    EXPECT_EQ(calls(), (Calls{"points.Clear()", "region.Width()", "region.Height()", "region.GetRegionRuns()"}));
    EXPECT_EQ(points.Length(), 0);
}
