// SPDX-License-Identifier: MIT
// The union of ROIs: results worked out by hand.
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

KivROI sum(const KivROI& a, const KivROI& b)
{
    return support::combined<KivROI>(KIVMV::KivROIAdd, a, b, used);
}

testing::AssertionResult rejected(const KivROI& a, const KivROI& b, int code)
{
    return support::gives<KivROI>(KIVMV::KivROIAdd, a, b, used, code, used);
}

// The runs of the union of two masks that have one frame.
Runs united(const Runs& a, const Runs& b)
{
    const KivROI result = sum(KivROI::Mask(a, 20, 10), KivROI::Mask(b, 20, 10));
    EXPECT_TRUE(same(result, KivROI::Mask(result.Parameters().MaskRuns(), 20, 10))); // a mask of that frame
    return result.Parameters().MaskRuns();
}

// A single pair of runs: A has two other runs below, so that no rule about the ends of the lists comes in.
Runs pair(const Run& a, const Run& b)
{
    Runs runs = united({a, {8, 0, 0}, {9, 0, 0}}, {b});
    EXPECT_GE(runs.size(), 2U);
    EXPECT_TRUE(same(Runs(runs.end() - 2, runs.end()), {{8, 0, 0}, {9, 0, 0}}));
    runs.resize(runs.size() - 2);
    return runs;
}

// ---------------------------------------------------------------------------------------------------------------
// Operands without a mask

TEST(RoiUnionTypes, AnOpenCurveIsRefused)
{
    for (const KivROI& other : {curve, empty, mask, bare_mask, rectangle, KivROI()}) {
        EXPECT_TRUE(rejected(curve, other, KIVMV::KIVMV_ERR_PARAM_1));
    }
    for (const KivROI& other : {empty, mask, bare_mask, rectangle, KivROI()}) {
        EXPECT_TRUE(rejected(other, curve, KIVMV::KIVMV_ERR_PARAM_2));
    }
}

TEST(RoiUnionTypes, TwoEmptyRoisAreRefused)
{
    EXPECT_TRUE(rejected(empty, empty, KIVMV::KIVMV_ERR_PARAM_1));
    EXPECT_TRUE(rejected(KivROI(), empty, KIVMV::KIVMV_ERR_PARAM_1));
    EXPECT_TRUE(rejected(KivROI(), KivROI(), KIVMV::KIVMV_ERR_PARAM_1));
}

TEST(RoiUnionTypes, ARefusedOperandThatIsTheOutputStaysAsItIs)
{
    KivROI a(curve);
    KivROI b(mask);
    EXPECT_EQ(KIVMV::KivROIAdd(a, b, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, curve));
    EXPECT_EQ(KIVMV::KivROIAdd(b, a, &a), KIVMV::KIVMV_ERR_PARAM_2);
    EXPECT_TRUE(same(a, curve));
    EXPECT_EQ(KIVMV::KivROIAdd(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, curve));
    a = empty;
    EXPECT_EQ(KIVMV::KivROIAdd(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, empty));
}

TEST(RoiUnionTypes, AnEmptyRoiGivesACopyOfTheOther)
{
    for (const KivROI& other : {mask, bare_mask, rectangle, rectangle_outside}) {
        EXPECT_TRUE(same(sum(empty, other), other));
        EXPECT_TRUE(same(sum(other, empty), other));
        EXPECT_TRUE(same(sum(KivROI(), other), other));
        EXPECT_TRUE(same(sum(other, KivROI()), other));
    }
}

TEST(RoiUnionTypes, AMaskWithoutRunsGivesACopyOfTheOther)
{
    for (const KivROI& without : {bare_mask, rectangle_outside}) {
        EXPECT_TRUE(same(sum(without, mask), mask));
        EXPECT_TRUE(same(sum(mask, without), mask));
        EXPECT_TRUE(same(sum(without, rectangle), rectangle));
        EXPECT_TRUE(same(sum(rectangle, without), rectangle));
    }
    // the first one without runs decides
    EXPECT_TRUE(same(sum(bare_mask, rectangle_outside), rectangle_outside));
    EXPECT_TRUE(same(sum(rectangle_outside, bare_mask), bare_mask));
}

