// SPDX-License-Identifier: MIT
// The complement of an ROI: results worked out by hand.
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

// The output before the operation: of a type without a mask, so that any mask afterwards was written.
const KivROI used(KivShape::OpenCurve{{{1.0, 2.0}, {3.0, 4.0}}}, 7, 8);

KivROI complement(const KivROI& roi)
{
    return support::complemented<KivROI>(KIVMV::KivROINot, roi, used);
}

// The runs of a mask's complement, which must be a mask of the same frame.
Runs complement(const Runs& runs, int width, int height)
{
    const KivROI result = complement(KivROI::Mask(runs, width, height));
    EXPECT_TRUE(same(result, KivROI::Mask(result.Parameters().MaskRuns(), width, height)));
    return result.Parameters().MaskRuns();
}

// The gaps of the only row of a frame of ten columns.
Runs gaps(const Runs& runs)
{
    return complement(runs, 10, 1);
}

TEST(RoiComplement, AnRoiWithoutAMaskIsRefusedAndTheOutputStays)
{
    const KivROI curve(KivShape::OpenCurve{{{0.0, 0.0}, {5.0, 5.0}}}, 30, 20);
    const KivROI empty(KivShape::Empty{}, 50, 40);
    const KivROI full = KivROI::Mask({{1, 0, 3}}, 8, 3);
    for (const KivROI& without : {curve, empty, KivROI()}) {
        KivROI operand(without);
        KivROI out(full);
        EXPECT_EQ(KIVMV::KivROINot(operand, &out), KIVMV::KIVMV_ERR_PARAM_1);
        EXPECT_TRUE(same(operand, without));
        EXPECT_TRUE(same(out, full));
        EXPECT_EQ(KIVMV::KivROINot(operand, &operand), KIVMV::KIVMV_ERR_PARAM_1);
        EXPECT_TRUE(same(operand, without));
    }
}

TEST(RoiComplement, AMaskWithoutRunsGivesNone)
{
    EXPECT_TRUE(same(complement({}, 10, 4), {}));
    EXPECT_TRUE(same(complement(KivROI::Rectangle(100.0, 1.0, 104.0, 2.0, 12, 9)), KivROI::Mask({}, 12, 9)));
}

TEST(RoiComplement, TheWidthIsNotLookedAt)
{
    // in a frame without columns a full row is the run from 0 to -1
    EXPECT_TRUE(same(complement({{1, 2, 4}}, 0, 3), {{0, 0, -1}, {1, 0, 1}, {1, 5, -1}, {2, 0, -1}}));
    EXPECT_TRUE(same(complement({{0, 0, -1}}, 0, 0), {}));
}

TEST(RoiComplement, OtherShapesCountByTheirPixels)
{
    EXPECT_TRUE(same(complement(KivROI::Rectangle(1.0, 1.0, 4.0, 2.0, 12, 4)),
                     KivROI::Mask({{0, 0, 11}, {1, 0, 0}, {1, 5, 11}, {2, 0, 0}, {2, 5, 11}, {3, 0, 11}}, 12, 4)));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows

TEST(RoiComplementRows, FullRowsBetweenTwoRowsComeBeforeTheGapsOfTheUpperOne)
{
    EXPECT_TRUE(
        same(complement({{1, 2, 4}, {3, 0, 9}}, 10, 5), {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 5, 9}, {4, 0, 9}}));
    EXPECT_TRUE(same(complement({{0, 2, 4}, {3, 1, 1}, {4, 0, 9}, {7, 5, 5}}, 10, 9), {{1, 0, 9},
                                                                                       {2, 0, 9},
                                                                                       {0, 0, 1},
                                                                                       {0, 5, 9},
                                                                                       {3, 0, 0},
                                                                                       {3, 2, 9},
                                                                                       {5, 0, 9},
                                                                                       {6, 0, 9},
                                                                                       {7, 0, 4},
                                                                                       {7, 6, 9},
                                                                                       {8, 0, 9}}));
}

TEST(RoiComplementRows, TheLastRowThatHasRunsIsComplementedLikeAnyOther)
{
    EXPECT_TRUE(same(complement({{1, 2, 4}, {3, 2, 4}}, 10, 5),
                     {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 5, 9}, {3, 0, 1}, {3, 5, 9}, {4, 0, 9}}));
    EXPECT_TRUE(
        same(complement({{1, 0, 9}, {2, 6, 7}, {2, 2, 3}}, 10, 3), {{0, 0, 9}, {2, 0, 1}, {2, 3, 7}, {2, 8, 9}}));
}

