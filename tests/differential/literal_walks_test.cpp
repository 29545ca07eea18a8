// SPDX-License-Identifier: MIT
// The literal walks against results worked out by hand, and against bitmaps where an operation is a plain set
// operation.
#include "literal_walks.h"
#include "support/pixel_runs.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace
{

using literal::Runs;

constexpr int lowest = INT_MIN;
constexpr int highest = INT_MAX;

std::string text_of(const Runs& runs)
{
    std::ostringstream text;
    for (const Run& run : runs) {
        text << " (" << run.row << ", " << run.colBegin << ", " << run.colEnd << ')';
    }
    return runs.empty() ? " none" : text.str();
}

testing::AssertionResult same_runs(const Runs& actual, const Runs& expected)
{
    if (actual == expected) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "expected" << text_of(expected) << "\n     got" << text_of(actual);
}

// One pair of runs, through a walk whose list ends lie elsewhere: A has two more runs below, B one more below those.
// What the walk makes of these further runs is cut off again.
Runs on_a_middle_row(Runs (*operation)(Runs, Runs), Runs a, Runs b)
{
    constexpr int far_below = 1000;
    a.push_back({far_below, 0, 0});
    a.push_back({far_below, 2, 2});
    b.push_back({far_below + 1, 0, 0});
    Runs result;
    for (const Run& run : operation(std::move(a), std::move(b))) {
        if (run.row < far_below) {
            result.push_back(run);
        }
    }
    return result;
}

Runs united(const Run& a, const Run& b)
{
    return on_a_middle_row(literal::region_union, {a}, {b});
}

Runs intersected(const Run& a, const Run& b)
{
    return on_a_middle_row(literal::region_intersection, {a}, {b});
}

Runs cut(const Run& a, const Runs& b)
{
    return on_a_middle_row(literal::region_difference, {a}, b);
}

// ---------------------------------------------------------------------------------------------------------------
// Region union

TEST(LiteralRegionUnion, EveryRunOfASharedRowIsPairedWithEveryOther)
{
    EXPECT_TRUE(same_runs(literal::region_union({{1, 0, 10}, {2, 0, 0}}, {{1, 2, 3}, {1, 5, 6}}),
                          {{1, 0, 10}, {1, 0, 10}, {2, 0, 0}}));
    // two by two, all disjoint: eight runs, A's first run with both of B's before A's second run
    EXPECT_TRUE(same_runs(literal::region_union({{1, 0, 0}, {1, 8, 8}, {2, 0, 0}}, {{1, 2, 3}, {1, 5, 6}, {9, 0, 0}}),
                          {{1, 0, 0},
                           {1, 2, 3},
                           {1, 0, 0},
                           {1, 5, 6},
                           {1, 2, 3},
                           {1, 8, 8},
                           {1, 5, 6},
                           {1, 8, 8},
                           {2, 0, 0},
                           {9, 0, 0}}));
}

TEST(LiteralRegionUnion, WithoutRunsInAGivesB)
{
    EXPECT_TRUE(same_runs(literal::region_union({}, {{4, 0, 1}, {2, 3, 4}}), {{2, 3, 4}, {4, 0, 1}}));
    EXPECT_TRUE(same_runs(literal::region_union({}, {}), {}));
}

TEST(LiteralRegionUnion, WithoutRunsInBGivesA)
{
    EXPECT_TRUE(same_runs(literal::region_union({{4, 0, 1}, {2, 3, 4}}, {}), {{2, 3, 4}, {4, 0, 1}}));
    EXPECT_TRUE(same_runs(literal::region_union({{4, 0, 1}}, {}), {{4, 0, 1}}));
}

TEST(LiteralRegionUnion, DisjointRowsGiveAThenB)
{
    const Runs low = {{0, 0, 1}, {1, 2, 3}, {2, 4, 5}};
    const Runs high = {{5, 6, 7}, {6, 8, 9}};
    EXPECT_TRUE(same_runs(literal::region_union(low, high), {{0, 0, 1}, {1, 2, 3}, {2, 4, 5}, {5, 6, 7}, {6, 8, 9}}));
    EXPECT_TRUE(same_runs(literal::region_union(high, low), {{5, 6, 7}, {6, 8, 9}, {0, 0, 1}, {1, 2, 3}, {2, 4, 5}}));
}

TEST(LiteralRegionUnion, SingleRunOfALosesBOnItsRow)
{
    EXPECT_TRUE(same_runs(literal::region_union({{3, 0, 9}}, {{3, 2, 4}, {4, 0, 1}}), {{3, 0, 9}, {4, 0, 1}}));
    EXPECT_TRUE(same_runs(literal::region_union({{3, 0, 1}}, {{3, 4, 5}}), {{3, 0, 1}}));
    EXPECT_TRUE(same_runs(literal::region_union({{3, 0, 1}}, {{3, 4, 5}, {3, 7, 8}}), {{3, 0, 1}}));
    EXPECT_TRUE(same_runs(literal::region_union({{3, 0, 1}}, {{1, 4, 5}, {3, 7, 8}}), {{3, 0, 1}, {1, 4, 5}}));
}

TEST(LiteralRegionUnion, LoneLastRunJoinsAnUnmatchedGroup)
{
    EXPECT_TRUE(same_runs(literal::region_union({{1, 0, 3}, {1, 10, 12}, {2, 0, 1}}, {{2, 5, 6}}),
                          {{1, 0, 3}, {1, 10, 12}, {2, 0, 1}}));
}

TEST(LiteralRegionUnion, LoneLastRunAfterAMatchedGroupIsAGroupOfItsOwn)
{
    EXPECT_TRUE(same_runs(literal::region_union({{1, 0, 3}, {2, 0, 1}}, {{1, 5, 6}, {2, 5, 6}}),
                          {{1, 0, 3}, {1, 5, 6}, {2, 0, 1}, {2, 5, 6}}));
}

TEST(LiteralRegionUnion, LastRowOfTwoRunsIsPaired)
{
    EXPECT_TRUE(same_runs(literal::region_union({{1, 0, 3}, {2, 0, 1}, {2, 8, 9}}, {{2, 5, 6}}),
                          {{1, 0, 3}, {2, 0, 1}, {2, 5, 6}, {2, 5, 6}, {2, 8, 9}}));
    EXPECT_TRUE(same_runs(literal::region_union({{2, 0, 1}, {2, 8, 9}}, {{2, 5, 6}}),
                          {{2, 0, 1}, {2, 5, 6}, {2, 5, 6}, {2, 8, 9}}));
}

TEST(LiteralRegionUnion, LastRowOfBIsPairedWhetherOneRunOrTwo)
{
    EXPECT_TRUE(
        same_runs(literal::region_union({{1, 0, 1}, {5, 0, 0}}, {{1, 3, 4}}), {{1, 0, 1}, {1, 3, 4}, {5, 0, 0}}));
    EXPECT_TRUE(same_runs(literal::region_union({{1, 0, 1}, {5, 0, 0}}, {{0, 9, 9}, {1, 3, 4}, {1, 6, 7}}),
                          {{1, 0, 1}, {1, 3, 4}, {1, 0, 1}, {1, 6, 7}, {5, 0, 0}, {0, 9, 9}}));
}

TEST(LiteralRegionUnion, ScanOfBResumesAfterRowsThatALacksAndRowsThatBLacks)
{
    // Before the first shared row (1 and 3 of A unmatched, B begins at 2), between shared rows (5), and after (8).
    EXPECT_TRUE(same_runs(literal::region_union({{1, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}, {7, 0, 0}, {8, 0, 0}},
                                                {{2, 2, 2}, {4, 2, 2}, {6, 2, 2}, {7, 2, 2}, {8, 2, 2}, {9, 2, 2}}),
                          {{1, 0, 0},
                           {3, 0, 0},
                           {4, 0, 0},
                           {4, 2, 2},
                           {5, 0, 0},
                           {7, 0, 0},
                           {7, 2, 2},
                           {8, 0, 0},
                           {8, 2, 2},
                           {2, 2, 2},
                           {6, 2, 2},
                           {9, 2, 2}}));
}

TEST(LiteralRegionUnion, RowsAreSortedAndTheOrderWithinARowIsKept)
{
    EXPECT_TRUE(same_runs(literal::region_union({{5, 9, 9}, {12, 0, 0}, {5, 1, 1}}, {{13, 4, 4}, {13, 2, 2}}),
                          {{5, 9, 9}, {5, 1, 1}, {12, 0, 0}, {13, 4, 4}, {13, 2, 2}}));
    EXPECT_TRUE(
        same_runs(literal::region_union({{-1, 0, 0}, {-3, 0, 0}}, {{-2, 2, 2}}), {{-3, 0, 0}, {-1, 0, 0}, {-2, 2, 2}}));
}

TEST(LiteralRegionUnion, PairsOfRuns)
{
    EXPECT_TRUE(same_runs(united({0, 2, 8}, {0, 5, 12}), {{0, 2, 12}}));
    EXPECT_TRUE(same_runs(united({0, 5, 12}, {0, 2, 8}), {{0, 2, 12}}));
    EXPECT_TRUE(same_runs(united({0, 2, 4}, {0, 4, 9}), {{0, 2, 9}}));
    EXPECT_TRUE(same_runs(united({0, 4, 9}, {0, 2, 4}), {{0, 2, 9}}));
    EXPECT_TRUE(same_runs(united({0, 2, 4}, {0, 5, 9}), {{0, 2, 4}, {0, 5, 9}}));
    EXPECT_TRUE(same_runs(united({0, 6, 9}, {0, 2, 4}), {{0, 2, 4}, {0, 6, 9}}));
    EXPECT_TRUE(same_runs(united({0, 5, 9}, {0, 2, 4}), {{0, 2, 4}, {0, 5, 9}}));
    EXPECT_TRUE(same_runs(united({0, 3, 4}, {0, 2, 9}), {{0, 2, 9}})); // A inside B
    EXPECT_TRUE(same_runs(united({0, 2, 9}, {0, 2, 9}), {{0, 2, 9}})); // equal
    EXPECT_TRUE(same_runs(united({0, 2, 9}, {0, 3, 4}), {{0, 2, 9}})); // B inside A
    EXPECT_TRUE(same_runs(united({0, 2, 9}, {0, 2, 4}), {{0, 2, 9}})); // the same begin
    EXPECT_TRUE(same_runs(united({0, 2, 9}, {0, 4, 9}), {{0, 2, 9}})); // the same end
    EXPECT_TRUE(same_runs(united({0, lowest, 0}, {0, 0, highest}), {{0, lowest, highest}}));
    EXPECT_TRUE(
        same_runs(united({0, highest, highest}, {0, lowest, lowest}), {{0, lowest, lowest}, {0, highest, highest}}));
}

TEST(LiteralRegionUnion, PairsWithABeginPastItsEnd)
{
    EXPECT_TRUE(same_runs(united({0, 3, 3}, {0, 9, 3}), {{0, 9, 3}})); // A begins where B ends
    EXPECT_TRUE(same_runs(united({0, 3, 1}, {0, 9, 3}), {{0, 9, 1}}));
    EXPECT_TRUE(same_runs(united({0, 3, 5}, {0, 9, 3}), {{0, 3, 5}})); // reads as B inside A
    EXPECT_TRUE(same_runs(united({0, 5, 4}, {0, 1, 2}), {{0, 1, 2}, {0, 5, 4}}));
    EXPECT_TRUE(same_runs(united({0, 5, 2}, {0, 3, 4}), {{0, 3, 4}})); // reads as A inside B
    EXPECT_TRUE(same_runs(united({0, 4, 2}, {0, 3, 4}), {{0, 3, 4}})); // reads as A inside B
    EXPECT_TRUE(same_runs(united({0, 2, 1}, {0, 5, 6}), {{0, 2, 1}, {0, 5, 6}}));
    EXPECT_TRUE(same_runs(united({0, 2, 8}, {0, 6, 4}), {{0, 2, 8}})); // reads as B inside A
}

TEST(LiteralRegionUnion, EveryPairEmitsOneRunOrTwo)
{
    for (int a_begin = 0; a_begin < 6; ++a_begin) {
        for (int a_end = 0; a_end < 6; ++a_end) {
            for (int b_begin = 0; b_begin < 6; ++b_begin) {
                for (int b_end = 0; b_end < 6; ++b_end) {
                    const std::size_t emitted = united({0, a_begin, a_end}, {0, b_begin, b_end}).size();
                    EXPECT_TRUE(emitted == 1 || emitted == 2)
                        << "A " << a_begin << '-' << a_end << ", B " << b_begin << '-' << b_end;
                }
            }
        }
    }
}

// ---------------------------------------------------------------------------------------------------------------
// Region intersection

TEST(LiteralRegionIntersection, SharedRowsBeforeTheEndOfB)
{
    EXPECT_TRUE(same_runs(
        literal::region_intersection({{2, 0, 9}, {5, 0, 9}, {7, 0, 0}}, {{2, 3, 4}, {2, 6, 12}, {5, 8, 9}, {9, 0, 0}}),
        {{2, 3, 4}, {2, 6, 9}, {5, 8, 9}}));
}

TEST(LiteralRegionIntersection, LastRowOfBIsWithheld)
{
    EXPECT_TRUE(
        same_runs(literal::region_intersection({{2, 0, 9}, {5, 0, 9}, {7, 0, 0}}, {{2, 3, 4}, {2, 6, 12}, {5, 8, 9}}),
                  {{2, 3, 4}, {2, 6, 9}}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{0, 0, 5}, {1, 0, 5}}, {{0, 2, 3}, {1, 2, 3}}), {{0, 2, 3}}));
    // The row before B's last one is not shared, so nothing matched; the last row does not begin at B's first run.
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 5}, {2, 0, 5}}, {{0, 2, 3}, {1, 2, 3}}), {}));
}

