// SPDX-License-Identifier: MIT
// The difference of regions: results worked out by hand.
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

KivRegion rest(const KivRegion& a, const KivRegion& b)
{
    return support::combined<KivRegion>(KIVMV::KivRegionSub, a, b, used);
}

// The runs of the difference of two regions that have one frame.
Runs cut(const Runs& a, const Runs& b)
{
    const KivRegion result = rest(region(a), region(b));
    EXPECT_EQ(result.Width(), 20);
    EXPECT_EQ(result.Height(), 10);
    return result.Runs();
}

// One run cut by the runs of its row: A has another run on a later row, so that no rule about the ends of the lists
// comes in.
Runs cut_one(int begin, int end, const Runs& cuts)
{
    Runs runs = cut({{1, begin, end}, {9, 0, 0}}, cuts);
    EXPECT_TRUE(!runs.empty() && runs.back() == (Run{9, 0, 0}));
    if (!runs.empty()) {
        runs.pop_back();
    }
    return runs;
}

// ---------------------------------------------------------------------------------------------------------------
// Empty operands

TEST(RegionDifferenceOfEmptyRegions, TwoEmptyOperandsGiveAnEmptyRegionAndACode)
{
    const KivRegion with_runs(0, 5, {{1, 0, 3}});
    const KivRegion with_other_runs(0, 9, {{2, 0, 3}, {1, 0, 3}});
    for (const KivRegion& a : {KivRegion(), with_runs}) {
        for (const KivRegion& b : {KivRegion(), with_other_runs}) {
            EXPECT_TRUE(
                support::gives<KivRegion>(KIVMV::KivRegionSub, a, b, used, KIVMV::KIVMV_ERR_PARAM_1, KivRegion()));
        }
    }
}

TEST(RegionDifferenceOfEmptyRegions, TheOutputMayBeEitherOfTwoEmptyOperands)
{
    KivRegion a(0, 5, {{1, 0, 3}});
    KivRegion b(0, 9, {{2, 0, 3}});
    EXPECT_EQ(KIVMV::KivRegionSub(a, b, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion()));
    EXPECT_TRUE(same(b, KivRegion(0, 9, {{2, 0, 3}})));

    a = KivRegion(0, 5, {{1, 0, 3}});
    EXPECT_EQ(KIVMV::KivRegionSub(a, b, &b), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion(0, 5, {{1, 0, 3}})));
    EXPECT_TRUE(same(b, KivRegion()));

    EXPECT_EQ(KIVMV::KivRegionSub(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion()));
}

TEST(RegionDifferenceOfEmptyRegions, AnEmptyFirstOperandGivesACopyOfTheSecond)
{
    const KivRegion full(5, 3, {{2, 5, 6}, {0, 3, 1}, {2, 0, 1}, {-4, 0, 90}});
    EXPECT_TRUE(same(rest(KivRegion(0, 100, {{0, 0, 9}, {2, 0, 9}}), full), full));
    EXPECT_TRUE(same(rest(KivRegion(), full), full));
}

TEST(RegionDifferenceOfEmptyRegions, AnEmptySecondOperandGivesACopyOfTheFirst)
{
    const KivRegion full(5, 3, {{2, 5, 6}, {0, 3, 1}, {2, 0, 1}, {-4, 0, 90}});
    EXPECT_TRUE(same(rest(full, KivRegion(0, 100, {{0, 0, 9}, {2, 0, 9}})), full));
    EXPECT_TRUE(same(rest(full, KivRegion()), full));
}

TEST(RegionDifferenceOfEmptyRegions, OnlyTheWidthDecides)
{
    const KivRegion bare(1, 0, {});
    const KivRegion full(7, 4, {{3, 1, 2}, {2, 1, 2}});
    EXPECT_TRUE(same(rest(bare, KivRegion(0, 50, {{0, 0, 0}})), bare));
    EXPECT_TRUE(same(rest(KivRegion(0, 50, {{0, 0, 0}}), bare), bare));
    EXPECT_TRUE(same(rest(bare, bare), bare));
    EXPECT_TRUE(same(rest(bare, full), bare));
    EXPECT_TRUE(same(rest(full, bare), KivRegion(7, 4, {{2, 1, 2}, {3, 1, 2}})));
}

// ---------------------------------------------------------------------------------------------------------------
// Frames