TEST(RoiUnionTypes, RunsDecideNotTheFrame)
{
    const KivROI without_frame = KivROI::Mask({{1, 0, 3}, {2, 5, 5}}, 0, 0);
    EXPECT_TRUE(same(sum(without_frame, KivROI::Mask({{4, 1, 1}}, 0, 0)),
                     KivROI::Mask({{1, 0, 3}, {2, 5, 5}, {4, 1, 1}}, 0, 0)));
}

TEST(RoiUnionTypes, OtherShapesCountByTheirPixels)
{
    // the rectangle's last row joins the one before it
    EXPECT_TRUE(same(sum(rectangle, KivROI::Mask({{1, 6, 7}, {5, 0, 0}}, 10, 30)),
                     KivROI::Mask({{1, 1, 4}, {1, 6, 7}, {2, 1, 4}, {2, 6, 7}, {5, 0, 0}}, 12, 30)));
    EXPECT_TRUE(same(sum(KivROI::Mask({{0, 6, 7}, {5, 0, 0}}, 10, 30), rectangle),
                     KivROI::Mask({{0, 6, 7}, {5, 0, 0}, {1, 1, 4}, {2, 1, 4}}, 12, 30)));
}

// ---------------------------------------------------------------------------------------------------------------
// Frames

TEST(RoiUnionFrame, IsAsWideAsTheWiderAndAsHighAsTheHigherMask)
{
    const KivROI high = KivROI::Mask({{0, 0, 9}, {1, 0, 0}}, 640, 480);
    const KivROI wide = KivROI::Mask({{5, 0, 9}, {6, 0, 0}}, 800, 200);
    EXPECT_TRUE(same(sum(high, wide), KivROI::Mask({{0, 0, 9}, {1, 0, 0}, {5, 0, 9}, {6, 0, 0}}, 800, 480)));
    EXPECT_TRUE(same(sum(wide, high), KivROI::Mask({{5, 0, 9}, {6, 0, 0}, {0, 0, 9}, {1, 0, 0}}, 800, 480)));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows

TEST(RoiUnionRows, SharedAndUnsharedRowsInTurn)
{
    EXPECT_TRUE(same(united({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {5, 0, 0}, {6, 0, 0}, {8, 0, 0}, {9, 0, 0}},
                            {{0, 4, 4}, {3, 4, 4}, {4, 4, 4}, {6, 4, 4}, {7, 4, 4}, {9, 4, 4}, {11, 4, 4}}),
                     {{1, 0, 0},
                      {2, 0, 0},
                      {3, 0, 0},
                      {3, 4, 4},
                      {5, 0, 0},
                      {6, 0, 0},
                      {6, 4, 4},
                      {8, 0, 0},
                      {9, 0, 0}, // with the row before it, which B lacks
                      {0, 4, 4},
                      {4, 4, 4},
                      {7, 4, 4},
                      {11, 4, 4}}));
}

TEST(RoiUnionRows, DisjointRowsGiveAThenB)
{
    EXPECT_TRUE(same(united({{0, 0, 1}, {1, 2, 3}, {2, 4, 5}}, {{5, 6, 7}, {6, 8, 9}}),
                     {{0, 0, 1}, {1, 2, 3}, {2, 4, 5}, {5, 6, 7}, {6, 8, 9}}));
    EXPECT_TRUE(same(united({{5, 6, 7}, {6, 8, 9}}, {{0, 0, 1}, {1, 2, 3}, {2, 4, 5}}),
                     {{5, 6, 7}, {6, 8, 9}, {0, 0, 1}, {1, 2, 3}, {2, 4, 5}}));
}

TEST(RoiUnionRows, UnsortedInputIsGroupedByRowAndKeepsItsOrderWithinARow)
{
    EXPECT_TRUE(
        same(united({{7, 3, 3}, {2, 5, 6}, {9, 0, 0}, {2, 0, 1}}, {{4, 1, 1}, {2, 12, 13}, {4, 0, 0}, {2, 9, 9}}),
             {{2, 5, 6},
              {2, 12, 13},
              {2, 5, 6},
              {2, 9, 9},
              {2, 0, 1},
              {2, 12, 13},
              {2, 0, 1},
              {2, 9, 9},
              {7, 3, 3},
              {9, 0, 0},
              {4, 1, 1},
              {4, 0, 0}}));
}

TEST(RoiUnionRows, NegativeRowsAndRowsBelowTheFrameAreRowsLikeAnyOther)
{
    EXPECT_TRUE(
        same(united({{60, 0, 1}, {50, 0, 1}, {-3, 0, 1}, {-1, 0, 1}}, {{-1, 4, 5}, {-2, 4, 5}, {70, 4, 5}, {-3, 4, 5}}),
             {{-3, 0, 1}, {-3, 4, 5}, {-1, 0, 1}, {-1, 4, 5}, {50, 0, 1}, {60, 0, 1}, {-2, 4, 5}, {70, 4, 5}}));
    EXPECT_TRUE(same(united({{highest, 0, 1}, {lowest, 0, 1}}, {{0, 4, 5}, {lowest, 8, 9}}),
                     {{lowest, 0, 1}, {lowest, 8, 9}, {highest, 0, 1}, {highest, 8, 9}, {0, 4, 5}}));
}

// ---------------------------------------------------------------------------------------------------------------
// Pairs

TEST(RoiUnionPairs, AreCombinedAsThoseOfRegions)
{
    EXPECT_TRUE(same(pair({1, 2, 8}, {1, 5, 12}), {{1, 2, 12}}));
    EXPECT_TRUE(same(pair({1, 5, 12}, {1, 2, 8}), {{1, 2, 12}}));
    EXPECT_TRUE(same(pair({1, 2, 4}, {1, 4, 9}), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair({1, 2, 4}, {1, 5, 9}), {{1, 2, 4}, {1, 5, 9}}));
    EXPECT_TRUE(same(pair({1, 6, 9}, {1, 2, 4}), {{1, 2, 4}, {1, 6, 9}}));
    EXPECT_TRUE(same(pair({1, 3, 4}, {1, 2, 9}), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair({1, 2, 9}, {1, 3, 4}), {{1, 2, 9}}));
    EXPECT_TRUE(same(pair({1, 3, 3}, {1, 9, 3}), {{1, 9, 3}}));
    EXPECT_TRUE(same(pair({1, 6, 2}, {1, 8, 9}), {{1, 6, 2}, {1, 8, 9}}));
}

TEST(RoiUnionPairs, EveryRunOfARowMeetsEveryOther)
{
    EXPECT_TRUE(same(united({{1, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}}, {{1, 2, 3}, {1, 0, 6}, {4, 1, 1}, {4, 1, 1}}),
                     {{1, 0, 0},
                      {1, 2, 3},
                      {1, 0, 6},
                      {1, 0, 0},
                      {1, 2, 3},
                      {1, 0, 6},
                      {2, 0, 0},
                      {3, 0, 0},
                      {4, 1, 1},
                      {4, 1, 1}}));
}

// ---------------------------------------------------------------------------------------------------------------
// The ends of the lists

TEST(RoiUnionListEnds, ALoneLastRunIsPairedWithTheRunsOfTheMatchedRowBeforeIt)
{
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 10, 12}}, {{1, 5, 6}, {4, 0, 0}}),
                     {{1, 0, 3}, {1, 5, 6}, {2, 5, 6}, {2, 10, 12}, {4, 0, 0}}));
    EXPECT_TRUE(same(united({{1, 0, 3}, {1, 8, 9}, {2, 10, 12}}, {{1, 5, 6}, {1, 9, 11}, {3, 0, 0}}), {{1, 0, 3},
                                                                                                       {1, 5, 6},
                                                                                                       {1, 0, 3},
                                                                                                       {1, 9, 11},
                                                                                                       {1, 5, 6},
                                                                                                       {1, 8, 9},
                                                                                                       {1, 8, 11},
                                                                                                       {2, 5, 6},
                                                                                                       {2, 10, 12},
                                                                                                       {2, 9, 12},
                                                                                                       {3, 0, 0}}));
}