TEST(LiteralRegionIntersection, LastRowThatIsAllOfBGivesItsFirstRun)
{
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 9}, {2, 0, 9}}, {{1, 2, 3}}), {{1, 2, 3}}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 9}, {2, 0, 9}}, {{1, 2, 3}, {1, 5, 6}}), {{1, 2, 3}}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 9}, {2, 0, 9}}, {{1, 5, 6}, {1, 2, 3}}), {{1, 5, 6}}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 9}, {2, 0, 9}}, {{2, 2, 3}, {2, 5, 6}}), {{2, 2, 3}}));
}

TEST(LiteralRegionIntersection, SingleRunOfAGivesNothing)
{
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 9}}, {{1, 2, 3}, {2, 2, 3}}), {}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 9}}, {{1, 2, 3}}), {}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 9}}, {{0, 2, 3}, {1, 2, 3}, {1, 5, 6}}), {}));
}

TEST(LiteralRegionIntersection, LastRowOfAIsLikeAnyOther)
{
    // a lone last run, after a matched and after an unmatched group; a last row of two runs; A on one row only
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 5}, {2, 0, 5}}, {{1, 1, 1}, {2, 2, 2}, {3, 0, 0}}),
                          {{1, 1, 1}, {2, 2, 2}}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 5}, {2, 0, 5}}, {{2, 2, 2}, {3, 0, 0}}), {{2, 2, 2}}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 5}, {2, 0, 3}, {2, 5, 8}}, {{2, 2, 6}, {3, 0, 0}}),
                          {{2, 2, 3}, {2, 5, 6}}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{2, 0, 3}, {2, 5, 8}}, {{2, 2, 6}, {3, 0, 0}}),
                          {{2, 2, 3}, {2, 5, 6}}));
}

