// SPDX-License-Identifier: MIT
// The intersection of regions: results worked out by hand.
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

KivRegion common(const KivRegion& a, const KivRegion& b)
{
    return support::combined<KivRegion>(KIVMV::KivRegionAnd, a, b, used);
}

// The runs of the intersection of two regions that have one frame.
Runs intersected(const Runs& a, const Runs& b)
{
    const KivRegion result = common(region(a), region(b));
    EXPECT_EQ(result.Width(), 20);
    EXPECT_EQ(result.Height(), 10);
    return result.Runs();
}

// A single pair of runs: both lists go on below, on rows that they do not share, so that no rule about their ends comes
// in.
Runs pair(int a_begin, int a_end, int b_begin, int b_end)
{
    return intersected({{1, a_begin, a_end}, {8, 0, 0}}, {{1, b_begin, b_end}, {9, 0, 0}});
}

// ---------------------------------------------------------------------------------------------------------------
// Empty operands

TEST(RegionIntersectionOfEmptyRegions, TwoEmptyOperandsGiveAnEmptyRegionAndACode)
{
    const KivRegion with_runs(0, 5, {{1, 0, 3}});
    const KivRegion with_other_runs(0, 9, {{2, 0, 3}, {1, 0, 3}});
    for (const KivRegion& a : {KivRegion(), with_runs}) {
        for (const KivRegion& b : {KivRegion(), with_other_runs}) {
            EXPECT_TRUE(
                support::gives<KivRegion>(KIVMV::KivRegionAnd, a, b, used, KIVMV::KIVMV_ERR_PARAM_1, KivRegion()));
        }
    }
}

TEST(RegionIntersectionOfEmptyRegions, TheOutputMayBeEitherOfTwoEmptyOperands)
{
    KivRegion a(0, 5, {{1, 0, 3}});
    KivRegion b(0, 9, {{2, 0, 3}});
    EXPECT_EQ(KIVMV::KivRegionAnd(a, b, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion()));
    EXPECT_TRUE(same(b, KivRegion(0, 9, {{2, 0, 3}})));

    a = KivRegion(0, 5, {{1, 0, 3}});
    EXPECT_EQ(KIVMV::KivRegionAnd(a, b, &b), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion(0, 5, {{1, 0, 3}})));
    EXPECT_TRUE(same(b, KivRegion()));

    EXPECT_EQ(KIVMV::KivRegionAnd(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, KivRegion()));
}

TEST(RegionIntersectionOfEmptyRegions, OneEmptyOperandGivesACopyOfTheOther)
{
    const KivRegion full(8, 3, {{2, 5, 6}, {0, 3, 1}, {2, 0, 1}, {-4, 0, 90}});
    const KivRegion empty(0, 100, {{0, 0, 9}, {7, 0, 0}});
    EXPECT_TRUE(same(common(empty, full), full));
    EXPECT_TRUE(same(common(full, empty), full));
    EXPECT_TRUE(same(common(KivRegion(), full), full));
    EXPECT_TRUE(same(common(full, KivRegion()), full));
}

TEST(RegionIntersectionOfEmptyRegions, OnlyTheWidthDecides)
{
    const KivRegion bare(1, 0, {});
    const KivRegion full(7, 4, {{3, 1, 2}, {2, 1, 2}});
    EXPECT_TRUE(same(common(bare, KivRegion(0, 50, {{0, 0, 0}})), bare));
    EXPECT_TRUE(same(common(KivRegion(0, 50, {{0, 0, 0}}), bare), bare));
    EXPECT_TRUE(same(common(bare, bare), bare));
    EXPECT_TRUE(same(common(bare, full), bare));
    EXPECT_TRUE(same(common(full, bare), KivRegion(7, 4, {})));
}

// ---------------------------------------------------------------------------------------------------------------
// Frames

