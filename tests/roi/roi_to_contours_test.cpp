// SPDX-License-Identifier: MIT
// ROIs traced into contours: outlines, clipping, frames without pixels and ROIs without pixels.
#include "support/coordinates.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{

using KIVMV::KivROIToContourArray;
using support::same;
using support::same_outline;
using support::same_values;

const KivContourArray earlier = {{{7, 8}, {9, 10}}, {{0.5, 0.25}}};

KivContourArray traced(const KivROI& roi)
{
    KivROI input(roi);
    KivContourArray contours(earlier);
    EXPECT_EQ(KivROIToContourArray(input, &contours), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same(input, roi));
    return contours;
}

void expect_refused(const KivROI& roi)
{
    SCOPED_TRACE(support::described(roi));
    KivROI input(roi);
    KivContourArray contours(earlier);
    EXPECT_EQ(KivROIToContourArray(input, &contours), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(same_values(contours, earlier));
    EXPECT_TRUE(same(input, roi));
}

TEST(RoiToContours, AShapeHasTheBorderPixelsOfItsMaskAsOutline)
{
    const KivContourArray contours = traced(KivROI::Rectangle(1.0, 1.0, 3.0, 3.0, 6, 5));
    ASSERT_EQ(contours.Length(), 1);
    EXPECT_TRUE(same_outline(contours[0], {{1, 1}, {1, 2}, {1, 3}, {2, 3}, {3, 3}, {3, 2}, {3, 1}, {2, 1}}));
}

TEST(RoiToContours, ARingHasTwoContours)
{
    const KivContourArray contours = traced(KivROI::Ring(8.0, 8.0, 3.0, 6.0, 17, 17));
    ASSERT_EQ(contours.Length(), 2);
    EXPECT_NE(contours[0].IsHole(), contours[1].IsHole());
}

TEST(RoiToContours, TheRunsOfAMaskAreClippedToTheFrame)
{
    EXPECT_TRUE(same_values(traced(KivROI::Mask({{1, -5, 99}, {-1, 0, 2}, {3, 0, 2}}, 3, 3)),
                            traced(KivROI::Mask({{1, 0, 2}}, 3, 3))));
    EXPECT_TRUE(support::is_quick([] {
        EXPECT_TRUE(
            same_values(traced(KivROI::Mask({{1, INT_MIN, INT_MAX}}, 3, 3)), traced(KivROI::Mask({{1, 0, 2}}, 3, 3))));
    }));
}

TEST(RoiToContours, PartsApartHaveContoursOfTheirOwn)
{
    EXPECT_EQ(traced(KivROI::Mask({{0, 0, 0}, {0, 2, 2}, {2, 0, 0}}, 3, 3)).Length(), 3);
}

TEST(RoiToContours, ASinglePixelIsOnePoint)
{
    EXPECT_TRUE(same_values(traced(KivROI::Mask({{2, 1, 1}}, 3, 3)), {{{1, 2}}}));
}

TEST(RoiToContours, AMaskWithoutRunsHasNoContours)
{
    EXPECT_TRUE(same_values(traced(KivROI::Mask({}, 3, 3)), {}));
}

TEST(RoiToContours, AFrameWithoutColumnsOrRowsHasNoContours)
{
    EXPECT_TRUE(same_values(traced(KivROI::Mask({{1, 0, 2}}, 0, 5)), {}));
    EXPECT_TRUE(same_values(traced(KivROI::Mask({{0, 0, 2}}, 5, 0)), {}));
    EXPECT_TRUE(same_values(traced(KivROI::Mask({}, 0, 0)), {}));
}

TEST(RoiToContours, TheEmptyShapeIsRefused)
{
    expect_refused(KivROI());
    expect_refused(KivROI(KivShape::Empty{}, 6, 5));
}

TEST(RoiToContours, AnOpenCurveIsRefused)
{
    expect_refused(KivROI::OpenCurve({{1, 1}, {3, 3}}, 6, 5));
    expect_refused(KivROI::OpenCurve({}, 0, 0));
}

TEST(RoiToContours, AFrameThatIsTooLargeToHoldRaises)
{
    KivROI roi = KivROI::Mask({{1, 0, 3}}, INT_MAX, INT_MAX);
    KivContourArray contours(earlier);
    EXPECT_TRUE(support::raises([&] { return KivROIToContourArray(roi, &contours); }));
    EXPECT_TRUE(same_values(contours, earlier));
}

} // namespace