TEST(LiteralRegionIntersection, WithoutRunsGivesNothing)
{
    EXPECT_TRUE(same_runs(literal::region_intersection({}, {{1, 0, 9}}), {}));
    EXPECT_TRUE(same_runs(literal::region_intersection({{1, 0, 9}, {2, 0, 9}}, {}), {}));
    EXPECT_TRUE(same_runs(literal::region_intersection({}, {}), {}));
}

TEST(LiteralRegionIntersection, ScanOfBResumesAfterRowsThatALacksAndRowsThatBLacks)
{
    EXPECT_TRUE(
        same_runs(literal::region_intersection({{1, 0, 5}, {3, 0, 5}, {4, 0, 5}, {5, 0, 5}, {7, 0, 5}, {8, 0, 5}},
                                               {{2, 2, 2}, {4, 2, 2}, {6, 2, 2}, {7, 2, 2}, {8, 2, 2}, {9, 2, 2}}),
                  {{4, 2, 2}, {7, 2, 2}, {8, 2, 2}}));
}

TEST(LiteralRegionIntersection, OrderIsByRowOfAThenRunOfAThenRunOfB)
{
    EXPECT_TRUE(same_runs(
        literal::region_intersection({{3, 0, 9}, {1, 5, 9}, {1, 0, 3}}, {{3, 1, 1}, {1, 6, 6}, {1, 2, 7}, {4, 0, 0}}),
        {{1, 6, 6}, {1, 5, 7}, {1, 2, 3}, {3, 1, 1}}));
}