TEST(RegionIntersectionFrame, IsThatOfTheFirstOperand)
{
    const KivRegion small(100, 30, {{0, 0, 99}, {1, 0, 0}});
    const KivRegion large(200, 60, {{0, 50, 199}, {50, 0, 0}});
    EXPECT_TRUE(same(common(small, large), KivRegion(100, 30, {{0, 50, 99}})));
    EXPECT_TRUE(same(common(large, small), KivRegion(200, 60, {{0, 50, 99}})));
    EXPECT_TRUE(same(common(KivRegion(9, 0, {{0, 0, 9}, {1, 0, 0}}), large), KivRegion(9, 0, {})));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows

TEST(RegionIntersectionRows, SharedRowsAboveTheEndOfB)
{
    EXPECT_TRUE(same(intersected({{2, 0, 9}, {5, 0, 9}, {7, 0, 0}}, {{2, 3, 4}, {2, 6, 12}, {5, 8, 9}, {9, 0, 0}}),
                     {{2, 3, 4}, {2, 6, 9}, {5, 8, 9}}));
}

TEST(RegionIntersectionRows, WithoutRunsGivesNone)
{
    EXPECT_TRUE(same(intersected({}, {{1, 0, 9}, {2, 0, 9}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {}), {}));
    EXPECT_TRUE(same(intersected({}, {}), {}));
}

TEST(RegionIntersectionRows, RowsOfOneOperandAloneGiveNothing)
{
    EXPECT_TRUE(same(intersected({{0, 0, 9}, {2, 0, 9}}, {{1, 0, 9}, {3, 0, 9}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {3, 0, 9}}, {{0, 0, 9}, {2, 0, 9}}), {}));
}

TEST(RegionIntersectionRows, SharedAndUnsharedRowsInTurn)
{
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}, {3, 0, 5}, {5, 0, 5}, {6, 0, 5}, {8, 0, 5}, {9, 0, 5}},
                                 {{0, 2, 2}, {3, 3, 3}, {4, 4, 4}, {6, 1, 2}, {7, 0, 0}, {9, 4, 9}, {11, 0, 0}}),
                     {{3, 3, 3}, {6, 1, 2}, {9, 4, 5}}));
}

TEST(RegionIntersectionRows, UnsortedInputIsGroupedByRowAndKeepsItsOrderWithinARow)
{
    // A: row 2 as 8-12, 0-4; row 7. B: row 2 as 10-11, 3-9, 0-0; row 8.
    EXPECT_TRUE(same(intersected({{7, 3, 3}, {2, 8, 12}, {2, 0, 4}}, {{2, 10, 11}, {8, 0, 0}, {2, 3, 9}, {2, 0, 0}}),
                     {{2, 10, 11}, {2, 8, 9}, {2, 3, 4}, {2, 0, 0}}));
}

TEST(RegionIntersectionRows, NegativeRowsAndRowsBelowTheFrameAreRowsLikeAnyOther)
{
    EXPECT_TRUE(
        same(intersected({{50, 0, 9}, {-3, 0, 9}, {-1, 0, 9}}, {{-1, 4, 5}, {60, 4, 5}, {-3, 7, 8}, {50, 1, 1}}),
             {{-3, 7, 8}, {-1, 4, 5}, {50, 1, 1}}));
    EXPECT_TRUE(
        same(intersected({{highest, 0, 9}, {lowest, 0, 9}}, {{lowest, 4, 5}, {highest, 8, 9}}), {{lowest, 4, 5}}));
}

TEST(RegionIntersectionRows, NothingIsClipped)
{
    EXPECT_TRUE(same(intersected({{1, -8, 90}, {2, 0, 0}}, {{1, -20, -5}, {1, 40, 50}, {3, 0, 0}}),
                     {{1, -8, -5}, {1, 40, 50}}));
}

TEST(RegionIntersectionRows, OverlappingRunsGiveTheirPiecesRepeatedly)
{
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {1, 0, 5}, {1, 3, 8}, {2, 0, 0}}, {{1, 4, 9}, {1, 4, 9}, {3, 0, 0}}),
                     {{1, 4, 5}, {1, 4, 5}, {1, 4, 5}, {1, 4, 5}, {1, 4, 8}, {1, 4, 8}}));
}

