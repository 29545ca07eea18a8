// SPDX-License-Identifier: MIT
// The intersection of ROIs: results worked out by hand.
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

// The output before an operation: of a type without a mask, so that any mask afterwards was written.
const KivROI used(KivShape::OpenCurve{{{1.0, 2.0}, {3.0, 4.0}}}, 7, 8);

const KivROI curve(KivShape::OpenCurve{{{0.0, 0.0}, {5.0, 5.0}}}, 30, 20);
const KivROI empty(KivShape::Empty{}, 50, 40);
const KivROI mask = KivROI::Mask({{2, 5, 6}, {0, 3, 1}, {2, 0, 1}, {-4, 0, 90}}, 8, 3);
const KivROI bare_mask = KivROI::Mask({}, 60, 70);
const KivROI rectangle = KivROI::Rectangle(1.0, 1.0, 4.0, 2.0, 12, 9);             // 1-4 on rows 1 and 2
const KivROI rectangle_outside = KivROI::Rectangle(100.0, 1.0, 104.0, 2.0, 12, 9); // without pixels

KivROI common(const KivROI& a, const KivROI& b)
{
    return support::combined<KivROI>(KIVMV::KivROIAnd, a, b, used);
}

testing::AssertionResult rejected(const KivROI& a, const KivROI& b, int code)
{
    return support::gives<KivROI>(KIVMV::KivROIAnd, a, b, used, code, used);
}

// The runs of the intersection of two masks that have one frame.
Runs intersected(const Runs& a, const Runs& b)
{
    const KivROI result = common(KivROI::Mask(a, 20, 10), KivROI::Mask(b, 20, 10));
    EXPECT_TRUE(same(result, KivROI::Mask(result.Parameters().MaskRuns(), 20, 10))); // a mask of that frame
    return result.Parameters().MaskRuns();
}

// A single pair of runs.
Runs pair(const Run& a, const Run& b)
{
    return intersected({a, {9, 0, 0}}, {b});
}

// ---------------------------------------------------------------------------------------------------------------
// Operands without a mask

TEST(RoiIntersectionTypes, AnOpenCurveIsRefused)
{
    for (const KivROI& other : {curve, empty, mask, bare_mask, rectangle, KivROI()}) {
        EXPECT_TRUE(rejected(curve, other, KIVMV::KIVMV_ERR_PARAM_1));
    }
    for (const KivROI& other : {empty, mask, bare_mask, rectangle, KivROI()}) {
        EXPECT_TRUE(rejected(other, curve, KIVMV::KIVMV_ERR_PARAM_2));
    }
}

TEST(RoiIntersectionTypes, TwoEmptyRoisAreRefused)
{
    EXPECT_TRUE(rejected(empty, empty, KIVMV::KIVMV_ERR_PARAM_1));
    EXPECT_TRUE(rejected(KivROI(), empty, KIVMV::KIVMV_ERR_PARAM_1));
    EXPECT_TRUE(rejected(KivROI(), KivROI(), KIVMV::KIVMV_ERR_PARAM_1));
}

TEST(RoiIntersectionTypes, ARefusedOperandThatIsTheOutputStaysAsItIs)
{
    KivROI a(curve);
    KivROI b(mask);
    EXPECT_EQ(KIVMV::KivROIAnd(a, b, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, curve));
    EXPECT_EQ(KIVMV::KivROIAnd(b, a, &a), KIVMV::KIVMV_ERR_PARAM_2);
    EXPECT_TRUE(same(a, curve));
    EXPECT_EQ(KIVMV::KivROIAnd(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, curve));
    a = empty;
    EXPECT_EQ(KIVMV::KivROIAnd(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, empty));
}

TEST(RoiIntersectionTypes, OneEmptyRoiGivesADefaultRoiAndTheCodeOfTheSecondOperand)
{
    for (const KivROI& other : {mask, bare_mask, rectangle, rectangle_outside}) {
        for (const KivROI& of_no_shape : {empty, KivROI()}) {
            EXPECT_TRUE(
                support::gives<KivROI>(KIVMV::KivROIAnd, of_no_shape, other, used, KIVMV::KIVMV_ERR_PARAM_2, KivROI()));
            EXPECT_TRUE(
                support::gives<KivROI>(KIVMV::KivROIAnd, other, of_no_shape, used, KIVMV::KIVMV_ERR_PARAM_2, KivROI()));
        }
    }
}

TEST(RoiIntersectionTypes, TheOutputMayBeAnOperandWhenOneIsEmpty)
{
    KivROI a(mask);
    KivROI b(empty);
    EXPECT_EQ(KIVMV::KivROIAnd(a, b, &a), KIVMV::KIVMV_ERR_PARAM_2);
    EXPECT_TRUE(same(a, KivROI()));
    EXPECT_TRUE(same(b, empty));
    a = mask;
    EXPECT_EQ(KIVMV::KivROIAnd(b, a, &b), KIVMV::KIVMV_ERR_PARAM_2);
    EXPECT_TRUE(same(a, mask));
    EXPECT_TRUE(same(b, KivROI()));
}