TEST(LiteralRegionIntersection, PairsOfRuns)
{
    EXPECT_TRUE(same_runs(intersected({0, 3, 4}, {0, 2, 9}), {{0, 3, 4}}));
    EXPECT_TRUE(same_runs(intersected({0, 2, 9}, {0, 2, 9}), {{0, 2, 9}}));
    EXPECT_TRUE(same_runs(intersected({0, 5, 12}, {0, 2, 8}), {{0, 5, 8}}));
    EXPECT_TRUE(same_runs(intersected({0, 2, 8}, {0, 5, 12}), {{0, 5, 8}}));
    EXPECT_TRUE(same_runs(intersected({0, 2, 9}, {0, 3, 4}), {{0, 3, 4}}));
    EXPECT_TRUE(same_runs(intersected({0, 2, 4}, {0, 4, 9}), {{0, 4, 4}})); // one shared column
    EXPECT_TRUE(same_runs(intersected({0, 4, 9}, {0, 2, 4}), {{0, 4, 4}}));
    EXPECT_TRUE(same_runs(intersected({0, 2, 4}, {0, 5, 9}), {})); // touching
    EXPECT_TRUE(same_runs(intersected({0, 5, 9}, {0, 2, 4}), {}));
    EXPECT_TRUE(same_runs(intersected({0, 2, 4}, {0, 8, 9}), {}));
    EXPECT_TRUE(same_runs(intersected({0, 2, 8}, {0, 6, 4}), {{0, 6, 4}})); // begin past end reads as B inside A
    EXPECT_TRUE(same_runs(intersected({0, lowest, 0}, {0, 0, highest}), {{0, 0, 0}}));
    EXPECT_TRUE(same_runs(intersected({0, lowest, highest}, {0, lowest, highest}), {{0, lowest, highest}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Region difference

TEST(LiteralRegionDifference, SingleRunOfAStaysUncut)
{
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 9}}, {{1, 2, 3}}), {{1, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 9}}, {{1, 0, 9}, {2, 0, 9}}), {{1, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 9}}, {{0, 0, 9}, {1, 0, 3}, {1, 5, 9}}), {{1, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 9}}, {{4, 0, 9}}), {{1, 0, 9}}));
}

TEST(LiteralRegionDifference, LoneLastRunJoinsAnUnmatchedGroup)
{
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 3}, {2, 4, 6}}, {{2, 0, 9}}), {{1, 0, 3}, {2, 4, 6}}));
    // after a matched group it is cut like any other
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 3}, {2, 4, 6}}, {{1, 0, 0}, {2, 0, 9}}), {{1, 1, 3}}));
    // and so are two runs on the last row
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 3}, {2, 4, 6}, {2, 8, 12}}, {{2, 0, 9}}),
                          {{1, 0, 3}, {2, 10, 12}}));
}

TEST(LiteralRegionDifference, RowsThatOnlyBHasAreDropped)
{
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 3}, {3, 0, 3}, {5, 0, 3}},
                                                     {{0, 0, 0}, {2, 0, 0}, {3, 1, 1}, {4, 0, 0}, {9, 0, 0}}),
                          {{1, 0, 3}, {3, 0, 0}, {3, 2, 3}, {5, 0, 3}}));
}

TEST(LiteralRegionDifference, WithoutRuns)
{
    EXPECT_TRUE(same_runs(literal::region_difference({}, {{1, 0, 9}}), {}));
    EXPECT_TRUE(same_runs(literal::region_difference({{2, 0, 9}, {1, 0, 9}}, {}), {{1, 0, 9}, {2, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::region_difference({}, {}), {}));
}

TEST(LiteralRegionDifference, LastRowOfBCuts)
{
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 9}, {2, 0, 9}}, {{1, 4, 5}, {1, 7, 7}}),
                          {{1, 0, 3}, {1, 6, 6}, {1, 8, 9}, {2, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::region_difference({{1, 0, 9}, {2, 0, 9}}, {{1, 4, 5}, {2, 7, 7}, {2, 9, 9}}),
                          {{1, 0, 3}, {1, 6, 9}, {2, 0, 6}, {2, 8, 8}}));
}