TEST(RegionDifferenceFrame, IsThatOfTheFirstOperand)
{
    const KivRegion small(100, 30, {{0, 0, 99}, {1, 0, 0}});
    const KivRegion large(200, 60, {{0, 50, 199}, {50, 0, 0}});
    EXPECT_TRUE(same(rest(small, large), KivRegion(100, 30, {{0, 0, 49}, {1, 0, 0}})));
    EXPECT_TRUE(same(rest(large, small), KivRegion(200, 60, {{0, 100, 199}, {50, 0, 0}})));
    EXPECT_TRUE(same(rest(KivRegion(9, 0, {}), large), KivRegion(9, 0, {})));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows

TEST(RegionDifferenceRows, RowsThatOnlyAHasAreKeptAndRowsThatOnlyBHasAreDropped)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {3, 0, 3}, {5, 0, 3}}, {{0, 0, 0}, {2, 0, 0}, {3, 1, 1}, {4, 0, 0}, {9, 0, 0}}),
                     {{1, 0, 3}, {3, 0, 0}, {3, 2, 3}, {5, 0, 3}}));
}

TEST(RegionDifferenceRows, WithoutRuns)
{
    EXPECT_TRUE(same(cut({}, {{1, 0, 9}, {2, 0, 9}}), {}));
    EXPECT_TRUE(same(cut({{2, 4, 9}, {1, 0, 9}, {2, 0, 1}}, {}), {{1, 0, 9}, {2, 4, 9}, {2, 0, 1}}));
    EXPECT_TRUE(same(cut({}, {}), {}));
}

TEST(RegionDifferenceRows, SharedAndUnsharedRowsInTurn)
{
    EXPECT_TRUE(
        same(cut({{1, 0, 5}, {2, 0, 5}, {3, 0, 5}, {5, 0, 5}, {6, 0, 5}, {8, 0, 5}, {9, 0, 5}, {9, 7, 8}},
                 {{0, 2, 2}, {3, 3, 3}, {4, 4, 4}, {6, 1, 2}, {7, 0, 0}, {9, 4, 9}, {11, 0, 0}}),
             {{1, 0, 5}, {2, 0, 5}, {3, 0, 2}, {3, 4, 5}, {5, 0, 5}, {6, 0, 0}, {6, 3, 5}, {8, 0, 5}, {9, 0, 3}}));
}

TEST(RegionDifferenceRows, UnsortedRowsAreGroupedAndTheRunsOfAKeepTheirOrder)
{
    EXPECT_TRUE(same(cut({{7, 3, 3}, {2, 8, 12}, {2, 0, 4}}, {{2, 10, 10}, {8, 0, 0}, {2, 3, 8}, {2, 0, 0}}),
                     {{2, 9, 9}, {2, 11, 12}, {2, 1, 2}, {7, 3, 3}}));
}

TEST(RegionDifferenceRows, NegativeRowsAndRowsBelowTheFrameAreRowsLikeAnyOther)
{
    EXPECT_TRUE(same(cut({{50, 0, 9}, {-3, 0, 9}, {-1, 0, 9}}, {{-1, 4, 5}, {60, 4, 5}, {-3, 7, 8}, {50, 1, 1}}),
                     {{-3, 0, 6}, {-3, 9, 9}, {-1, 0, 3}, {-1, 6, 9}, {50, 0, 0}, {50, 2, 9}}));
    EXPECT_TRUE(same(cut({{highest, 0, 9}, {lowest, 0, 9}}, {{lowest, 4, 5}, {highest, 8, 9}}),
                     {{lowest, 0, 3}, {lowest, 6, 9}, {highest, 0, 7}}));
}

TEST(RegionDifferenceRows, NothingIsClipped)
{
    EXPECT_TRUE(
        same(cut({{1, -8, 90}, {2, 0, 0}}, {{1, -20, -5}, {1, 40, 50}}), {{1, -4, 39}, {1, 51, 90}, {2, 0, 0}}));
}

TEST(RegionDifferenceRows, ManyRunsOnOneRow)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {1, 5, 9}, {1, 12, 12}, {1, 14, 30}, {2, 0, 0}},
                         {{1, 2, 5}, {1, 7, 7}, {1, 9, 15}, {1, 20, 21}, {1, 40, 50}}),
                     {{1, 0, 1}, {1, 6, 6}, {1, 8, 8}, {1, 16, 19}, {1, 22, 30}, {2, 0, 0}}));
}

TEST(RegionDifferenceRows, OverlappingRunsOfAAreCutEachForItself)
{
    EXPECT_TRUE(same(cut({{1, 0, 5}, {1, 0, 5}, {1, 3, 8}, {2, 0, 0}}, {{1, 4, 4}}),
                     {{1, 0, 3}, {1, 5, 5}, {1, 0, 3}, {1, 5, 5}, {1, 3, 3}, {1, 5, 8}, {2, 0, 0}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Cuts

TEST(RegionDifferenceCuts, ByOneRun)
{
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 3, 8}}), {}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 0, 20}}), {}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 3, 20}}), {}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 0, 8}}), {}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 0, 3}}), {{1, 4, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 3, 4}}), {{1, 5, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 0, 7}}), {{1, 8, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 8, 20}}), {{1, 3, 7}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 5, 8}}), {{1, 3, 4}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 4, 20}}), {{1, 3, 3}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 5, 6}}), {{1, 3, 4}, {1, 7, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 4, 7}}), {{1, 3, 3}, {1, 8, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 9, 20}}), {{1, 3, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 0, 2}}), {{1, 3, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 15, 20}}), {{1, 3, 8}}));
    EXPECT_TRUE(same(cut_one(4, 4, {{1, 4, 4}}), {}));
}

