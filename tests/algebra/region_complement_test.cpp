// SPDX-License-Identifier: MIT
// The complement of a region: results worked out by hand.
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

// The runs of the complement, which must have the frame of the operand.
Runs complement(const Runs& runs, int width, int height)
{
    const KivRegion result =
        support::complemented<KivRegion>(KIVMV::KivRegionNot, KivRegion(width, height, runs), used);
    EXPECT_EQ(result.Width(), width);
    EXPECT_EQ(result.Height(), height);
    return result.Runs();
}

// The gaps of one row, which is row 0 of a frame of ten columns. A run on row 1 makes it a row before the last.
Runs gaps(Runs runs)
{
    runs.push_back({1, 0, 9});
    return complement(runs, 10, 2);
}

TEST(RegionComplement, AnEmptyRegionIsRefusedAndTheOutputStays)
{
    for (const KivRegion& empty : {KivRegion(), KivRegion(0, 5, {{1, 0, 3}})}) {
        KivRegion operand(empty);
        KivRegion out(used);
        EXPECT_EQ(KIVMV::KivRegionNot(operand, &out), KIVMV::KIVMV_ERR_PARAM_1);
        EXPECT_TRUE(same(operand, empty));
        EXPECT_TRUE(same(out, used));
        EXPECT_EQ(KIVMV::KivRegionNot(operand, &operand), KIVMV::KIVMV_ERR_PARAM_1);
        EXPECT_TRUE(same(operand, empty));
    }
}

TEST(RegionComplement, ARegionWithoutRunsGivesNone)
{
    EXPECT_TRUE(same(complement({}, 10, 4), {}));
    EXPECT_TRUE(same(complement({}, 1, 0), {}));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows

TEST(RegionComplementRows, FullRowsBetweenTwoRowsComeBeforeTheGapsOfTheUpperOne)
{
    EXPECT_TRUE(
        same(complement({{1, 2, 4}, {3, 0, 9}}, 10, 5), {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 5, 9}, {4, 0, 9}}));
    EXPECT_TRUE(
        same(complement({{0, 2, 4}, {3, 1, 1}, {4, 0, 9}, {7, 5, 5}}, 10, 9),
             {{1, 0, 9}, {2, 0, 9}, {0, 0, 1}, {0, 5, 9}, {3, 0, 0}, {3, 2, 9}, {5, 0, 9}, {6, 0, 9}, {8, 0, 9}}));
}

TEST(RegionComplementRows, TheLastRowThatHasRunsGivesNothing)
{
    EXPECT_TRUE(
        same(complement({{1, 2, 4}, {3, 2, 4}}, 10, 5), {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 5, 9}, {4, 0, 9}}));
    EXPECT_TRUE(same(complement({{1, 2, 4}, {3, 2, 4}, {3, 6, 7}}, 10, 5),
                     {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 5, 9}, {4, 0, 9}}));
}

TEST(RegionComplementRows, OneRowGivesTheRowsAboveAndBelow)
{
    const Runs expected = {{0, 0, 9}, {1, 0, 9}, {3, 0, 9}};
    EXPECT_TRUE(same(complement({{2, 4, 5}}, 10, 4), expected));
    EXPECT_TRUE(same(complement({{2, 4, 5}, {2, 7, 7}}, 10, 4), expected));
    EXPECT_TRUE(same(complement({{2, 0, 9}}, 10, 4), expected));
    EXPECT_TRUE(same(complement({{0, 4, 5}}, 10, 1), {}));
    EXPECT_TRUE(same(complement({{0, 4, 5}}, 10, 2), {{1, 0, 9}}));
    EXPECT_TRUE(same(complement({{1, 4, 5}}, 10, 2), {{0, 0, 9}}));
}

TEST(RegionComplementRows, UnsortedInputIsGroupedByRow)
{
    EXPECT_TRUE(same(complement({{3, 2, 4}, {1, 6, 6}, {3, 6, 7}, {1, 2, 4}}, 10, 5),
                     {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 4, 7}, {1, 7, 9}, {4, 0, 9}}));
}