TEST(LiteralRegionDifference, CutByOneRun)
{
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 3, 8}}), {}));
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 0, 20}}), {}));
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 0, 3}}), {{1, 4, 8}}));
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 3, 4}}), {{1, 5, 8}}));
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 8, 20}}), {{1, 3, 7}}));
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 5, 8}}), {{1, 3, 4}}));
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 5, 6}}), {{1, 3, 4}, {1, 7, 8}}));
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 9, 20}}), {{1, 3, 8}}));
    EXPECT_TRUE(same_runs(cut({1, 3, 8}, {{1, 0, 2}}), {{1, 3, 8}}));
    EXPECT_TRUE(same_runs(cut({1, lowest, highest}, {{1, 0, 0}}), {{1, lowest, -1}, {1, 1, highest}}));
    EXPECT_TRUE(same_runs(cut({1, lowest, highest}, {{1, lowest, highest}}), {}));
    EXPECT_TRUE(same_runs(cut({1, 5, highest}, {{1, 7, highest}}), {{1, 5, 6}}));
}

TEST(LiteralRegionDifference, CutBySeveralRuns)
{
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 4, 5}, {1, 7, 7}}), {{1, 2, 3}, {1, 6, 6}, {1, 8, 9}}));
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 7, 7}, {1, 4, 5}}), {{1, 2, 3}, {1, 6, 6}, {1, 8, 9}})); // any order
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 0, 3}, {1, 5, 6}, {1, 9, 20}}), {{1, 4, 4}, {1, 7, 8}}));
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 0, 20}, {1, 5, 6}, {1, 7, 8}}), {})); // nothing left early on
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 0, 5}, {1, 4, 20}, {1, 7, 8}}), {}));
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 20, 30}, {1, 40, 50}}), {{1, 2, 9}}));
    // The rightmost piece is gone; the next run of B meets the piece to the left of it.
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 4, 5}, {1, 6, 9}, {1, 8, 9}}), {{1, 2, 3}}));
    // Of two runs of B with one begin, the one that came first cuts first: seen when a reversed run is among them.
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 5, 3}, {1, 5, 6}}), {{1, 2, 4}, {1, 4, 4}, {1, 7, 9}}));
    EXPECT_TRUE(same_runs(cut({1, 2, 9}, {{1, 5, 6}, {1, 5, 3}}), {{1, 2, 4}, {1, 7, 9}}));
}

TEST(LiteralRegionDifference, EachRunOfARowIsCutByAllOfB)
{
    EXPECT_TRUE(same_runs(
        on_a_middle_row(literal::region_difference, {{1, 6, 9}, {1, 0, 4}}, {{1, 8, 8}, {1, 3, 6}, {1, 0, 0}}),
        {{1, 7, 7}, {1, 9, 9}, {1, 1, 2}}));
}

// ---------------------------------------------------------------------------------------------------------------
// ROI union

TEST(LiteralRoiUnion, LoneLastRunMeetsTheRunsOfTheMatchedGroupBefore)
{
    EXPECT_TRUE(same_runs(literal::roi_union({{1, 0, 3}, {2, 10, 12}}, {{1, 5, 6}, {4, 0, 0}}),
                          {{1, 0, 3}, {1, 5, 6}, {2, 5, 6}, {2, 10, 12}, {4, 0, 0}}));
    // B's own runs on A's last row are skipped
    EXPECT_TRUE(same_runs(literal::roi_union({{1, 0, 3}, {2, 10, 12}}, {{1, 5, 6}, {2, 0, 1}, {4, 0, 0}}),
                          {{1, 0, 3}, {1, 5, 6}, {2, 5, 6}, {2, 10, 12}, {4, 0, 0}}));
}

TEST(LiteralRoiUnion, LoneLastRunAfterAnUnmatchedGroupIsKeptAsItIs)
{
    EXPECT_TRUE(same_runs(literal::roi_union({{1, 0, 3}, {2, 10, 12}}, {{2, 5, 6}, {4, 0, 0}}),
                          {{1, 0, 3}, {2, 10, 12}, {4, 0, 0}}));
    EXPECT_TRUE(
        same_runs(literal::roi_union({{1, 0, 3}, {2, 10, 12}}, {{0, 5, 6}}), {{1, 0, 3}, {2, 10, 12}, {0, 5, 6}}));
}

TEST(LiteralRoiUnion, LastRowOfTwoRunsIsLost)
{
    EXPECT_TRUE(same_runs(literal::roi_union({{1, 0, 3}, {2, 0, 1}, {2, 8, 9}}, {{2, 5, 6}, {4, 0, 0}}),
                          {{1, 0, 3}, {4, 0, 0}}));
    EXPECT_TRUE(same_runs(literal::roi_union({{1, 0, 3}, {2, 0, 1}, {2, 8, 9}}, {{1, 5, 6}, {4, 0, 0}}),
                          {{1, 0, 3}, {1, 5, 6}, {4, 0, 0}}));
}