TEST(RegionIntersectionRows, ManyRunsOnOneRow)
{
    EXPECT_TRUE(same(intersected({{1, 0, 3}, {1, 5, 9}, {1, 12, 12}, {1, 14, 30}, {2, 0, 0}},
                                 {{1, 2, 5}, {1, 7, 7}, {1, 9, 15}, {1, 20, 21}, {1, 40, 50}, {3, 0, 0}}),
                     {{1, 2, 3}, {1, 5, 5}, {1, 7, 7}, {1, 9, 9}, {1, 12, 12}, {1, 14, 15}, {1, 20, 21}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Pairs

TEST(RegionIntersectionPairs, GiveWhatBothHave)
{
    EXPECT_TRUE(same(pair(2, 8, 5, 12), {{1, 5, 8}}));
    EXPECT_TRUE(same(pair(5, 12, 2, 8), {{1, 5, 8}}));
    EXPECT_TRUE(same(pair(3, 4, 2, 9), {{1, 3, 4}}));
    EXPECT_TRUE(same(pair(2, 9, 3, 4), {{1, 3, 4}}));
    EXPECT_TRUE(same(pair(2, 9, 2, 9), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair(2, 9, 2, 4), {{1, 2, 4}}));
    EXPECT_TRUE(same(pair(2, 4, 2, 9), {{1, 2, 4}}));
    EXPECT_TRUE(same(pair(2, 9, 4, 9), {{1, 4, 9}}));
    EXPECT_TRUE(same(pair(4, 9, 2, 9), {{1, 4, 9}}));
    EXPECT_TRUE(same(pair(2, 4, 4, 9), {{1, 4, 4}})); // one column shared
    EXPECT_TRUE(same(pair(4, 9, 2, 4), {{1, 4, 4}}));
}

TEST(RegionIntersectionPairs, TouchingOrApartGiveNothing)
{
    EXPECT_TRUE(same(pair(2, 4, 5, 9), {}));
    EXPECT_TRUE(same(pair(5, 9, 2, 4), {}));
    EXPECT_TRUE(same(pair(2, 4, 8, 9), {}));
    EXPECT_TRUE(same(pair(8, 9, 2, 4), {}));
}

TEST(RegionIntersectionPairs, RunsThatBeginPastTheirEndAreCombinedByTheirEnds)
{
    EXPECT_TRUE(same(pair(6, 2, 3, 4), {{1, 6, 2}})); // reads as A inside B
    EXPECT_TRUE(same(pair(2, 8, 6, 4), {{1, 6, 4}})); // reads as B inside A
    EXPECT_TRUE(same(pair(6, 2, 6, 2), {{1, 6, 2}}));
    EXPECT_TRUE(same(pair(3, 3, 9, 3), {}));
    EXPECT_TRUE(same(pair(6, 2, 0, 1), {}));
    EXPECT_TRUE(same(pair(6, 2, 8, 9), {}));
    EXPECT_TRUE(same(pair(2, 3, 6, 5), {}));
}

TEST(RegionIntersectionPairs, ColumnsMayLieAnywhereInTheRangeOfInt)
{
    EXPECT_TRUE(same(pair(lowest, 0, 0, highest), {{1, 0, 0}}));
    EXPECT_TRUE(same(pair(lowest, highest, lowest, highest), {{1, lowest, highest}}));
    EXPECT_TRUE(same(pair(highest, highest, lowest, lowest), {}));
    EXPECT_TRUE(same(pair(highest, lowest, 3, 4), {{1, highest, lowest}}));
    EXPECT_TRUE(same(pair(3, 4, highest, lowest), {{1, highest, lowest}}));
}

// ---------------------------------------------------------------------------------------------------------------
// The ends of the lists

TEST(RegionIntersectionListEnds, ASingleRunOfAGivesNothing)
{
    EXPECT_TRUE(same(intersected({{1, 0, 9}}, {{1, 3, 4}, {1, 6, 7}, {2, 0, 9}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}}, {{1, 3, 4}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}}, {{1, 3, 4}, {1, 6, 7}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}}, {{0, 3, 4}, {1, 6, 7}, {2, 0, 9}}), {}));
}

TEST(RegionIntersectionListEnds, TheLastRowOfBGivesNothingAfterAnotherSharedRow)
{
    EXPECT_TRUE(same(intersected({{2, 0, 9}, {5, 0, 9}, {7, 0, 0}}, {{2, 3, 4}, {2, 6, 12}, {5, 8, 9}}),
                     {{2, 3, 4}, {2, 6, 9}}));
    EXPECT_TRUE(same(intersected({{0, 0, 5}, {1, 0, 5}}, {{0, 2, 3}, {1, 2, 3}}), {{0, 2, 3}}));
    EXPECT_TRUE(same(intersected({{0, 0, 5}, {1, 0, 5}}, {{0, 2, 3}, {1, 2, 3}, {1, 5, 5}}), {{0, 2, 3}}));
    EXPECT_TRUE(same(intersected({{0, 0, 5}, {1, 0, 5}, {1, 7, 9}}, {{0, 2, 3}, {1, 2, 8}}), {{0, 2, 3}}));
}

TEST(RegionIntersectionListEnds, TheLastRowOfBGivesNothingAfterAnUnsharedRow)
{
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}}, {{0, 2, 3}, {1, 2, 3}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}}, {{0, 2, 3}, {1, 2, 3}, {1, 5, 5}}), {}));
}