TEST(RegionComplementRows, ReachFromRowZeroToTheFrameAndAsFarAsTheRuns)
{
    // negative rows: no rows above, and full rows also between them
    EXPECT_TRUE(same(complement({{-3, 1, 1}, {1, 0, 0}}, 3, 3),
                     {{-2, 0, 2}, {-1, 0, 2}, {0, 0, 2}, {-3, 0, 0}, {-3, 2, 2}, {2, 0, 2}}));
    EXPECT_TRUE(same(complement({{-2, 1, 1}}, 3, 2), {{-1, 0, 2}, {0, 0, 2}, {1, 0, 2}}));
    // rows below the frame: full rows up to them
    EXPECT_TRUE(same(complement({{1, 0, 0}, {3, 0, 0}}, 3, 1), {{0, 0, 2}, {2, 0, 2}, {1, 1, 2}}));
    EXPECT_TRUE(same(complement({{2, 0, 0}}, 3, 0), {{0, 0, 2}, {1, 0, 2}}));
    EXPECT_TRUE(same(complement({{2, 0, 0}}, 3, 2), {{0, 0, 2}, {1, 0, 2}}));
    EXPECT_TRUE(same(complement({{2, 0, 0}}, 3, 3), {{0, 0, 2}, {1, 0, 2}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Gaps

TEST(RegionComplementGaps, BetweenNeighboursReachIntoBoth)
{
    EXPECT_TRUE(same(gaps({{0, 2, 3}, {0, 6, 7}}), {{0, 0, 1}, {0, 3, 7}, {0, 8, 9}}));
    EXPECT_TRUE(same(gaps({{0, 0, 0}, {0, 4, 4}, {0, 9, 9}}), {{0, 0, 5}, {0, 4, 10}}));
}

TEST(RegionComplementGaps, AreThereForEveryPairOfNeighbours)
{
    EXPECT_TRUE(same(gaps({{0, 0, 3}, {0, 4, 9}}), {{0, 3, 5}}));            // touching
    EXPECT_TRUE(same(gaps({{0, 0, 7}, {0, 4, 9}}), {{0, 7, 5}}));            // overlapping
    EXPECT_TRUE(same(gaps({{0, 0, 9}, {0, 4, 5}}), {{0, 9, 5}, {0, 6, 9}})); // within: the last to begin counts
    EXPECT_TRUE(same(gaps({{0, 2, 3}, {0, 2, 3}}), {{0, 0, 1}, {0, 3, 3}, {0, 4, 9}})); // repeated
}

TEST(RegionComplementGaps, AtTheFrameThereAreNone)
{
    EXPECT_TRUE(same(gaps({{0, 0, 3}}), {{0, 4, 9}}));
    EXPECT_TRUE(same(gaps({{0, 3, 9}}), {{0, 0, 2}}));
    EXPECT_TRUE(same(gaps({{0, 0, 9}}), {}));
    EXPECT_TRUE(same(gaps({{0, 1, 8}}), {{0, 0, 0}, {0, 9, 9}}));
}

TEST(RegionComplementGaps, AreTakenInTheOrderOfFirstColumns)
{
    EXPECT_TRUE(same(gaps({{0, 6, 7}, {0, 2, 3}}), {{0, 0, 1}, {0, 3, 7}, {0, 8, 9}}));
    EXPECT_TRUE(same(gaps({{0, 8, 8}, {0, 0, 1}, {0, 4, 5}}), {{0, 1, 5}, {0, 5, 9}, {0, 9, 9}}));
    EXPECT_TRUE(same(gaps({{0, 5, 6}, {0, -3, -2}}), {{0, 0, -4}, {0, -2, 6}, {0, 7, 9}}));
    // of two runs with one first column the first to come is the left one
    EXPECT_TRUE(same(gaps({{0, 2, 6}, {0, 2, 3}}), {{0, 0, 1}, {0, 6, 3}, {0, 4, 9}}));
    EXPECT_TRUE(same(gaps({{0, 2, 3}, {0, 2, 6}}), {{0, 0, 1}, {0, 3, 3}, {0, 7, 9}}));
}

TEST(RegionComplementGaps, AreNotClipped)
{
    EXPECT_TRUE(same(gaps({{0, -4, 12}}), {{0, 0, -5}, {0, 13, 9}}));
    EXPECT_TRUE(same(gaps({{0, 12, 15}}), {{0, 0, 11}, {0, 16, 9}}));
    EXPECT_TRUE(same(gaps({{0, -9, -4}}), {{0, 0, -10}, {0, -3, 9}}));
    EXPECT_TRUE(same(gaps({{0, 6, 4}}), {{0, 0, 5}, {0, 5, 9}})); // begins past its end
}

TEST(RegionComplementGaps, BeyondTheFirstAndTheLastColumnOfAllAreWithoutPixels)
{
    EXPECT_TRUE(same(gaps({{0, lowest, highest}}), {{0, 0, lowest}, {0, highest, 9}}));
    EXPECT_TRUE(
        same(gaps({{0, lowest, 5}, {0, highest, highest}}), {{0, 0, lowest}, {0, 5, highest}, {0, highest, 9}}));
    EXPECT_TRUE(
        same(gaps({{0, lowest + 1, highest - 1}}), {{0, 0, lowest}, {0, highest, 9}})); // the steps before the last
}

TEST(RegionComplementGaps, OfTheWidestFrame)
{
    EXPECT_TRUE(same(complement({{0, 5, 9}, {1, 0, 0}}, highest, 2), {{0, 0, 4}, {0, 10, highest - 1}}));
    EXPECT_TRUE(same(complement({{0, 5, highest - 1}, {1, 0, 0}}, highest, 2), {{0, 0, 4}}));
    EXPECT_TRUE(same(complement({{0, 1, 1}}, 1, 2), {{1, 0, 0}}));
}

TEST(RegionComplement, OfLongRowsAndManyRows)
{
    for (const int count : {125, 126, 127, 128, 129, 130, 254, 255, 256, 257, 1000}) {
        Runs runs;
        Runs expected = {{0, 0, 1}};
        for (int i = 0; i < count; ++i) {
            runs.push_back({0, 4 * i + 2, 4 * i + 3});
            if (i > 0) {
                expected.push_back({0, 4 * i - 1, 4 * i + 3});
            }
        }
        expected.push_back({0, 4 * count, 4 * count});
        for (int row = 1; row < count; ++row) {
            expected.insert(expected.begin() + row - 1, {row, 0, 4 * count}); // in front of the row above
        }
        runs.push_back({count, 7, 8});
        EXPECT_TRUE(same(complement(runs, 4 * count + 1, count + 1), expected)) << count;
    }
}

TEST(RegionComplement, OfALongRowBehindShortOnes)
{
    constexpr int count = 150;
    constexpr int last_column = 4 * count;
    for (int row = 0; row < 130; ++row) { // the long one
        Runs runs;
        Runs expected;
        for (int above = 0; above < row; ++above) {
            runs.push_back({above, 2, 3});
            expected.insert(expected.end(), {{above, 0, 1}, {above, 4, last_column}});
        }
        expected.push_back({row, 0, 1});
        for (int i = 0; i < count; ++i) {
            runs.push_back({row, 4 * i + 2, 4 * i + 3});
            if (i > 0) {
                expected.push_back({row, 4 * i - 1, 4 * i + 3});
            }
        }
        expected.push_back({row, last_column, last_column});
        runs.push_back({row + 1, 0, last_column});
        EXPECT_TRUE(same(complement(runs, last_column + 1, row + 2), expected)) << row;
    }
}

TEST(RegionComplement, RowsFarBelowThatComeFirstTakeNoLongerThanInOrder)
{
    const Runs in_order = complement({{0, 0, 0}, {1, 0, 0}, {3000000, 0, 0}, {3000001, 0, 1}}, 2, 1);
    EXPECT_EQ(in_order.size(), 2U + 2999998U + 1U) << "pixels beside runs, rows without any, nothing of the last row";
    EXPECT_EQ(complement({{3000000, 0, 0}, {0, 0, 0}, {3000001, 0, 1}, {1, 0, 0}}, 2, 1), in_order);
    EXPECT_EQ(complement({{0, 0, 0}, {3000001, 0, 1}, {3000000, 0, 0}, {1, 0, 0}}, 2, 1), in_order);
}

} // namespace
