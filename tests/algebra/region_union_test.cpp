// SPDX-License-Identifier: MIT
// The union of regions: results worked out by hand.
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{

using support::Runs;
using support::same;

constexpr int lowest = INT_MIN;
constexpr int highest = INT_MAX;

const KivRegion used(3, 2, {{1, 1, 1}});

KivRegion region(const Runs& runs)
{
    return KivRegion(20, 10, runs);
}

KivRegion sum(const KivRegion& a, const KivRegion& b)
{
    return support::combined<KivRegion>(KIVMV::KivRegionAdd, a, b, used);
}

// The runs of the union of two regions that have one frame.
Runs united(const Runs& a, const Runs& b)
{
    const KivRegion result = sum(region(a), region(b));
    EXPECT_EQ(result.Width(), 20);
    EXPECT_EQ(result.Height(), 10);
    return result.Runs();
}

// A single pair of runs: A has another run on a later row, so that no rule about the ends of the lists comes in.
Runs pair(int a_begin, int a_end, int b_begin, int b_end)
{
    Runs runs = united({{1, a_begin, a_end}, {9, 0, 0}}, {{1, b_begin, b_end}});
    EXPECT_TRUE(!runs.empty() && runs.back() == (Run{9, 0, 0}));
    if (!runs.empty()) {
        runs.pop_back();
    }
    return runs;
}

// ---------------------------------------------------------------------------------------------------------------
// Empty operands

TEST(RegionUnionOfEmptyRegions, TwoEmptyOperandsGiveAnEmptyRegionAndACode)
{
    const KivRegion with_runs(0, 5, {{1, 0, 3}});
    const KivRegion with_other_runs(0, 9, {{2, 0, 3}, {1, 0, 3}});
    for (const KivRegion& a : {KivRegion(), with_runs}) {
        for (const KivRegion& b : {KivRegion(), with_other_runs}) {
            EXPECT_TRUE(
                support::gives<KivRegion>(KIVMV::KivRegionAdd, a, b, used, KIVMV::KIVMV_ERR_PARAM_1, KivRegion()));
        }
    }
}

TEST(RegionUnionOfEmptyRegions, TheOutputMayBeEitherOfTwoEmptyOperands)
{
    KivRegion a(0, 5, {{1, 0, 3}});
    KivRegion b(0, 9, {{2, 0, 3}});
    EXPECT_EQ(KIVMV::KivRegionAdd(a, b, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion()));
    EXPECT_TRUE(same(b, KivRegion(0, 9, {{2, 0, 3}})));

    a = KivRegion(0, 5, {{1, 0, 3}});
    EXPECT_EQ(KIVMV::KivRegionAdd(a, b, &b), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion(0, 5, {{1, 0, 3}})));
    EXPECT_TRUE(same(b, KivRegion()));

    EXPECT_EQ(KIVMV::KivRegionAdd(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion()));
}

TEST(RegionUnionOfEmptyRegions, OneEmptyOperandGivesACopyOfTheOther)
{
    // verbatim: neither sorted nor in a larger frame
    const KivRegion full(8, 3, {{2, 5, 6}, {0, 3, 1}, {2, 0, 1}, {-4, 0, 90}});
    const KivRegion empty(0, 100, {{0, 0, 9}, {7, 0, 0}});
    EXPECT_TRUE(same(sum(empty, full), full));
    EXPECT_TRUE(same(sum(full, empty), full));
    EXPECT_TRUE(same(sum(KivRegion(), full), full));
    EXPECT_TRUE(same(sum(full, KivRegion()), full));
}

TEST(RegionUnionOfEmptyRegions, OnlyTheWidthDecides)
{
    // no runs and no rows, but a width
    const KivRegion bare(1, 0, {});
    EXPECT_TRUE(same(sum(bare, KivRegion(0, 50, {{0, 0, 0}})), bare));
    EXPECT_TRUE(same(sum(KivRegion(0, 50, {{0, 0, 0}}), bare), bare));
    EXPECT_TRUE(same(sum(bare, bare), bare));
    EXPECT_TRUE(same(sum(bare, KivRegion(7, 4, {{3, 1, 2}, {2, 1, 2}})), KivRegion(7, 4, {{2, 1, 2}, {3, 1, 2}})));
    EXPECT_TRUE(same(sum(KivRegion(7, 0, {{3, 1, 2}, {2, 1, 2}}), bare), KivRegion(7, 0, {{2, 1, 2}, {3, 1, 2}})));
}