TEST(RegionDifferenceCuts, BySeveralRuns)
{
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 4, 5}, {1, 7, 7}}), {{1, 2, 3}, {1, 6, 6}, {1, 8, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 0, 3}, {1, 5, 6}, {1, 9, 20}}), {{1, 4, 4}, {1, 7, 8}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 20, 30}, {1, 40, 50}}), {{1, 2, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, -3, 1}, {1, 6, 6}}), {{1, 2, 5}, {1, 7, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 2, 5}, {1, 6, 9}}), {}));
}

TEST(RegionDifferenceCuts, TheRunsOfBAreTakenInTheOrderOfTheirFirstColumns)
{
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 7, 7}, {1, 4, 5}}), {{1, 2, 3}, {1, 6, 6}, {1, 8, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 9, 20}, {1, 5, 6}, {1, 0, 3}}), {{1, 4, 4}, {1, 7, 8}}));
    EXPECT_TRUE(same(cut_one(-9, 9, {{1, 3, 3}, {1, -4, -4}}), {{1, -9, -5}, {1, -3, 2}, {1, 4, 9}}));
}

TEST(RegionDifferenceCuts, OverlappingAndRepeatedRunsOfBCutOnce)
{
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 4, 5}, {1, 4, 5}}), {{1, 2, 3}, {1, 6, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 3, 7}, {1, 4, 5}}), {{1, 2, 2}, {1, 8, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 4, 7}, {1, 3, 5}}), {{1, 2, 2}, {1, 8, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 4, 5}, {1, 6, 9}, {1, 8, 9}}), {{1, 2, 3}}));
}

TEST(RegionDifferenceCuts, WhenNothingIsLeftTheOtherRunsOfBMeetNothing)
{
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 0, 20}, {1, 5, 6}, {1, 7, 8}}), {}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 2, 9}, {1, 2, 9}}), {}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 0, 5}, {1, 4, 20}, {1, 7, 8}}), {}));
}

TEST(RegionDifferenceCuts, RunsThatBeginPastTheirEndAreCombinedByTheirEnds)
{
    // B's run reads as lying within the run: what is left overlaps
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 6, 4}}), {{1, 2, 5}, {1, 5, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 6, 5}}), {{1, 2, 5}, {1, 6, 9}}));
    // a run that begins past its end, within one of B's, is covered; apart from it, it stays
    EXPECT_TRUE(same(cut_one(6, 4, {{1, 2, 9}}), {}));
    EXPECT_TRUE(same(cut_one(6, 4, {{1, 8, 9}}), {{1, 6, 4}}));
    EXPECT_TRUE(same(cut_one(6, 4, {{1, 0, 3}}), {{1, 6, 4}}));
    EXPECT_TRUE(same(cut_one(6, 4, {{1, 6, 4}}), {}));
    EXPECT_TRUE(same(cut_one(3, 3, {{1, 9, 3}}), {{1, 3, 3}}));
    // of two runs with one first column the first to come cuts first
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 5, 3}, {1, 5, 6}}), {{1, 2, 4}, {1, 4, 4}, {1, 7, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 5, 6}, {1, 5, 3}}), {{1, 2, 4}, {1, 7, 9}}));
    // only the last of two pieces that overlap is cut further
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 5, 3}, {1, 8, 9}}), {{1, 2, 4}, {1, 4, 7}}));
}

TEST(RegionDifferenceCuts, ColumnsMayLieAnywhereInTheRangeOfInt)
{
    EXPECT_TRUE(same(cut_one(lowest, highest, {{1, 0, 0}}), {{1, lowest, -1}, {1, 1, highest}}));
    EXPECT_TRUE(same(cut_one(lowest, highest, {{1, lowest, highest}}), {}));
    EXPECT_TRUE(same(cut_one(lowest, highest, {{1, lowest, 3}}), {{1, 4, highest}}));
    EXPECT_TRUE(same(cut_one(lowest, highest, {{1, 3, highest}}), {{1, lowest, 2}}));
    EXPECT_TRUE(same(cut_one(lowest, lowest, {{1, highest, highest}}), {{1, lowest, lowest}}));
    EXPECT_TRUE(same(cut_one(highest, highest, {{1, lowest, lowest}}), {{1, highest, highest}}));
    EXPECT_TRUE(
        same(cut_one(lowest, highest, {{1, highest, lowest}}), {{1, lowest, highest - 1}, {1, lowest + 1, highest}}));
}

