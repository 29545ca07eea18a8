// SPDX-License-Identifier: MIT
// Regions of listed pixels: frames, runs, rejected lists and which of several faults is reported.
#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <numeric>
#include <vector>

namespace
{

using KIVMV::KivVarArrayToRegion;
using support::same_region;
using support::same_values;

const KivRegion earlier(9, 8, {{7, 3, 4}, {1, 2, 2}});

// What must come out, both for arrays that are kept packed and for arrays that somebody has reached into.
void expect_result(const KivVarArray& xs, const KivVarArray& ys, int code, const KivRegion& expected)
{
    SCOPED_TRACE("columns " + support::text_of(xs) + ", rows " + support::text_of(ys));
    for (const bool reached_into : {false, true}) {
        KivVarArray input_xs = reached_into ? support::touched(xs) : xs;
        KivVarArray input_ys = reached_into ? support::touched(ys) : ys;
        KivRegion region(earlier);
        EXPECT_EQ(KivVarArrayToRegion(input_xs, input_ys, &region), code);
        EXPECT_TRUE(same_region(region, expected));
        EXPECT_TRUE(same_values(input_xs, xs)) << "columns";
        EXPECT_TRUE(same_values(input_ys, ys)) << "rows";
    }
}

void expect_region(const KivVarArray& xs, const KivVarArray& ys, const KivRegion& expected)
{
    expect_result(xs, ys, KIVMV::KIVMV_OK, expected);
}

void expect_refused(const KivVarArray& xs, const KivVarArray& ys, int code)
{
    expect_result(xs, ys, code, earlier);
}

TEST(PixelArraysToRegion, PixelsApartAreRunsOfTheirOwn)
{
    expect_region({3, 1}, {2, 2}, KivRegion(4, 3, {{2, 1, 1}, {2, 3, 3}}));
}

TEST(PixelArraysToRegion, NeighboursInARowAreOneRun)
{
    expect_region({5, 4, 3, 5}, {1, 1, 1, 2}, KivRegion(6, 3, {{1, 3, 5}, {2, 5, 5}}));
}

// Few pixels in a large frame are sorted, where others go through a mask.
TEST(PixelArraysToRegion, FewPixelsFarApartMayComeInAnyOrder)
{
    for (int first = 0; first < 5; ++first) {
        for (int second = 0; second < 5; ++second) {
            SCOPED_TRACE(first * 10 + second);
            const int left = std::min(first, second);
            const int right = std::max(first, second);
            std::vector<::Run> runs = {{1, left, right}, {50, 50, 50}};
            if (right - left > 1) {
                runs = {{1, left, left}, {1, right, right}, {50, 50, 50}};
            }
            expect_region({50, first, second}, {50, 1, 1}, KivRegion(51, 51, runs));
        }
    }
}

TEST(PixelArraysToRegion, ARunEndsWithItsRow)
{
    for (int length = 1; length <= 40; ++length) {
        std::vector<int> xs(static_cast<std::size_t>(length) + 2);
        std::iota(xs.begin(), xs.end(), 0);
        std::vector<int> ys(xs.size(), 1);
        ys[ys.size() - 2] = ys.back() = 2;
        expect_region(KivVarArray(xs), KivVarArray(ys),
                      KivRegion(length + 2, 3, {{1, 0, length - 1}, {2, length, length + 1}}));
    }
}

TEST(PixelArraysToRegion, ALongRunComesFromEitherEnd)
{
    std::vector<int> xs(40);
    std::iota(xs.begin(), xs.end(), 0);
    const KivVarArray ys(std::vector<int>(xs.size(), 1));
    expect_region(KivVarArray(xs), ys, KivRegion(40, 2, {{1, 0, 39}}));
    expect_region(KivVarArray(std::vector<int>(xs.rbegin(), xs.rend())), ys, KivRegion(40, 2, {{1, 0, 39}}));
}

TEST(PixelArraysToRegion, ManyRunsComeInOrder)
{
    std::vector<int> xs;
    std::vector<int> ys;
    std::vector<::Run> runs;
    for (int i = 0; i < 3000; ++i) {
        const ::Run run = {i / 100, 5 * (i % 100), 5 * (i % 100) + i % 3};
        for (int x = run.colBegin; x <= run.colEnd; ++x) {
            xs.push_back(x);
            ys.push_back(run.row);
        }
        runs.push_back(run);
    }
    KivVarArray columns(xs);
    KivVarArray rows(ys);
    KivRegion region;
    EXPECT_EQ(KivVarArrayToRegion(columns, rows, &region), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_region(region, KivRegion(498, 30, runs)));
}

TEST(PixelArraysToRegion, RunsAreOrderedByRowThenByColumn)
{
    expect_region({4, 0, 2, 4, 1}, {2, 2, 0, 0, 1},
                  KivRegion(5, 3, {{0, 2, 2}, {0, 4, 4}, {1, 1, 1}, {2, 0, 0}, {2, 4, 4}}));
}

TEST(PixelArraysToRegion, FewPixelsOfALargeFrameComeInAnyOrder)
{
    expect_region({400, 3, 4, 3, -1, 7, 401}, {300, 10, 10, 10, 5, -2, 300},
                  KivRegion(402, 301, {{10, 3, 4}, {300, 400, 401}}));
}

TEST(PixelArraysToRegion, RepeatedPixelsCountOnce)
{
    expect_region({1, 2, 1, 1}, {1, 1, 1, 1}, KivRegion(3, 2, {{1, 1, 2}}));
}

TEST(PixelArraysToRegion, TheSmallestFrameIsTwoByTwo)
{
    expect_region({1}, {1}, KivRegion(2, 2, {{1, 1, 1}}));
}

TEST(PixelArraysToRegion, TheLargestColumnAndTheLargestRowMayComeFromDifferentPixels)
{
    expect_region({6, 0}, {0, 3}, KivRegion(7, 4, {{0, 6, 6}, {3, 0, 0}}));
}

TEST(PixelArraysToRegion, TheLargestColumnMayBeOnTheFirstRow)
{
    expect_region({2, 7, 1}, {1, 1, 3}, KivRegion(8, 4, {{1, 2, 2}, {1, 7, 7}, {3, 1, 1}}));
}

TEST(PixelArraysToRegion, PixelsWithANegativeCoordinateAreLeftOut)
{
    expect_region({-1, 4}, {3, 3}, KivRegion(5, 4, {{3, 4, 4}}));
    expect_region({2, 4, 0}, {-1, 3, -7}, KivRegion(5, 4, {{3, 4, 4}}));
    expect_region({-5, 4}, {-5, 3}, KivRegion(5, 4, {{3, 4, 4}}));
    expect_region({INT_MIN, 4, 0}, {3, 3, INT_MIN}, KivRegion(5, 4, {{3, 4, 4}}));
}

TEST(PixelArraysToRegion, APixelThatIsLeftOutStillEnlargesTheFrame)
{
    expect_region({-1, 4}, {9, 3}, KivRegion(5, 10, {{3, 4, 4}}));
    expect_region({8, 4}, {-2, 3}, KivRegion(9, 4, {{3, 4, 4}}));
    expect_region({4, 5, 9, -1}, {3, 3, -2, 8}, KivRegion(10, 9, {{3, 4, 5}}));
}

TEST(PixelArraysToRegion, AllPixelsMayBeLeftOut)
{
    expect_region({-1, 5}, {4, -1}, KivRegion(6, 5, {}));
}

TEST(PixelArraysToRegion, AColumnZeroListIsRefused)
{
    expect_refused({0, 0}, {0, 5}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({0}, {5}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, ARowZeroListIsRefused)
{
    expect_refused({0, 5}, {0, 0}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({5}, {0}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, TheOriginAloneIsRefused)
{
    expect_refused({0}, {0}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, NegativeColumnsOnlyAreRefused)
{
    expect_refused({-1, -4}, {3, 3}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({INT_MIN}, {3}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, NegativeRowsOnlyAreRefused)
{
    expect_refused({3, 3}, {-1, -4}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({3}, {INT_MIN}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, TwoEmptyArraysAreRefused)
{
    expect_refused({}, {}, KIVMV::KIVMV_ERR_LENGTH);
}

TEST(PixelArraysToRegion, ArraysOfDifferentLengthsAreRefused)
{
    expect_refused({1, 2, 3}, {1, 2}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({1, 2}, {1, 2, 3}, KIVMV::KIVMV_ERR_LENGTH);
}

TEST(PixelArraysToRegion, OneEmptyArrayIsRefused)
{
    expect_refused({}, {1}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({1}, {}, KIVMV::KIVMV_ERR_LENGTH);
}

TEST(PixelArraysToRegion, AColumnThatIsNotANumberIsRefused)
{
    expect_refused({1, "2", 3}, {1, 2, 3}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({1, 2, ""}, {1, 2, 3}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, ARowThatIsNotANumberIsRefused)
{
    expect_refused({1, 2, 3}, {1, "2", 3}, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused({1, 2, 3}, {"1", 2, 3}, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused({1, 2, 3}, {1, 2, "3"}, KIVMV::KIVMV_ERR_PARAM_2);
}

TEST(PixelArraysToRegion, TheLengthsAreLookedAtBeforeTheKinds)
{
    expect_refused({"1", 2, 3}, {1, 2}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({1, 2, 3}, {"1", 2}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({}, {"1"}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({"1"}, {}, KIVMV::KIVMV_ERR_LENGTH);
}

TEST(PixelArraysToRegion, TheLengthsAreLookedAtBeforeTheMaxima)
{
    expect_refused({0, 0}, {5}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({5}, {0, 0}, KIVMV::KIVMV_ERR_LENGTH);
    expect_refused({}, {0}, KIVMV::KIVMV_ERR_LENGTH);
}

TEST(PixelArraysToRegion, OfOnePixelTheColumnIsLookedAtFirst)
{
    expect_refused({1, "x"}, {1, "y"}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({"x"}, {"y"}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, TheFirstElementThatIsNotANumberDecides)
{
    expect_refused({1, "x"}, {"y", 1}, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused({"x", 1}, {1, "y"}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({1, 2, "x"}, {1, "y", "y"}, KIVMV::KIVMV_ERR_PARAM_2);
}

TEST(PixelArraysToRegion, TheKindsAreLookedAtBeforeTheMaxima)
{
    expect_refused({0, 0}, {0, "y"}, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused({-1}, {"y"}, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused({0, "x"}, {0, 0}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, TheKindsAreLookedAtBeforeAFrameIsMade)
{
    expect_refused({INT_MAX, 1}, {INT_MAX, "y"}, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused({INT_MAX, "x"}, {INT_MAX, 1}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, RowZeroAndColumnZeroAtOnceAreRefused)
{
    expect_refused({0, -1, 0}, {0, 0, -1}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, DoublesAreTruncated)
{
    expect_region({2.9, 1}, {1.99, 2.0}, KivRegion(3, 3, {{1, 2, 2}, {2, 1, 1}}));
    expect_region({-0.9, 3}, {2, 2.5}, KivRegion(4, 3, {{2, 0, 0}, {2, 3, 3}}));
    expect_region({-1.0, 3}, {2, 2.5}, KivRegion(4, 3, {{2, 3, 3}}));
}

TEST(PixelArraysToRegion, DoublesBelowOneAreRefusedAsMaxima)
{
    expect_refused({0.99}, {5}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({5}, {0.99}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, NaNCountsAsZero)
{
    expect_region({support::nan, 1}, {1, support::nan}, KivRegion(2, 2, {{0, 1, 1}, {1, 0, 0}}));
    expect_refused({support::nan}, {5}, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({5}, {support::nan}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(PixelArraysToRegion, DoublesBelowAllIntsAreLeftOut)
{
    for (const double lowest : {-support::infinity, -1e300, -support::two_to_31, -support::two_to_31 - 0.5}) {
        expect_region({lowest, 1}, {1, 2}, KivRegion(2, 3, {{2, 1, 1}}));
        expect_region({1, 1}, {lowest, 2}, KivRegion(2, 3, {{2, 1, 1}}));
        expect_refused({lowest}, {1}, KIVMV::KIVMV_ERR_PARAM_1);
    }
}

void expect_raised(const KivVarArray& xs, const KivVarArray& ys)
{
    SCOPED_TRACE("columns " + support::text_of(xs) + ", rows " + support::text_of(ys));
    for (const bool reached_into : {false, true}) {
        KivVarArray input_xs = reached_into ? support::touched(xs) : xs;
        KivVarArray input_ys = reached_into ? support::touched(ys) : ys;
        KivRegion region(earlier);
        EXPECT_TRUE(support::raises([&] { return KivVarArrayToRegion(input_xs, input_ys, &region); }));
        EXPECT_TRUE(same_region(region, earlier));
        EXPECT_TRUE(same_values(input_xs, xs));
        EXPECT_TRUE(same_values(input_ys, ys));
    }
}

TEST(PixelArraysToRegion, AFrameThatIsTooLargeToHoldRaises)
{
    expect_raised({INT_MAX - 1}, {INT_MAX - 1});
    expect_raised({1, INT_MAX - 1, 1}, {INT_MAX - 1, 1, 1});
}

TEST(PixelArraysToRegion, AFrameOfMoreColumnsOrRowsThanAnIntCountsRaises)
{
    expect_raised({INT_MAX, 1}, {1, 1});
    expect_raised({1, 1}, {INT_MAX, 1});
    expect_raised({INT_MAX}, {INT_MAX});
    expect_raised({support::infinity}, {1e300});
    expect_raised({support::two_to_31}, {1});
    expect_raised({1}, {support::two_to_31 - 0.5});
}

TEST(PixelArraysToRegion, OneArrayMayGiveBothCoordinates)
{
    for (const bool reached_into : {false, true}) {
        KivVarArray both = {0, 2, 5, 2, -3};
        if (reached_into) {
            both = support::touched(both);
        }
        KivRegion region(earlier);
        EXPECT_EQ(KivVarArrayToRegion(both, both, &region), KIVMV::KIVMV_OK);
        EXPECT_TRUE(same_region(region, KivRegion(6, 6, {{0, 0, 0}, {2, 2, 2}, {5, 5, 5}})));
        EXPECT_TRUE(same_values(both, {0, 2, 5, 2, -3}));
    }
}

TEST(PixelArraysToRegion, OneArrayForBothCoordinatesIsRefusedLikeTwo)
{
    KivRegion region(earlier);
    KivVarArray none;
    EXPECT_EQ(KivVarArrayToRegion(none, none, &region), KIVMV::KIVMV_ERR_LENGTH);
    KivVarArray text = {1, "text"};
    EXPECT_EQ(KivVarArrayToRegion(text, text, &region), KIVMV::KIVMV_ERR_PARAM_1);
    KivVarArray zero = {0, -4};
    EXPECT_EQ(KivVarArrayToRegion(zero, zero, &region), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same_region(region, earlier));
}

} // namespace