// ---------------------------------------------------------------------------------------------------------------
// Frames

TEST(RegionUnionFrame, IsAsWideAsTheWiderAndAsHighAsTheHigherOperand)
{
    const KivRegion wide(100, 30, {{0, 0, 99}, {1, 0, 0}});
    const KivRegion high(40, 60, {{50, 0, 39}});
    const KivRegion both(100, 60, {{0, 0, 99}, {1, 0, 0}, {50, 0, 39}});
    EXPECT_TRUE(same(sum(wide, high), both));
    EXPECT_TRUE(same(sum(high, wide), KivRegion(100, 60, {{50, 0, 39}, {0, 0, 99}, {1, 0, 0}})));

    EXPECT_TRUE(same(sum(KivRegion(40, 30, {}), KivRegion(100, 60, {})), KivRegion(100, 60, {})));
    EXPECT_TRUE(same(sum(KivRegion(100, 60, {}), KivRegion(40, 30, {})), KivRegion(100, 60, {})));
    EXPECT_TRUE(same(sum(KivRegion(3, 3, {}), KivRegion(3, 3, {})), KivRegion(3, 3, {})));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows

TEST(RegionUnionRows, WithoutRunsInOneOperandTheOtherIsSorted)
{
    EXPECT_TRUE(same(united({}, {{4, 0, 1}, {2, 3, 4}, {4, 9, 9}}), {{2, 3, 4}, {4, 0, 1}, {4, 9, 9}}));
    EXPECT_TRUE(same(united({{4, 7, 8}, {2, 3, 4}, {4, 0, 0}}, {}), {{2, 3, 4}, {4, 7, 8}, {4, 0, 0}}));
    EXPECT_TRUE(same(united({}, {{4, 0, 1}}), {{4, 0, 1}}));
    EXPECT_TRUE(same(united({{4, 0, 1}}, {}), {{4, 0, 1}}));
    EXPECT_TRUE(same(united({}, {}), {}));
}

TEST(RegionUnionRows, DisjointRowsGiveAThenB)
{
    const Runs low = {{0, 0, 1}, {1, 2, 3}, {2, 4, 5}};
    const Runs high = {{5, 6, 7}, {6, 8, 9}};
    EXPECT_TRUE(same(united(low, high), {{0, 0, 1}, {1, 2, 3}, {2, 4, 5}, {5, 6, 7}, {6, 8, 9}}));
    EXPECT_TRUE(same(united(high, low), {{5, 6, 7}, {6, 8, 9}, {0, 0, 1}, {1, 2, 3}, {2, 4, 5}}));
    // rows of B before, between and after A's
    EXPECT_TRUE(same(united({{1, 0, 0}, {3, 0, 0}}, {{0, 5, 5}, {2, 5, 5}, {2, 7, 7}, {4, 5, 5}}),
                     {{1, 0, 0}, {3, 0, 0}, {0, 5, 5}, {2, 5, 5}, {2, 7, 7}, {4, 5, 5}}));
}

TEST(RegionUnionRows, SharedAndUnsharedRowsInTurn)
{
    EXPECT_TRUE(same(united({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {5, 0, 0}, {6, 0, 0}, {8, 0, 0}, {9, 0, 0}},
                            {{0, 4, 4}, {3, 4, 4}, {4, 4, 4}, {6, 4, 4}, {7, 4, 4}, {9, 4, 4}}),
                     {{1, 0, 0},
                      {2, 0, 0},
                      {3, 0, 0},
                      {3, 4, 4},
                      {5, 0, 0},
                      {6, 0, 0},
                      {6, 4, 4},
                      {8, 0, 0}, // the group before A's last run, unmatched, takes that run with it
                      {9, 0, 0},
                      {0, 4, 4},
                      {4, 4, 4},
                      {7, 4, 4}}));
}

TEST(RegionUnionRows, UnsortedInputIsGroupedByRowAndKeepsItsOrderWithinARow)
{
    // A: row 2 as 5-6, 0-1; row 7 as 3-3. B: row 2 as 12-13, 9-9; row 4 as 1-1, 0-0.
    EXPECT_TRUE(
        same(united({{7, 3, 3}, {2, 5, 6}, {2, 0, 1}}, {{4, 1, 1}, {2, 12, 13}, {4, 0, 0}, {2, 9, 9}}), {{2, 5, 6},
                                                                                                         {2, 12, 13},
                                                                                                         {2, 5, 6},
                                                                                                         {2, 9, 9},
                                                                                                         {2, 0, 1},
                                                                                                         {2, 12, 13},
                                                                                                         {2, 0, 1},
                                                                                                         {2, 9, 9},
                                                                                                         {7, 3, 3},
                                                                                                         {4, 1, 1},
                                                                                                         {4, 0, 0}}));
}

TEST(RegionUnionRows, NegativeRowsAndRowsBelowTheFrameAreRowsLikeAnyOther)
{
    EXPECT_TRUE(same(united({{50, 0, 1}, {-3, 0, 1}, {-1, 0, 1}}, {{-1, 4, 5}, {-2, 4, 5}, {60, 4, 5}, {-3, 4, 5}}),
                     {{-3, 0, 1}, {-3, 4, 5}, {-1, 0, 1}, {-1, 4, 5}, {50, 0, 1}, {-2, 4, 5}, {60, 4, 5}}));
    EXPECT_TRUE(
        same(united({{highest, 0, 1}, {lowest, 0, 1}, {highest, 3, 3}}, {{lowest, 4, 5}, {highest, 8, 9}}),
             {{lowest, 0, 1}, {lowest, 4, 5}, {highest, 0, 1}, {highest, 8, 9}, {highest, 3, 3}, {highest, 8, 9}}));
}

TEST(RegionUnionRows, NothingIsClipped)
{
    EXPECT_TRUE(same(united({{1, -8, 40}, {9, 0, 0}}, {{1, 30, 90}}), {{1, -8, 90}, {9, 0, 0}}));
    EXPECT_TRUE(same(united({{1, -8, -4}, {9, 0, 0}}, {{1, 30, 90}}), {{1, -8, -4}, {1, 30, 90}, {9, 0, 0}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Pairs

TEST(RegionUnionPairs, RunsThatShareColumnsBecomeTheirHull)
{
    EXPECT_TRUE(same(pair(2, 8, 5, 12), {{1, 2, 12}}));
    EXPECT_TRUE(same(pair(5, 12, 2, 8), {{1, 2, 12}}));
    EXPECT_TRUE(same(pair(2, 4, 4, 9), {{1, 2, 9}})); // one column shared
    EXPECT_TRUE(same(pair(4, 9, 2, 4), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(3, 4, 2, 9), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(2, 9, 3, 4), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(2, 9, 2, 9), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(2, 9, 2, 4), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(2, 4, 2, 9), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(2, 9, 4, 9), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(4, 9, 2, 9), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(5, 5, 5, 5), {{1, 5, 5}}));
}

TEST(RegionUnionPairs, RunsThatOnlyTouchAreNotJoined)
{
    EXPECT_TRUE(same(pair(2, 4, 5, 9), {{1, 2, 4}, {1, 5, 9}}));
    EXPECT_TRUE(same(pair(5, 9, 2, 4), {{1, 2, 4}, {1, 5, 9}}));
}

TEST(RegionUnionPairs, RunsApartAreBothGivenTheLeftOneFirst)
{
    EXPECT_TRUE(same(pair(6, 9, 2, 4), {{1, 2, 4}, {1, 6, 9}}));
    EXPECT_TRUE(same(pair(2, 4, 6, 9), {{1, 2, 4}, {1, 6, 9}}));
}

TEST(RegionUnionPairs, RunsThatBeginPastTheirEndAreCombinedByTheirEnds)
{
    EXPECT_TRUE(same(pair(3, 3, 9, 3), {{1, 9, 3}}));
    EXPECT_TRUE(same(pair(3, 2, 9, 3), {{1, 9, 2}}));
    EXPECT_TRUE(same(pair(3, 5, 9, 3), {{1, 3, 5}}));
    EXPECT_TRUE(same(pair(6, 2, 3, 4), {{1, 3, 4}}));
    EXPECT_TRUE(same(pair(6, 2, 8, 9), {{1, 6, 2}, {1, 8, 9}}));
    EXPECT_TRUE(same(pair(6, 2, 0, 1), {{1, 0, 1}, {1, 6, 2}}));
    EXPECT_TRUE(same(pair(2, 8, 6, 4), {{1, 2, 8}}));
    EXPECT_TRUE(same(pair(2, 3, 6, 5), {{1, 2, 3}, {1, 6, 5}}));
    EXPECT_TRUE(same(pair(6, 2, 6, 2), {{1, 6, 2}}));
}

TEST(RegionUnionPairs, ColumnsMayLieAnywhereInTheRangeOfInt)
{
    EXPECT_TRUE(same(pair(lowest, 0, 0, highest), {{1, lowest, highest}}));
    EXPECT_TRUE(same(pair(highest, highest, lowest, lowest), {{1, lowest, lowest}, {1, highest, highest}}));
    EXPECT_TRUE(same(pair(lowest, highest, 3, 4), {{1, lowest, highest}}));
    EXPECT_TRUE(same(pair(highest, lowest, 3, 4), {{1, 3, 4}}));
    EXPECT_TRUE(same(pair(3, 4, highest, lowest), {{1, 3, 4}}));
    EXPECT_TRUE(same(pair(lowest, -1, 0, highest), {{1, lowest, -1}, {1, 0, highest}}));
}

TEST(RegionUnionPairs, EveryRunOfARowMeetsEveryOther)
{
    EXPECT_TRUE(
        same(united({{1, 0, 10}, {2, 0, 0}}, {{1, 2, 3}, {1, 5, 6}}), {{1, 0, 10}, {1, 0, 10}, {2, 0, 0}})); // p * q
    EXPECT_TRUE(
        same(united({{1, 0, 0}, {1, 8, 8}, {2, 0, 0}}, {{1, 2, 3}, {1, 5, 6}}), // 2 * p * q
             {{1, 0, 0}, {1, 2, 3}, {1, 0, 0}, {1, 5, 6}, {1, 2, 3}, {1, 8, 8}, {1, 5, 6}, {1, 8, 8}, {2, 0, 0}}));
}

TEST(RegionUnionPairs, RepeatedRunsArePairedOneByOne)
{
    EXPECT_TRUE(same(united({{1, 0, 2}, {1, 0, 2}, {2, 0, 0}}, {{1, 0, 2}, {1, 0, 2}, {4, 1, 1}, {4, 1, 1}}),
                     {{1, 0, 2}, {1, 0, 2}, {1, 0, 2}, {1, 0, 2}, {2, 0, 0}, {4, 1, 1}, {4, 1, 1}}));
}

// ---------------------------------------------------------------------------------------------------------------
// The ends of the lists

TEST(RegionUnionListEnds, ASingleRunOfALosesBOnItsRow)
{
    EXPECT_TRUE(same(united({{3, 0, 9}}, {{3, 2, 4}, {4, 0, 1}}), {{3, 0, 9}, {4, 0, 1}}));
    EXPECT_TRUE(same(united({{3, 0, 1}}, {{3, 4, 5}}), {{3, 0, 1}}));
    EXPECT_TRUE(same(united({{3, 0, 1}}, {{3, 4, 5}, {3, 7, 8}}), {{3, 0, 1}}));
    EXPECT_TRUE(same(united({{3, 0, 1}}, {{3, 7, 8}, {1, 4, 5}}), {{3, 0, 1}, {1, 4, 5}}));
    EXPECT_TRUE(
        same(united({{3, 0, 1}}, {{1, 4, 5}, {3, 7, 8}, {3, 0, 0}, {5, 4, 4}}), {{3, 0, 1}, {1, 4, 5}, {5, 4, 4}}));
}

TEST(RegionUnionListEnds, ALoneLastRunAfterAnUnmatchedRowIsNotPaired)
{
    EXPECT_TRUE(same(united({{1, 0, 3}, {1, 10, 12}, {2, 0, 1}}, {{2, 5, 6}}), {{1, 0, 3}, {1, 10, 12}, {2, 0, 1}}));
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 0, 1}}, {{2, 5, 6}, {3, 7, 7}}), {{1, 0, 3}, {2, 0, 1}, {3, 7, 7}}));
    // a row matched earlier changes nothing
    EXPECT_TRUE(same(united({{0, 0, 0}, {1, 0, 3}, {2, 0, 1}}, {{0, 5, 6}, {2, 5, 6}}),
                     {{0, 0, 0}, {0, 5, 6}, {1, 0, 3}, {2, 0, 1}}));
}

