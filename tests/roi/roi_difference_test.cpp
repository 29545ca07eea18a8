// SPDX-License-Identifier: MIT
// The difference of ROIs: results worked out by hand.
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

KivROI rest(const KivROI& a, const KivROI& b)
{
    return support::combined<KivROI>(KIVMV::KivROISub, a, b, used);
}

testing::AssertionResult rejected(const KivROI& a, const KivROI& b, int code)
{
    return support::gives<KivROI>(KIVMV::KivROISub, a, b, used, code, used);
}

// The runs of the difference of two masks that have one frame.
Runs cut(const Runs& a, const Runs& b)
{
    const KivROI result = rest(KivROI::Mask(a, 20, 10), KivROI::Mask(b, 20, 10));
    EXPECT_TRUE(same(result, KivROI::Mask(result.Parameters().MaskRuns(), 20, 10))); // a mask of that frame
    return result.Parameters().MaskRuns();
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
// Operands without a mask

TEST(RoiDifferenceTypes, AnOpenCurveIsRefused)
{
    for (const KivROI& other : {curve, empty, mask, bare_mask, rectangle, KivROI()}) {
        EXPECT_TRUE(rejected(curve, other, KIVMV::KIVMV_ERR_PARAM_1));
    }
    for (const KivROI& other : {empty, mask, bare_mask, rectangle, KivROI()}) {
        EXPECT_TRUE(rejected(other, curve, KIVMV::KIVMV_ERR_PARAM_2));
    }
}

TEST(RoiDifferenceTypes, TwoEmptyRoisAreRefused)
{
    EXPECT_TRUE(rejected(empty, empty, KIVMV::KIVMV_ERR_PARAM_1));
    EXPECT_TRUE(rejected(KivROI(), empty, KIVMV::KIVMV_ERR_PARAM_1));
    EXPECT_TRUE(rejected(KivROI(), KivROI(), KIVMV::KIVMV_ERR_PARAM_1));
}

TEST(RoiDifferenceTypes, ARefusedOperandThatIsTheOutputStaysAsItIs)
{
    KivROI a(curve);
    KivROI b(mask);
    EXPECT_EQ(KIVMV::KivROISub(a, b, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, curve));
    EXPECT_EQ(KIVMV::KivROISub(b, a, &a), KIVMV::KIVMV_ERR_PARAM_2);
    EXPECT_TRUE(same(a, curve));
    EXPECT_EQ(KIVMV::KivROISub(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, curve));
    a = empty;
    EXPECT_EQ(KIVMV::KivROISub(a, a, &a), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same(a, empty));
}

TEST(RoiDifferenceTypes, AnEmptyFirstOperandGivesADefaultRoi)
{
    for (const KivROI& other : {mask, bare_mask, rectangle, rectangle_outside}) {
        EXPECT_TRUE(same(rest(empty, other), KivROI()));
        EXPECT_TRUE(same(rest(KivROI(), other), KivROI()));
    }
}

TEST(RoiDifferenceTypes, AnEmptySecondOperandGivesACopyOfTheFirst)
{
    for (const KivROI& other : {mask, bare_mask, rectangle, rectangle_outside}) {
        EXPECT_TRUE(same(rest(other, empty), other));
        EXPECT_TRUE(same(rest(other, KivROI()), other));
    }
}

TEST(RoiDifferenceTypes, AFirstMaskWithoutRunsGivesADefaultRoi)
{
    for (const KivROI& without : {bare_mask, rectangle_outside}) {
        for (const KivROI& other : {mask, bare_mask, rectangle, rectangle_outside}) {
            EXPECT_TRUE(same(rest(without, other), KivROI()));
        }
    }
}

TEST(RoiDifferenceTypes, ASecondMaskWithoutRunsGivesACopyOfTheFirst)
{
    for (const KivROI& without : {bare_mask, rectangle_outside}) {
        for (const KivROI& other : {mask, rectangle}) {
            EXPECT_TRUE(same(rest(other, without), other));
        }
    }
}

TEST(RoiDifferenceTypes, RunsDecideNotTheFrame)
{
    const KivROI a = KivROI::Mask({{1, 0, 3}, {2, 5, 5}}, 0, 0);
    const KivROI b = KivROI::Mask({{1, 2, 9}}, 0, 0);
    EXPECT_TRUE(same(rest(a, b), KivROI::Mask({{1, 0, 1}, {2, 5, 5}}, 0, 0)));
}

TEST(RoiDifferenceTypes, OtherShapesCountByTheirPixels)
{
    EXPECT_TRUE(same(rest(rectangle, KivROI::Mask({{1, 3, 7}, {2, 0, 1}}, 10, 30)),
                     KivROI::Mask({{1, 1, 2}, {2, 2, 4}}, 12, 9)));
    EXPECT_TRUE(same(rest(KivROI::Mask({{1, 3, 7}, {2, 0, 1}}, 10, 30), rectangle),
                     KivROI::Mask({{1, 5, 7}, {2, 0, 0}}, 10, 30)));
}

// ---------------------------------------------------------------------------------------------------------------
// Frames

TEST(RoiDifferenceFrame, IsThatOfTheFirstMask)
{
    const KivROI small = KivROI::Mask({{0, 0, 99}, {1, 0, 0}}, 100, 30);
    const KivROI large = KivROI::Mask({{0, 50, 199}, {50, 0, 0}}, 200, 60);
    EXPECT_TRUE(same(rest(small, large), KivROI::Mask({{0, 0, 49}, {1, 0, 0}}, 100, 30)));
    EXPECT_TRUE(same(rest(large, small), KivROI::Mask({{0, 100, 199}, {50, 0, 0}}, 200, 60)));
    // a mask without runs, not a default ROI
    EXPECT_TRUE(same(rest(small, KivROI::Mask({{0, 0, 99}, {1, 0, 0}}, 3, 3)), KivROI::Mask({}, 100, 30)));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows and cuts

TEST(RoiDifferenceRows, RowsThatOnlyAHasAreKeptAndRowsThatOnlyBHasAreDropped)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {3, 0, 3}, {5, 0, 3}}, {{0, 0, 0}, {2, 0, 0}, {3, 1, 1}, {4, 0, 0}, {9, 0, 0}}),
                     {{1, 0, 3}, {3, 0, 0}, {3, 2, 3}, {5, 0, 3}}));
}