TEST(RoiIntersectionTypes, AMaskWithoutRunsGivesADefaultRoi)
{
    for (const KivROI& without : {bare_mask, rectangle_outside}) {
        EXPECT_TRUE(same(common(without, mask), KivROI()));
        EXPECT_TRUE(same(common(mask, without), KivROI()));
        EXPECT_TRUE(same(common(without, rectangle), KivROI()));
        EXPECT_TRUE(same(common(without, bare_mask), KivROI()));
    }
}

TEST(RoiIntersectionTypes, RunsDecideNotTheFrame)
{
    const KivROI a = KivROI::Mask({{1, 0, 3}, {2, 5, 5}}, 0, 0);
    const KivROI b = KivROI::Mask({{1, 2, 9}}, 0, 0);
    EXPECT_TRUE(same(common(a, b), KivROI::Mask({{1, 2, 3}}, 0, 0)));
}

TEST(RoiIntersectionTypes, OtherShapesCountByTheirPixels)
{
    EXPECT_TRUE(same(common(rectangle, KivROI::Mask({{1, 3, 7}, {2, 0, 1}}, 10, 30)),
                     KivROI::Mask({{1, 3, 4}, {2, 1, 1}}, 12, 9)));
    EXPECT_TRUE(same(common(KivROI::Mask({{1, 3, 7}, {2, 0, 1}}, 10, 30), rectangle),
                     KivROI::Mask({{1, 3, 4}, {2, 1, 1}}, 10, 30)));
}

// ---------------------------------------------------------------------------------------------------------------
// Frames

TEST(RoiIntersectionFrame, IsThatOfTheFirstMask)
{
    const KivROI small = KivROI::Mask({{0, 0, 99}, {1, 0, 0}}, 100, 30);
    const KivROI large = KivROI::Mask({{0, 50, 199}, {50, 0, 0}}, 200, 60);
    EXPECT_TRUE(same(common(small, large), KivROI::Mask({{0, 50, 99}}, 100, 30)));
    EXPECT_TRUE(same(common(large, small), KivROI::Mask({{0, 50, 99}}, 200, 60)));
    // a mask without runs, not a default ROI
    EXPECT_TRUE(same(common(small, KivROI::Mask({{7, 0, 0}}, 3, 3)), KivROI::Mask({}, 100, 30)));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows

TEST(RoiIntersectionRows, SharedRows)
{
    EXPECT_TRUE(same(intersected({{2, 0, 9}, {5, 0, 9}, {7, 0, 0}}, {{2, 3, 4}, {2, 6, 12}, {5, 8, 9}, {9, 0, 0}}),
                     {{2, 3, 4}, {2, 6, 9}, {5, 8, 9}}));
}

TEST(RoiIntersectionRows, SharedAndUnsharedRowsInTurn)
{
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}, {3, 0, 5}, {5, 0, 5}, {6, 0, 5}, {8, 0, 5}, {9, 0, 5}},
                                 {{0, 2, 2}, {3, 3, 3}, {4, 4, 4}, {6, 1, 2}, {7, 0, 0}, {9, 4, 9}, {11, 0, 0}}),
                     {{3, 3, 3}, {6, 1, 2}, {9, 4, 5}}));
}

TEST(RoiIntersectionRows, RowsOfOneOperandAloneGiveNothing)
{
    EXPECT_TRUE(same(intersected({{0, 0, 9}, {2, 0, 9}}, {{1, 0, 9}, {3, 0, 9}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {3, 0, 9}}, {{0, 0, 9}, {2, 0, 9}}), {}));
}

TEST(RoiIntersectionRows, UnsortedInputIsGroupedByRowAndKeepsItsOrderWithinARow)
{
    EXPECT_TRUE(same(intersected({{7, 3, 3}, {2, 8, 12}, {2, 0, 4}}, {{2, 10, 11}, {8, 0, 0}, {2, 3, 9}, {2, 0, 0}}),
                     {{2, 10, 11}, {2, 8, 9}, {2, 3, 4}, {2, 0, 0}}));
}

TEST(RoiIntersectionRows, NegativeRowsAndRowsBelowTheFrameAreRowsLikeAnyOther)
{
    EXPECT_TRUE(same(intersected({{50, 0, 9}, {-3, 0, 9}, {-1, 0, 9}}, {{-1, 4, 5}, {-3, 7, 8}, {50, -1, 1}}),
                     {{-3, 7, 8}, {-1, 4, 5}, {50, 0, 1}}));
    EXPECT_TRUE(same(intersected({{highest, 0, 9}, {lowest, 0, 9}}, {{lowest, 4, 5}, {highest, 8, 9}}),
                     {{lowest, 4, 5}, {highest, 8, 9}}));
}