TEST(RegionUnionListEnds, ALoneLastRunAfterAMatchedRowIsPaired)
{
    EXPECT_TRUE(
        same(united({{1, 0, 3}, {2, 0, 1}}, {{1, 5, 6}, {2, 5, 6}}), {{1, 0, 3}, {1, 5, 6}, {2, 0, 1}, {2, 5, 6}}));
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 0, 1}}, {{1, 5, 6}, {2, 5, 6}, {2, 1, 2}, {7, 0, 0}}),
                     {{1, 0, 3}, {1, 5, 6}, {2, 0, 1}, {2, 5, 6}, {2, 0, 2}, {7, 0, 0}}));
}

TEST(RegionUnionListEnds, ALastRowOfTwoRunsIsPaired)
{
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 0, 1}, {2, 8, 9}}, {{2, 5, 6}}),
                     {{1, 0, 3}, {2, 0, 1}, {2, 5, 6}, {2, 5, 6}, {2, 8, 9}}));
    EXPECT_TRUE(same(united({{2, 0, 1}, {2, 8, 9}}, {{2, 5, 6}}), {{2, 0, 1}, {2, 5, 6}, {2, 5, 6}, {2, 8, 9}}));
}

TEST(RegionUnionListEnds, TheLastRowOfBIsPairedLikeAnyOther)
{
    EXPECT_TRUE(same(united({{1, 0, 1}, {5, 0, 0}}, {{1, 3, 4}}), {{1, 0, 1}, {1, 3, 4}, {5, 0, 0}}));
    EXPECT_TRUE(same(united({{1, 0, 1}, {5, 0, 0}}, {{1, 3, 4}, {1, 6, 7}}),
                     {{1, 0, 1}, {1, 3, 4}, {1, 0, 1}, {1, 6, 7}, {5, 0, 0}}));
    // B's rows above, shared or not
    EXPECT_TRUE(same(united({{1, 0, 1}, {5, 0, 0}}, {{0, 9, 9}, {1, 3, 4}, {1, 6, 7}}),
                     {{1, 0, 1}, {1, 3, 4}, {1, 0, 1}, {1, 6, 7}, {5, 0, 0}, {0, 9, 9}}));
    EXPECT_TRUE(same(united({{0, 0, 0}, {1, 0, 1}, {5, 0, 0}}, {{0, 9, 9}, {1, 3, 4}, {1, 6, 7}}),
                     {{0, 0, 0}, {0, 9, 9}, {1, 0, 1}, {1, 3, 4}, {1, 0, 1}, {1, 6, 7}, {5, 0, 0}}));
    // after it B is exhausted
    EXPECT_TRUE(same(united({{1, 0, 1}, {5, 0, 0}, {6, 0, 0}, {7, 0, 0}, {7, 2, 2}}, {{1, 3, 4}, {1, 6, 7}}),
                     {{1, 0, 1}, {1, 3, 4}, {1, 0, 1}, {1, 6, 7}, {5, 0, 0}, {6, 0, 0}, {7, 0, 0}, {7, 2, 2}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Many rows

TEST(RegionUnion, OfManyRowsOfOneRunEach)
{
    for (const int rows : {63, 64, 65, 127, 128, 129, 600}) {
        Runs a;
        Runs b;
        Runs both;
        for (int row = 0; row < rows; ++row) {
            a.push_back({row, 0, 1});
            b.push_back({row, 4, 5});
            both.insert(both.end(), {a.back(), b.back()});
        }
        EXPECT_TRUE(same(sum(KivRegion(6, rows, a), KivRegion(6, rows, b)), KivRegion(6, rows, both))) << rows;
    }
}

// ---------------------------------------------------------------------------------------------------------------
// One object as both operands

TEST(RegionUnionWithItself, PairsEveryRowWithItself)
{
    const KivRegion a(12, 6, {{2, 0, 0}, {1, 0, 3}, {1, 5, 6}});
    EXPECT_TRUE(same(support::combined_with_itself<KivRegion>(KIVMV::KivRegionAdd, a, used),
                     KivRegion(12, 6, {{1, 0, 3}, {1, 0, 3}, {1, 5, 6}, {1, 0, 3}, {1, 5, 6}, {1, 5, 6}, {2, 0, 0}})));
    const KivRegion single(12, 6, {{2, 4, 4}});
    EXPECT_TRUE(same(support::combined_with_itself<KivRegion>(KIVMV::KivRegionAdd, single, used), single));
}

} // namespace
