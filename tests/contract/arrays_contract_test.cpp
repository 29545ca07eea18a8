// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

namespace
{

using ArraysContract = ContractTest;

/// Two parallel arrays with an element of a kind of its own at one place in each; -1 for no place.
struct Pixels {
    Pixels(const std::vector<int>& columns, const std::vector<int>& rows, int strange_column = -1, int strange_row = -1)
    {
        fill(xs, columns, strange_column);
        fill(ys, rows, strange_row);
    }

    static void fill(KivVarArray& array, const std::vector<int>& values, int strange)
    {
        for (int i = 0; i < static_cast<int>(values.size()); ++i) {
            array.test_append(values[static_cast<std::size_t>(i)], i == strange ? 2 : 0);
        }
    }

    KivVarArray xs;
    KivVarArray ys;
};

} // namespace

TEST_F(ArraysContract, RegionToVarArrayListsThePaintedPixels)
{
    KivRegion region;
    set(region, "region", 3, 2, {{1, 2, 9}, {0, 1, 1}, {1, -3, 0}, {1, 0, 0}, {2, 0, 2}, {0, 2, 0}});
    KivVarArray xs;
    KivVarArray ys;
    xs.test_name = "xs";
    ys.test_name = "ys";
    set(xs, {77});
    const Unchanged input(region);
    start();
    EXPECT_EQ(KivRegionToVarArray(region, &xs, &ys), KIVMV_OK);
    EXPECT_EQ(xs.test_values(), (std::vector<int>{1, 0, 2}));
    EXPECT_EQ(ys.test_values(), (std::vector<int>{0, 1, 1}));
}

TEST_F(ArraysContract, RegionToVarArrayClearsBeforeItLooks)
{
    KivRegion region;
    set(region, "region", 0, 2, {{0, 0, 0}});
    KivVarArray xs;
    KivVarArray ys;
    xs.test_name = "xs";
    ys.test_name = "ys";
    const Calls expected{"xs.Clear()", "ys.Clear()"};
    start();
    EXPECT_EQ(KivRegionToVarArray(region, &xs, &ys), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), expected);

    set(region, "region", 2, -1, {{0, 0, 0}});
    start();
    EXPECT_THROW(KivRegionToVarArray(region, &xs, &ys), cv::Exception);
    EXPECT_EQ(calls(), expected);
}

TEST_F(ArraysContract, VarArrayToRegionExtractsFromAMaskOfThePixels)
{
    Pixels pixels({2, -1, 0, 2}, {1, 1, 0, 1});
    KivRegion region;
    region.test_name = "region";
    const Unchanged inputs(pixels.xs, pixels.ys);
    start();
    EXPECT_EQ(KivVarArrayToRegion(pixels.xs, pixels.ys, &region), KIVMV_OK);
    EXPECT_EQ(calls(),
              (Calls{find_contours("2x3[255 0 0 | 0 0 255]"), "region.CreateRegion(3, 2, {(0,0,0) (1,2,2)})"}));
}

TEST_F(ArraysContract, VarArrayToRegionTakesBothKindsOfNumbers)
{
    KivVarArray xs;
    KivVarArray ys;
    xs.test_append(1, 1);
    ys.test_append(1, 0);
    KivRegion region;
    EXPECT_EQ(KivVarArrayToRegion(xs, ys, &region), KIVMV_OK);
    EXPECT_EQ(KivVarArrayToRegion(ys, xs, &region), KIVMV_OK);
}