TEST(LiteralRoiUnion, OneRowOfAGivesOnlyBElsewhere)
{
    EXPECT_TRUE(same_runs(literal::roi_union({{5, 0, 3}, {5, 6, 8}}, {{1, 2, 3}, {5, 1, 9}, {6, 0, 0}}),
                          {{1, 2, 3}, {6, 0, 0}}));
    EXPECT_TRUE(same_runs(literal::roi_union({{5, 0, 3}}, {{1, 2, 3}, {5, 1, 9}, {6, 0, 0}}), {{1, 2, 3}, {6, 0, 0}}));
    EXPECT_TRUE(same_runs(literal::roi_union({{5, 0, 3}}, {{5, 1, 9}}), {}));
}

TEST(LiteralRoiUnion, LastRowOfBOfTwoRunsIsWithheld)
{
    // An earlier row matched: the stale limit leaves an empty stretch, and the group's own runs are lost, too.
    EXPECT_TRUE(
        same_runs(literal::roi_union({{1, 0, 1}, {2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{1, 4, 5}, {2, 4, 5}, {2, 7, 8}}),
                  {{1, 0, 1}, {1, 4, 5}}));
    // The row is all of B: its first run is paired.
    EXPECT_TRUE(same_runs(literal::roi_union({{2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{2, 4, 5}, {2, 7, 8}}),
                          {{2, 0, 1}, {2, 4, 5}}));
    // B has a row before it that A lacks: nothing.
    EXPECT_TRUE(same_runs(literal::roi_union({{2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{1, 9, 9}, {2, 4, 5}, {2, 7, 8}}),
                          {{1, 9, 9}}));
    // A lone last run that joins such a group is lost with it; one that comes later is not.
    EXPECT_TRUE(same_runs(literal::roi_union({{2, 0, 1}, {3, 0, 0}}, {{1, 9, 9}, {2, 4, 5}, {2, 7, 8}}), {{1, 9, 9}}));
    EXPECT_TRUE(same_runs(literal::roi_union({{2, 0, 1}, {3, 0, 0}, {4, 0, 0}}, {{1, 9, 9}, {2, 4, 5}, {2, 7, 8}}),
                          {{3, 0, 0}, {4, 0, 0}, {1, 9, 9}}));
}

TEST(LiteralRoiUnion, LastRowOfBOfOneRunIsPaired)
{
    EXPECT_TRUE(same_runs(literal::roi_union({{1, 0, 1}, {2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{1, 4, 5}, {2, 4, 5}}),
                          {{1, 0, 1}, {1, 4, 5}, {2, 0, 1}, {2, 4, 5}}));
}

TEST(LiteralRoiUnion, ScanOfBResumesAfterRowsThatALacksAndRowsThatBLacks)
{
    EXPECT_TRUE(same_runs(
        literal::roi_union({{1, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}, {7, 0, 0}, {8, 0, 0}, {10, 0, 0}, {10, 2, 2}},
                           {{2, 2, 2}, {4, 2, 2}, {6, 2, 2}, {7, 2, 2}, {8, 2, 2}, {9, 2, 2}}),
        {{1, 0, 0},
         {3, 0, 0},
         {4, 0, 0},
         {4, 2, 2},
         {5, 0, 0},
         {7, 0, 0},
         {7, 2, 2},
         {8, 0, 0},
         {8, 2, 2},
         {2, 2, 2},
         {6, 2, 2},
         {9, 2, 2}}));
}

TEST(LiteralRoiUnion, RowsAreSortedAndTheOrderWithinARowIsKept)
{
    EXPECT_TRUE(same_runs(literal::roi_union({{12, 0, 0}, {5, 9, 9}, {5, 1, 1}}, {{13, 4, 4}, {13, 2, 2}}),
                          {{5, 9, 9}, {5, 1, 1}, {12, 0, 0}, {13, 4, 4}, {13, 2, 2}}));
}

// ---------------------------------------------------------------------------------------------------------------
// ROI intersection

TEST(LiteralRoiIntersection, SingleLastRunOfBIsPaired)
{
    EXPECT_TRUE(
        same_runs(literal::roi_intersection({{1, 0, 9}, {2, 0, 9}}, {{1, 3, 4}, {2, 3, 4}}), {{1, 3, 4}, {2, 3, 4}}));
    EXPECT_TRUE(same_runs(literal::roi_intersection({{1, 0, 5}, {2, 0, 5}}, {{0, 2, 3}, {1, 2, 3}}), {{1, 2, 3}}));
    EXPECT_TRUE(same_runs(literal::roi_intersection({{1, 0, 5}, {2, 0, 5}}, {{1, 2, 3}}), {{1, 2, 3}}));
}

TEST(LiteralRoiIntersection, LastRowOfBOfTwoRunsIsWithheld)
{
    EXPECT_TRUE(
        same_runs(literal::roi_intersection({{1, 0, 9}, {2, 0, 9}}, {{1, 3, 4}, {2, 3, 4}, {2, 6, 7}}), {{1, 3, 4}}));
    EXPECT_TRUE(same_runs(literal::roi_intersection({{1, 0, 9}, {2, 0, 9}}, {{0, 0, 0}, {1, 3, 4}, {1, 6, 7}}), {}));
    EXPECT_TRUE(same_runs(literal::roi_intersection({{1, 0, 9}, {2, 0, 9}}, {{1, 3, 4}, {1, 6, 7}}), {{1, 3, 4}}));
}

TEST(LiteralRoiIntersection, SingleRunOfAGivesNothing)
{
    EXPECT_TRUE(same_runs(literal::roi_intersection({{1, 0, 9}}, {{1, 3, 4}}), {}));
    EXPECT_TRUE(same_runs(literal::roi_intersection({{1, 0, 9}}, {{1, 3, 4}, {2, 3, 4}}), {}));
}

TEST(LiteralRoiIntersection, LastRowOfAIsLikeAnyOther)
{
    EXPECT_TRUE(
        same_runs(literal::roi_intersection({{1, 0, 5}, {2, 0, 3}, {2, 5, 8}}, {{2, 2, 6}}), {{2, 2, 3}, {2, 5, 6}}));
    EXPECT_TRUE(same_runs(literal::roi_intersection({{2, 0, 3}, {2, 5, 8}}, {{2, 2, 6}}), {{2, 2, 3}, {2, 5, 6}}));
}

TEST(LiteralRoiIntersection, ScanOfBResumesAfterRowsThatALacksAndRowsThatBLacks)
{
    EXPECT_TRUE(same_runs(literal::roi_intersection({{1, 0, 5}, {3, 0, 5}, {4, 0, 5}, {5, 0, 5}, {7, 0, 5}, {8, 0, 5}},
                                                    {{2, 2, 2}, {4, 2, 2}, {6, 2, 2}, {7, 2, 2}, {8, 2, 2}, {9, 2, 2}}),
                          {{4, 2, 2}, {7, 2, 2}, {8, 2, 2}}));
}

// ---------------------------------------------------------------------------------------------------------------
// ROI difference

TEST(LiteralRoiDifference, CutsAsTheRegionDifferenceDoes)
{
    EXPECT_TRUE(same_runs(literal::roi_difference({{1, 2, 9}, {2, 0, 0}}, {{1, 7, 7}, {1, 4, 5}}),
                          {{1, 2, 3}, {1, 6, 6}, {1, 8, 9}, {2, 0, 0}}));
    EXPECT_TRUE(same_runs(literal::roi_difference({{1, 0, 9}}, {{1, 2, 3}}), {{1, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::roi_difference({{1, 0, 3}, {2, 4, 6}}, {{2, 0, 9}}), {{1, 0, 3}, {2, 4, 6}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Region complement

TEST(LiteralRegionComplement, LastRowGroupContributesNothing)
{
    const Runs expected = {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 5, 9}, {4, 0, 9}};
    EXPECT_TRUE(same_runs(literal::region_complement({{1, 2, 4}, {3, 0, 9}}, 10, 5), expected));
    EXPECT_TRUE(same_runs(literal::region_complement({{1, 2, 4}, {3, 2, 4}}, 10, 5), expected));
    EXPECT_TRUE(same_runs(literal::region_complement({{3, 2, 4}, {3, 6, 7}, {1, 2, 4}}, 10, 5), expected));
}

TEST(LiteralRegionComplement, GapBetweenNeighboursOverlapsBoth)
{
    EXPECT_TRUE(same_runs(literal::region_complement({{0, 2, 3}, {0, 6, 7}, {1, 0, 9}}, 10, 2),
                          {{0, 0, 1}, {0, 3, 7}, {0, 8, 9}}));
    EXPECT_TRUE(same_runs(literal::region_complement({{0, 6, 7}, {0, 2, 3}, {1, 0, 9}}, 10, 2),
                          {{0, 0, 1}, {0, 3, 7}, {0, 8, 9}})); // any order within the row
    EXPECT_TRUE(
        same_runs(literal::region_complement({{0, 0, 3}, {0, 4, 9}, {1, 0, 9}}, 10, 2), {{0, 3, 5}})); // touching
    EXPECT_TRUE(
        same_runs(literal::region_complement({{0, 0, 7}, {0, 4, 9}, {1, 0, 9}}, 10, 2), {{0, 7, 5}})); // overlapping
}

TEST(LiteralRegionComplement, RunsAtTheFrameLeaveNoGapThere)
{
    EXPECT_TRUE(same_runs(literal::region_complement({{0, 0, 3}, {1, 0, 0}}, 10, 2), {{0, 4, 9}}));
    EXPECT_TRUE(same_runs(literal::region_complement({{0, 3, 9}, {1, 0, 0}}, 10, 2), {{0, 0, 2}}));
    EXPECT_TRUE(same_runs(literal::region_complement({{0, 0, 9}, {1, 0, 0}}, 10, 2), {}));
}

TEST(LiteralRegionComplement, OneRowOnlyGivesTheRowsAboveAndBelow)
{
    const Runs expected = {{0, 0, 9}, {1, 0, 9}, {3, 0, 9}};
    EXPECT_TRUE(same_runs(literal::region_complement({{2, 4, 5}}, 10, 4), expected));
    EXPECT_TRUE(same_runs(literal::region_complement({{2, 4, 5}, {2, 7, 7}}, 10, 4), expected));
}

TEST(LiteralRegionComplement, WithoutRunsGivesNothing)
{
    EXPECT_TRUE(same_runs(literal::region_complement({}, 10, 4), {}));
}

TEST(LiteralRegionComplement, NothingIsClipped)
{
    // rows above and below the frame: no row before a negative one, full rows up to a row past the frame
    EXPECT_TRUE(same_runs(literal::region_complement({{-2, 1, 1}, {1, 0, 0}}, 3, 3),
                          {{-1, 0, 2}, {0, 0, 2}, {-2, 0, 0}, {-2, 2, 2}, {2, 0, 2}}));
    EXPECT_TRUE(same_runs(literal::region_complement({{1, 0, 0}, {3, 0, 0}}, 3, 1), {{0, 0, 2}, {2, 0, 2}, {1, 1, 2}}));
    // columns outside the frame
    EXPECT_TRUE(same_runs(literal::region_complement({{0, -4, 12}, {1, 0, 0}}, 10, 2), {{0, 0, -5}, {0, 13, 9}}));
    EXPECT_TRUE(same_runs(literal::region_complement({{0, lowest, highest}, {1, 0, 0}}, 10, 2),
                          {{0, 0, lowest}, {0, highest, 9}})); // a step past an int's ends stays there
    EXPECT_TRUE(same_runs(literal::region_complement({{0, 0, 9}, {0, highest, highest}, {1, 0, 0}}, 10, 2),
                          {{0, 9, highest}, {0, highest, 9}}));
}

// ---------------------------------------------------------------------------------------------------------------
// ROI complement

TEST(LiteralRoiComplement, LastRowGroupIsComplementedLikeAnyOther)
{
    EXPECT_TRUE(same_runs(literal::roi_complement({{1, 2, 4}, {3, 0, 9}}, 10, 5),
                          {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 5, 9}, {4, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::roi_complement({{1, 2, 4}, {3, 2, 4}}, 10, 5),
                          {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 5, 9}, {3, 0, 1}, {3, 5, 9}, {4, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::roi_complement({{1, 0, 9}, {2, 6, 7}, {2, 2, 3}}, 10, 3),
                          {{0, 0, 9}, {2, 0, 1}, {2, 3, 7}, {2, 8, 9}}));
}

TEST(LiteralRoiComplement, OneRowOnly)
{
    EXPECT_TRUE(same_runs(literal::roi_complement({{2, 4, 5}}, 10, 4),
                          {{0, 0, 9}, {1, 0, 9}, {2, 0, 3}, {2, 6, 9}, {3, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::roi_complement({{2, 4, 5}, {2, 7, 7}}, 10, 4),
                          {{0, 0, 9}, {1, 0, 9}, {2, 0, 3}, {2, 5, 8}, {2, 8, 9}, {3, 0, 9}}));
    EXPECT_TRUE(same_runs(literal::roi_complement({{0, 0, 9}}, 10, 1), {}));
}

TEST(LiteralRoiComplement, WithoutRunsGivesNothing)
{
    EXPECT_TRUE(same_runs(literal::roi_complement({}, 10, 4), {}));
}

TEST(LiteralRoiComplement, AStepPastTheEndsOfAnIntStaysThere)
{
    EXPECT_TRUE(same_runs(literal::roi_complement({{0, lowest, highest}}, 10, 1), {{0, 0, lowest}, {0, highest, 9}}));
}

// ---------------------------------------------------------------------------------------------------------------
// All pairs of 2 x 3 bitmaps, away from the lists' ends: there the operations are plain set operations.

constexpr int world_rows = 2;
constexpr int world_cols = 3;
constexpr unsigned world_size = 1U << (world_rows * world_cols);

unsigned bit_of(int row, int col)
{
    return 1U << (row * world_cols + col);
}

Runs runs_of(unsigned bitmap)
{
    return support::runs_where(world_rows, world_cols,
                               [bitmap](int row, int col) { return (bitmap & bit_of(row, col)) != 0; });
}

unsigned bitmap_of(const Runs& runs)
{
    unsigned bitmap = 0;
    for (const Run& run : runs) {
        for (int col = run.colBegin; col <= run.colEnd; ++col) {
            bitmap |= bit_of(run.row, col);
        }
    }
    return bitmap;
}

TEST(LiteralWalks, AgreeWithBitmapsAwayFromTheListEnds)
{
    for (unsigned a = 0; a < world_size; ++a) {
        for (unsigned b = 0; b < world_size; ++b) {
            const Runs runs_a = runs_of(a);
            const Runs runs_b = runs_of(b);
            SCOPED_TRACE(testing::Message() << "A" << text_of(runs_a) << ", B" << text_of(runs_b));
            ASSERT_EQ(bitmap_of(on_a_middle_row(literal::region_union, runs_a, runs_b)), a | b);
            ASSERT_EQ(bitmap_of(on_a_middle_row(literal::region_intersection, runs_a, runs_b)), a & b);
            ASSERT_EQ(bitmap_of(on_a_middle_row(literal::region_difference, runs_a, runs_b)), a & ~b);
            ASSERT_EQ(bitmap_of(on_a_middle_row(literal::roi_union, runs_a, runs_b)), a | b);
            ASSERT_EQ(bitmap_of(on_a_middle_row(literal::roi_intersection, runs_a, runs_b)), a & b);
            ASSERT_EQ(bitmap_of(on_a_middle_row(literal::roi_difference, runs_a, runs_b)), a & ~b);
        }
    }
}

} // namespace