TEST(RoiIntersectionRows, PairsAreCombinedAsThoseOfRegions)
{
    EXPECT_TRUE(same(pair({1, 2, 8}, {1, 5, 12}), {{1, 5, 8}}));
    EXPECT_TRUE(same(pair({1, 5, 12}, {1, 2, 8}), {{1, 5, 8}}));
    EXPECT_TRUE(same(pair({1, 3, 4}, {1, 2, 9}), {{1, 3, 4}}));
    EXPECT_TRUE(same(pair({1, 2, 9}, {1, 3, 4}), {{1, 3, 4}}));
    EXPECT_TRUE(same(pair({1, 2, 4}, {1, 4, 9}), {{1, 4, 4}}));
    EXPECT_TRUE(same(pair({1, 2, 4}, {1, 5, 9}), {}));
    EXPECT_TRUE(same(pair({1, 6, 2}, {1, 3, 4}), {{1, 6, 2}}));
    EXPECT_TRUE(same(pair({1, 2, 8}, {1, 6, 4}), {{1, 6, 4}}));
    EXPECT_TRUE(same(pair({1, 3, 3}, {1, 9, 3}), {}));
}

// ---------------------------------------------------------------------------------------------------------------
// The ends of the lists

TEST(RoiIntersectionListEnds, ASingleRunOfAGivesNothing)
{
    EXPECT_TRUE(same(intersected({{1, 0, 9}}, {{1, 3, 4}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}}, {{1, 3, 4}, {1, 6, 7}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}}, {{1, 3, 4}, {2, 3, 4}}), {}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}}, {{0, 3, 4}, {1, 3, 4}, {2, 3, 4}}), {}));
}

TEST(RoiIntersectionListEnds, ALastRowOfBOfOneRunIsPaired)
{
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {{1, 3, 4}, {2, 3, 4}}), {{1, 3, 4}, {2, 3, 4}}));
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}}, {{0, 2, 3}, {1, 2, 3}}), {{1, 2, 3}}));
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}}, {{1, 2, 3}}), {{1, 2, 3}}));
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 3}, {2, 5, 8}}, {{2, 2, 6}}), {{2, 2, 3}, {2, 5, 6}}));
}

TEST(RoiIntersectionListEnds, ALastRowOfBOfTwoRunsGivesNothing)
{
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {{1, 3, 4}, {2, 3, 4}, {2, 6, 7}}), {{1, 3, 4}}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {{0, 0, 0}, {1, 3, 4}, {1, 6, 7}}), {}));
}

TEST(RoiIntersectionListEnds, ALastRowThatIsAllOfBGivesItsFirstRun)
{
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {{1, 3, 4}, {1, 6, 7}}), {{1, 3, 4}}));
    EXPECT_TRUE(same(intersected({{1, 0, 9}, {2, 0, 9}}, {{1, 6, 7}, {1, 3, 4}, {1, 9, 9}}), {{1, 6, 7}}));
}

TEST(RoiIntersectionListEnds, TheLastRowOfAIsARowLikeAnyOther)
{
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}}, {{2, 2, 3}, {3, 0, 0}}), {{2, 2, 3}}));
    EXPECT_TRUE(same(intersected({{1, 0, 5}, {2, 0, 5}}, {{1, 1, 1}, {2, 2, 3}, {3, 0, 0}}), {{1, 1, 1}, {2, 2, 3}}));
    EXPECT_TRUE(same(intersected({{2, 0, 3}, {2, 5, 8}}, {{2, 2, 6}, {3, 0, 0}}), {{2, 2, 3}, {2, 5, 6}}));
}

// ---------------------------------------------------------------------------------------------------------------
// One object as both operands

TEST(RoiIntersectionWithItself, LosesALastRowOfTwoRuns)
{
    const KivROI a = KivROI::Mask({{2, 9, 9}, {1, 0, 3}, {1, 5, 6}}, 12, 6);
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROIAnd, a, used),
                     KivROI::Mask({{1, 0, 3}, {1, 5, 6}, {2, 9, 9}}, 12, 6)));
    const KivROI two_at_the_end = KivROI::Mask({{2, 9, 9}, {1, 0, 3}, {2, 5, 6}}, 12, 6);
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROIAnd, two_at_the_end, used),
                     KivROI::Mask({{1, 0, 3}}, 12, 6)));
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROIAnd, KivROI::Mask({{2, 4, 4}}, 12, 6), used),
                     KivROI::Mask({}, 12, 6)));
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROIAnd, bare_mask, used), KivROI()));
}

} // namespace