TEST(RoiUnionListEnds, TheRunsOfBOnTheLastRowOfAAreLost)
{
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 10, 12}}, {{1, 5, 6}, {2, 0, 1}, {4, 0, 0}}),
                     {{1, 0, 3}, {1, 5, 6}, {2, 5, 6}, {2, 10, 12}, {4, 0, 0}}));
    EXPECT_TRUE(
        same(united({{1, 0, 3}, {2, 10, 12}}, {{2, 0, 1}, {2, 3, 3}, {4, 0, 0}}), {{1, 0, 3}, {2, 10, 12}, {4, 0, 0}}));
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 10, 12}, {2, 14, 14}}, {{2, 0, 1}, {4, 0, 0}}), {{1, 0, 3}, {4, 0, 0}}));
}

TEST(RoiUnionListEnds, ALoneLastRunAfterAnUnmatchedRowIsKeptAsItIs)
{
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 10, 12}}, {{2, 5, 6}, {4, 0, 0}}), {{1, 0, 3}, {2, 10, 12}, {4, 0, 0}}));
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 10, 12}}, {{0, 5, 6}}), {{1, 0, 3}, {2, 10, 12}, {0, 5, 6}}));
    EXPECT_TRUE(same(united({{0, 1, 1}, {1, 0, 3}, {2, 10, 12}}, {{0, 5, 6}, {2, 0, 0}}),
                     {{0, 1, 1}, {0, 5, 6}, {1, 0, 3}, {2, 10, 12}}));
}