TEST(RoiComplementRows, ASingleRun)
{
    EXPECT_TRUE(same(complement({{2, 4, 5}}, 10, 4), {{0, 0, 9}, {1, 0, 9}, {2, 0, 3}, {2, 6, 9}, {3, 0, 9}}));
    EXPECT_TRUE(same(complement({{0, 0, 9}}, 10, 1), {}));
    EXPECT_TRUE(same(complement({{0, 0, 9}}, 10, 2), {{1, 0, 9}}));
}

TEST(RoiComplementRows, UnsortedInputIsGroupedByRow)
{
    EXPECT_TRUE(same(complement({{3, 2, 4}, {1, 6, 6}, {3, 8, 9}, {1, 2, 4}}, 10, 5),
                     {{0, 0, 9}, {2, 0, 9}, {1, 0, 1}, {1, 4, 7}, {1, 7, 9}, {3, 0, 1}, {3, 4, 9}, {4, 0, 9}}));
}

TEST(RoiComplementRows, ReachFromRowZeroToTheFrameAndAsFarAsTheRuns)
{
    EXPECT_TRUE(same(complement({{-3, 1, 1}, {1, 0, 0}}, 3, 3),
                     {{-2, 0, 2}, {-1, 0, 2}, {0, 0, 2}, {-3, 0, 0}, {-3, 2, 2}, {1, 1, 2}, {2, 0, 2}}));
    EXPECT_TRUE(same(complement({{1, 0, 0}, {3, 0, 0}}, 3, 1), {{0, 0, 2}, {2, 0, 2}, {1, 1, 2}, {3, 1, 2}}));
    EXPECT_TRUE(same(complement({{2, 0, 0}}, 3, 0), {{0, 0, 2}, {1, 0, 2}, {2, 1, 2}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Gaps

TEST(RoiComplementGaps, BetweenNeighboursReachIntoBoth)
{
    EXPECT_TRUE(same(gaps({{0, 2, 3}, {0, 6, 7}}), {{0, 0, 1}, {0, 3, 7}, {0, 8, 9}}));
    EXPECT_TRUE(same(gaps({{0, 0, 0}, {0, 4, 4}, {0, 9, 9}}), {{0, 0, 5}, {0, 4, 10}}));
    EXPECT_TRUE(same(gaps({{0, 0, 3}, {0, 4, 9}}), {{0, 3, 5}})); // touching
    EXPECT_TRUE(same(gaps({{0, 0, 7}, {0, 4, 9}}), {{0, 7, 5}})); // overlapping
    EXPECT_TRUE(same(gaps({{0, 2, 3}, {0, 2, 3}}), {{0, 0, 1}, {0, 3, 3}, {0, 4, 9}}));
}

TEST(RoiComplementGaps, AreTakenInTheOrderOfFirstColumns)
{
    EXPECT_TRUE(same(gaps({{0, 8, 8}, {0, 0, 1}, {0, 4, 5}}), {{0, 1, 5}, {0, 5, 9}, {0, 9, 9}}));
    EXPECT_TRUE(same(gaps({{0, 2, 6}, {0, 2, 3}}), {{0, 0, 1}, {0, 6, 3}, {0, 4, 9}}));
}

TEST(RoiComplementGaps, AreNotClipped)
{
    EXPECT_TRUE(same(gaps({{0, -4, 12}}), {{0, 0, -5}, {0, 13, 9}}));
    EXPECT_TRUE(same(gaps({{0, 12, 15}}), {{0, 0, 11}, {0, 16, 9}}));
    EXPECT_TRUE(same(gaps({{0, 6, 4}}), {{0, 0, 5}, {0, 5, 9}}));
}

TEST(RoiComplementGaps, BeyondTheFirstAndTheLastColumnOfAllAreWithoutPixels)
{
    EXPECT_TRUE(same(gaps({{0, lowest, highest}}), {{0, 0, lowest}, {0, highest, 9}}));
    EXPECT_TRUE(
        same(gaps({{0, lowest, 5}, {0, highest, highest}}), {{0, 0, lowest}, {0, 5, highest}, {0, highest, 9}}));
}

} // namespace