TEST(RegionIntersectionListEnds, ALastRowThatIsAllOfBGivesItsFirstRun)
{
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {{1, 2, 3}}), {{1, 2, 3}}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {{1, 2, 3}, {1, 5, 6}}), {{1, 2, 3}}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {{1, 5, 6}, {1, 2, 3}, {1, 8, 8}}), {{1, 5, 6}}));
    EXPECT_TRUE(same(intersected({{0, 0, 9}, {1, 0, 5}, {1, 6, 9}}, {{1, 4, 7}, {1, 0, 0}}), {{1, 4, 5}, {1, 6, 7}}));
}

TEST(RegionIntersectionListEnds, TheLastRowOfAIsARowLikeAnyOther)
{
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}}, {{2, 2, 3}, {3, 0, 0}}), {{2, 2, 3}}));
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}}, {{1, 1, 1}, {2, 2, 3}, {3, 0, 0}}), {{1, 1, 1}, {2, 2, 3}}));
    EXPECT_TRUE(same(intersected({{2, 0, 3}, {2, 5, 8}}, {{2, 2, 6}, {3, 0, 0}}), {{2, 2, 3}, {2, 5, 6}}));
}

// ---------------------------------------------------------------------------------------------------------------
// One object as both operands

TEST(RegionIntersectionWithItself, LosesTheLastRow)
{
    const KivRegion a(12, 6, {{2, 0, 0}, {1, 0, 3}, {1, 5, 6}});
    EXPECT_TRUE(same(support::combined_with_itself<KivRegion>(KIVMV::KivRegionAnd, a, used),
                     KivRegion(12, 6, {{1, 0, 3}, {1, 5, 6}})));
    const KivRegion one_row(12, 6, {{2, 4, 4}, {2, 0, 1}});
    EXPECT_TRUE(same(support::combined_with_itself<KivRegion>(KIVMV::KivRegionAnd, one_row, used),
                     KivRegion(12, 6, {{2, 4, 4}})));
    const KivRegion single(12, 6, {{2, 4, 4}});
    EXPECT_TRUE(
        same(support::combined_with_itself<KivRegion>(KIVMV::KivRegionAnd, single, used), KivRegion(12, 6, {})));
}

} // namespace