TEST(RoiUnionListEnds, ALastRowOfTwoRunsGivesNothing)
{
    EXPECT_TRUE(same(united({{1, 0, 3}, {2, 0, 1}, {2, 8, 9}}, {{4, 0, 0}}), {{1, 0, 3}, {4, 0, 0}}));
    EXPECT_TRUE(
        same(united({{1, 0, 3}, {2, 0, 1}, {2, 8, 9}}, {{1, 5, 6}, {4, 0, 0}}), {{1, 0, 3}, {1, 5, 6}, {4, 0, 0}}));
    EXPECT_TRUE(
        same(united({{2, 0, 1}, {1, 0, 3}, {2, 8, 9}, {2, 4, 4}}, {{2, 5, 6}, {4, 0, 0}}), {{1, 0, 3}, {4, 0, 0}}));
}

TEST(RoiUnionListEnds, OneRowOfAGivesOnlyBOnOtherRows)
{
    EXPECT_TRUE(same(united({{5, 0, 3}, {5, 6, 8}}, {{1, 2, 3}, {5, 1, 9}, {6, 0, 0}}), {{1, 2, 3}, {6, 0, 0}}));
    EXPECT_TRUE(same(united({{5, 0, 3}}, {{1, 2, 3}, {5, 1, 9}, {6, 0, 0}}), {{1, 2, 3}, {6, 0, 0}}));
    EXPECT_TRUE(same(united({{5, 0, 3}}, {{6, 2, 3}, {4, 1, 9}, {6, 0, 0}}), {{4, 1, 9}, {6, 2, 3}, {6, 0, 0}}));
    EXPECT_TRUE(same(united({{5, 0, 3}}, {{5, 1, 9}}), {}));
    EXPECT_TRUE(same(united({{5, 0, 3}, {5, 5, 5}}, {{5, 1, 9}, {5, 2, 2}}), {}));
}