TEST_F(ArraysContract, VarArrayToRegionRefusesWithoutACall)
{
    OldRegion region;
    const auto made_of = [&](Pixels pixels) {
        return [&region, given = std::make_shared<Pixels>(std::move(pixels))] {
            const Unchanged inputs(given->xs, given->ys);
            return KivVarArrayToRegion(given->xs, given->ys, &region);
        };
    };
    expect_all({
        {"no pixels", made_of({{}, {}}), KIVMV_ERR_LENGTH, {}},
        {"no columns", made_of({{}, {1}}), KIVMV_ERR_LENGTH, {}},
        {"fewer rows", made_of({{1, 2}, {1}, 0}), KIVMV_ERR_LENGTH, {}},
        {"a strange column", made_of({{1, 2}, {1, 2}, 1}), KIVMV_ERR_PARAM_1, {}},
        {"a strange row", made_of({{1, 2}, {1, 2}, -1, 1}), KIVMV_ERR_PARAM_2, {}},
        {"both strange at once", made_of({{1, 2}, {1, 2}, 1, 1}), KIVMV_ERR_PARAM_1, {}},
        {"the row strange first", made_of({{1, 2}, {1, 2}, 1, 0}), KIVMV_ERR_PARAM_2, {}},
        {"strange in column 0", made_of({{0, 0}, {0, 0}, -1, 1}), KIVMV_ERR_PARAM_2, {}},
        {"column 0 only", made_of({{0, 0}, {0, 5}}), KIVMV_ERR_PARAM_1, {}},
        {"row 0 only", made_of({{0, 5}, {0, 0}}), KIVMV_ERR_PARAM_1, {}},
        {"negative only", made_of({{-1, -7}, {3, 3}}), KIVMV_ERR_PARAM_1, {}},
    });
    EXPECT_TRUE(region.is_old());
}

TEST_F(ArraysContract, PointArrayToRegionExtractsFromAMaskOfThePixels)
{
    KivPointArray points("points");
    points.test_append(2.9, 1.2);
    points.test_append(-0.5, 1.0);
    points.test_append(-1.0, 0.0);
    KivRegion region;
    region.test_name = "region";
    const Unchanged input(points);
    start();
    EXPECT_EQ(KivPointArrayToRegion(points, &region), KIVMV_OK);
    EXPECT_EQ(calls(),
              (Calls{find_contours("2x3[0 0 0 | 255 0 255]"), "region.CreateRegion(3, 2, {(1,0,0) (1,2,2)})"}));
}

TEST_F(ArraysContract, PointArrayToRegionRefusesWithoutACall)
{
    OldRegion region;
    KivPointArray none("points");
    KivPointArray in_row_0("points");
    in_row_0.test_append(5.0, 0.9);
    KivPointArray in_column_0("points");
    in_column_0.test_append(0.9, 5.0);
    const auto region_of = [&](KivPointArray& points) {
        return [&] { return KivPointArrayToRegion(points, &region); };
    };
    expect_all({
        {"no points", region_of(none), KIVMV_ERR_PARAM_1, {}},
        {"row 0 only", region_of(in_row_0), KIVMV_ERR_PARAM_1, {}},
        {"column 0 only", region_of(in_column_0), KIVMV_ERR_PARAM_1, {}},
    });
    EXPECT_TRUE(region.is_old());
}

TEST_F(ArraysContract, RegionToPointArrayListsTheRunsAsTheyCome)
{
    KivRegion region;
    set(region, "region", 1, 1, {{1, 2, 3}, {0, 5, 4}, {-1, -1, -1}, {1, 3, 3}});
    KivPointArray points("points");
    points.test_append(1.0, 1.0);
    const Unchanged input(region);
    start();
    EXPECT_EQ(KivRegionToPointArray(region, &points), KIVMV_OK);
    EXPECT_EQ(calls(), (Calls{"points.Clear()", "points.Append(2, 1)", "points.Append(3, 1)", "points.Append(-1, -1)",
                              "points.Append(3, 1)"}));
}

TEST_F(ArraysContract, RegionToPointArrayClearsBeforeItLooks)
{
    KivRegion region;
    set(region, "region", 0, -1, {{1, 2, 3}});
    KivPointArray points("points");
    points.test_append(1.0, 1.0);
    const Calls expected{"points.Clear()"};
    start();
    EXPECT_EQ(KivRegionToPointArray(region, &points), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), expected);

    region.test_width = 4;
    start();
    EXPECT_THROW(KivRegionToPointArray(region, &points), cv::Exception);
    EXPECT_EQ(calls(), expected);
}