TEST(RoiDifferenceRows, UnsortedRowsAreGroupedAndTheRunsOfAKeepTheirOrder)
{
    EXPECT_TRUE(same(cut({{7, 3, 3}, {2, 8, 12}, {2, 0, 4}}, {{2, 10, 10}, {8, 0, 0}, {2, 3, 8}, {2, 0, 0}}),
                     {{2, 9, 9}, {2, 11, 12}, {2, 1, 2}, {7, 3, 3}}));
}

TEST(RoiDifferenceRows, NegativeRowsAndRowsBelowTheFrameAreRowsLikeAnyOther)
{
    EXPECT_TRUE(same(cut({{50, 0, 9}, {-3, 0, 9}, {-1, 0, 9}}, {{-1, 4, 5}, {60, 4, 5}, {-3, 7, 8}, {50, 1, 1}}),
                     {{-3, 0, 6}, {-3, 9, 9}, {-1, 0, 3}, {-1, 6, 9}, {50, 0, 0}, {50, 2, 9}}));
    EXPECT_TRUE(same(cut({{highest, 0, 9}, {lowest, 0, 9}}, {{lowest, 4, 5}, {highest, 8, 9}}),
                     {{lowest, 0, 3}, {lowest, 6, 9}, {highest, 0, 7}}));
}

TEST(RoiDifferenceRows, RunsAreCutAsThoseOfRegions)
{
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 3, 8}}), {}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 0, 3}}), {{1, 4, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 8, 20}}), {{1, 3, 7}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 5, 6}}), {{1, 3, 4}, {1, 7, 8}}));
    EXPECT_TRUE(same(cut_one(3, 8, {{1, 9, 20}}), {{1, 3, 8}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 7, 7}, {1, 4, 5}}), {{1, 2, 3}, {1, 6, 6}, {1, 8, 9}}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 0, 20}, {1, 5, 6}}), {}));
    EXPECT_TRUE(same(cut_one(2, 9, {{1, 6, 4}}), {{1, 2, 5}, {1, 5, 9}}));
    EXPECT_TRUE(same(cut_one(lowest, highest, {{1, 0, 0}}), {{1, lowest, -1}, {1, 1, highest}}));
}

// ---------------------------------------------------------------------------------------------------------------
// The ends of the lists

TEST(RoiDifferenceListEnds, ASingleRunOfAStaysAsItIs)
{
    EXPECT_TRUE(same(cut({{1, 0, 9}}, {{1, 2, 3}}), {{1, 0, 9}}));
    EXPECT_TRUE(same(cut({{1, 0, 9}}, {{1, 5, 9}, {0, 0, 9}, {1, 0, 3}}), {{1, 0, 9}}));
}

TEST(RoiDifferenceListEnds, ALoneLastRunAfterAnUnmatchedRowIsNotCut)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {2, 4, 6}}, {{2, 0, 9}}), {{1, 0, 3}, {2, 4, 6}}));
    EXPECT_TRUE(same(cut({{0, 0, 9}, {1, 0, 3}, {2, 4, 6}}, {{0, 1, 8}, {2, 0, 9}, {3, 0, 0}}),
                     {{0, 0, 0}, {0, 9, 9}, {1, 0, 3}, {2, 4, 6}}));
}

TEST(RoiDifferenceListEnds, ALoneLastRunAfterAMatchedRowIsCut)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {2, 4, 6}}, {{1, 0, 0}, {2, 0, 9}}), {{1, 1, 3}}));
}

TEST(RoiDifferenceListEnds, ALastRowOfTwoRunsIsCut)
{
    EXPECT_TRUE(same(cut({{1, 0, 3}, {2, 4, 6}, {2, 8, 12}}, {{2, 0, 9}}), {{1, 0, 3}, {2, 10, 12}}));
}

TEST(RoiDifferenceListEnds, TheLastRowOfBCutsLikeAnyOther)
{
    EXPECT_TRUE(same(cut({{1, 0, 9}, {2, 0, 9}}, {{0, 0, 0}, {1, 4, 5}, {1, 7, 7}}),
                     {{1, 0, 3}, {1, 6, 6}, {1, 8, 9}, {2, 0, 9}}));
    EXPECT_TRUE(same(cut({{1, 0, 9}, {2, 0, 9}}, {{1, 4, 5}, {2, 7, 7}, {2, 9, 9}}),
                     {{1, 0, 3}, {1, 6, 9}, {2, 0, 6}, {2, 8, 8}}));
}

// ---------------------------------------------------------------------------------------------------------------
// One object as both operands

TEST(RoiDifferenceWithItself, LeavesNothingUnlessItIsASingleRun)
{
    const KivROI a = KivROI::Mask({{2, 0, 0}, {1, 5, 6}, {1, 0, 3}}, 12, 6);
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROISub, a, used), KivROI::Mask({}, 12, 6)));
    const KivROI single = KivROI::Mask({{2, 4, 4}}, 12, 6);
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROISub, single, used), single));
    EXPECT_TRUE(same(support::combined_with_itself<KivROI>(KIVMV::KivROISub, bare_mask, used), KivROI()));
}

} // namespace