TEST(RoiUnionListEnds, ALastRowOfBOfOneRunIsPaired)
{
    EXPECT_TRUE(same(united({{1, 0, 1}, {2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{1, 4, 5}, {2, 4, 5}}),
                     {{1, 0, 1}, {1, 4, 5}, {2, 0, 1}, {2, 4, 5}}));
    EXPECT_TRUE(
        same(united({{2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{1, 4, 5}, {2, 4, 5}}), {{2, 0, 1}, {2, 4, 5}, {1, 4, 5}}));
    EXPECT_TRUE(same(united({{2, 0, 1}, {3, 9, 9}}, {{2, 4, 5}}), {{2, 0, 1}, {2, 4, 5}, {3, 4, 5}, {3, 9, 9}}));
}

TEST(RoiUnionListEnds, ALastRowOfBOfTwoRunsTakesTheRowOfAWithIt)
{
    // after another shared row
    EXPECT_TRUE(same(united({{1, 0, 1}, {2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{1, 4, 5}, {2, 4, 5}, {2, 7, 8}}),
                     {{1, 0, 1}, {1, 4, 5}}));
    // after a row that A lacks
    EXPECT_TRUE(same(united({{2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{1, 9, 9}, {2, 4, 5}, {2, 7, 8}}), {{1, 9, 9}}));
    // the lone last run that joins such a row is lost as well; one that comes later is not
    EXPECT_TRUE(same(united({{2, 0, 1}, {3, 0, 0}}, {{1, 9, 9}, {2, 4, 5}, {2, 7, 8}}), {{1, 9, 9}}));
    EXPECT_TRUE(same(united({{2, 0, 1}, {3, 0, 0}, {4, 0, 0}}, {{1, 9, 9}, {2, 4, 5}, {2, 7, 8}}),
                     {{3, 0, 0}, {4, 0, 0}, {1, 9, 9}}));
}

TEST(RoiUnionListEnds, ALastRowThatIsAllOfBIsPairedThroughItsFirstRun)
{
    EXPECT_TRUE(same(united({{2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{2, 4, 5}, {2, 7, 8}}), {{2, 0, 1}, {2, 4, 5}}));
    EXPECT_TRUE(same(united({{2, 0, 1}, {3, 0, 0}, {3, 2, 2}}, {{2, 7, 8}, {2, 4, 5}}), {{2, 0, 1}, {2, 7, 8}}));
    EXPECT_TRUE(same(united({{1, 0, 0}, {2, 0, 1}, {3, 0, 0}}, {{2, 7, 8}, {2, 4, 5}}),
                     {{1, 0, 0}, {2, 0, 1}, {2, 7, 8}, {3, 0, 0}, {3, 7, 8}}));
}

// ---------------------------------------------------------------------------------------------------------------
// One object as both operands

TEST(RoiUnionWithItself, PairsEveryRowWithItselfButTheLast)
{
    const KivROI a = KivROI::Mask({{2, 9, 9}, {1, 0, 3}, {1, 5, 6}}, 12, 6);
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROIAdd, a, used), KivROI::Mask({{1, 0, 3},
                                                                                                     {1, 0, 3},
                                                                                                     {1, 5, 6},
                                                                                                     {1, 0, 3},
                                                                                                     {1, 5, 6},
                                                                                                     {1, 5, 6},
                                                                                                     {2, 0, 3},
                                                                                                     {2, 9, 9},
                                                                                                     {2, 5, 6},
                                                                                                     {2, 9, 9}},
                                                                                                    12, 6)));
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROIAdd, KivROI::Mask({{2, 4, 4}}, 12, 6), used),
                     KivROI::Mask({}, 12, 6)));
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROIAdd, bare_mask, used), bare_mask));
}

} // namespace