// ---------------------------------------------------------------------------------------------------------------
// The ends of the lists

TEST(RegionDifferenceListEnds, ASingleRunOfAStaysAsItIs)
{
    EXPECT_TRUE(same(cut({{1, 0, 9}}, {{1, 2, 3}}), {{1, 0, 9}}));
    EXPECT_TRUE(same(cut({{1, 0, 9}}, {{1, 0, 9}, {2, 0, 9}}), {{1, 0, 9}}));
    EXPECT_TRUE(same(cut({{1, 0, 9}}, {{1, 5, 9}, {0, 0, 9}, {1, 0, 3}}), {{1, 0, 9}}));
    EXPECT_TRUE(same(cut({{1, 0, 9}}, {{4, 0, 9}}), {{1, 0, 9}}));
    EXPECT_TRUE(same(cut({{1, 9, 0}}, {{1, 0, 9}}), {{1, 9, 0}}));
}

TEST(RegionDifferenceListEnds, ALoneLastRunAfterAnUnmatchedRowIsNotCut)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {2, 4, 6}}, {{2, 0, 9}}), {{1, 0, 3}, {2, 4, 6}}));
    EXPECT_TRUE(
        same(cut({{1, 0, 3}, {1, 5, 6}, {2, 4, 6}}, {{2, 0, 9}, {2, 4, 4}}), {{1, 0, 3}, {1, 5, 6}, {2, 4, 6}}));
    EXPECT_TRUE(same(cut({{0, 0, 9}, {1, 0, 3}, {2, 4, 6}}, {{0, 1, 8}, {2, 0, 9}, {3, 0, 0}}),
                     {{0, 0, 0}, {0, 9, 9}, {1, 0, 3}, {2, 4, 6}}));
}

TEST(RegionDifferenceListEnds, ALoneLastRunAfterAMatchedRowIsCut)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {2, 4, 6}}, {{1, 0, 0}, {2, 0, 9}}), {{1, 1, 3}}));
    EXPECT_TRUE(
        same(cut({{1, 0, 3}, {2, 4, 6}}, {{1, 9, 9}, {2, 5, 5}, {2, 9, 9}}), {{1, 0, 3}, {2, 4, 4}, {2, 6, 6}}));
}

TEST(RegionDifferenceListEnds, ALastRowOfTwoRunsIsCut)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {2, 4, 6}, {2, 8, 12}}, {{2, 0, 9}}), {{1, 0, 3}, {2, 10, 12}}));
    EXPECT_TRUE(same(cut({{2, 4, 6}, {2, 8, 12}}, {{2, 5, 9}}), {{2, 4, 4}, {2, 10, 12}}));
}

TEST(RegionDifferenceListEnds, TheLastRowOfBCutsLikeAnyOther)
{
    EXPECT_TRUE(
        same(cut({{1, 0, 9}, {2, 0, 9}}, {{1, 4, 5}, {1, 7, 7}}), {{1, 0, 3}, {1, 6, 6}, {1, 8, 9}, {2, 0, 9}}));
    EXPECT_TRUE(same(cut({{1, 0, 9}, {2, 0, 9}}, {{0, 0, 0}, {1, 4, 5}, {1, 7, 7}}),
                     {{1, 0, 3}, {1, 6, 6}, {1, 8, 9}, {2, 0, 9}}));
    EXPECT_TRUE(same(cut({{1, 0, 9}, {2, 0, 9}}, {{1, 4, 5}, {2, 7, 7}, {2, 9, 9}}),
                     {{1, 0, 3}, {1, 6, 9}, {2, 0, 6}, {2, 8, 8}}));
    EXPECT_TRUE(same(cut({{1, 0, 9}, {2, 0, 9}, {3, 0, 0}}, {{1, 4, 5}, {2, 7, 7}}),
                     {{1, 0, 3}, {1, 6, 9}, {2, 0, 6}, {2, 8, 9}, {3, 0, 0}}));
}

// ---------------------------------------------------------------------------------------------------------------
// One object as both operands

TEST(RegionDifferenceWithItself, LeavesNothingUnlessItIsASingleRun)
{
    const KivRegion a(12, 6, {{2, 0, 0}, {1, 5, 6}, {1, 0, 3}});
    EXPECT_TRUE(same(support::combined_with_itself<KivRegion>(KIVMV::KivRegionSub, a, used), KivRegion(12, 6, {})));
    const KivRegion single(12, 6, {{2, 4, 4}});
    EXPECT_TRUE(same(support::combined_with_itself<KivRegion>(KIVMV::KivRegionSub, single, used), single));
}

} // namespace
