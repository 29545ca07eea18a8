// SPDX-License-Identifier: MIT
// Regions of ROIs: exactly the mask's runs, frames without columns or rows, and ROIs without pixels.
#include "support/coordinates.h"
#include "support/sanitizer_memory.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{

using KIVMV::KivROIToRegion;
using support::same;

const KivRegion earlier(9, 8, {{7, 3, 4}, {1, 2, 2}});

void expect_result(const KivROI& roi, int code, const KivRegion& expected)
{
    SCOPED_TRACE(support::described(roi));
    KivROI input(roi);
    KivRegion region(earlier);
    EXPECT_EQ(KivROIToRegion(input, &region), code);
    EXPECT_TRUE(same(region, expected));
    EXPECT_TRUE(same(input, roi));
}

void expect_region(const KivROI& roi, const KivRegion& expected)
{
    expect_result(roi, KIVMV::KIVMV_OK, expected);
}

void expect_refused(const KivROI& roi)
{
    expect_result(roi, KIVMV::KIVMV_ERR_PARAM_1, earlier);
}

TEST(RoiToRegion, TheRunsOfAMaskAreKeptInTheirOrder)
{
    expect_region(KivROI::Mask({{2, 1, 3}, {0, 4, 5}, {0, 0, 1}}, 6, 3),
                  KivRegion(6, 3, {{2, 1, 3}, {0, 4, 5}, {0, 0, 1}}));
}

TEST(RoiToRegion, RunsAreNeitherMergedNorClipped)
{
    const support::Runs runs = {{0, 0, 2},  {0, 2, 4}, {0, 3, 3},   {0, 0, 2},
                                {-3, 1, 2}, {8, 1, 2}, {1, -5, 99}, {1, 4, 2}};
    expect_region(KivROI::Mask(runs, 4, 2), KivRegion(4, 2, runs));
}

TEST(RoiToRegion, RunsFarOutsideOfTheFrameAreKeptAndQuick)
{
    const support::Runs runs = {{INT_MIN, INT_MIN, INT_MAX}, {1, INT_MIN, INT_MAX}, {INT_MAX, INT_MAX, INT_MIN}};
    EXPECT_TRUE(support::is_quick([&] { expect_region(KivROI::Mask(runs, 4, 2), KivRegion(4, 2, runs)); }));
}

TEST(RoiToRegion, AMaskWithoutRunsGivesARegionWithoutRuns)
{
    expect_region(KivROI::Mask({}, 6, 3), KivRegion(6, 3, {}));
}

TEST(RoiToRegion, AShapeGivesItsPixels)
{
    expect_region(KivROI::Rectangle(1.0, 1.0, 3.0, 2.0, 6, 5), KivRegion(6, 5, {{1, 1, 3}, {2, 1, 3}}));
    expect_region(KivROI::Circle(2.0, 2.0, 1.0, 6, 5), KivRegion(6, 5, {{1, 2, 2}, {2, 1, 3}, {3, 2, 2}}));
}

TEST(RoiToRegion, AShapeOutsideOfItsFrameGivesARegionWithoutRuns)
{
    expect_region(KivROI::Rectangle(10.0, 1.0, 13.0, 2.0, 6, 5), KivRegion(6, 5, {}));
}

TEST(RoiToRegion, AFrameWithoutRowsIsConverted)
{
    expect_region(KivROI::Mask({{0, 1, 2}}, 6, 0), KivRegion(6, 0, {{0, 1, 2}}));
    expect_region(KivROI::Rectangle(1.0, 1.0, 3.0, 2.0, 6, 0), KivRegion(6, 0, {}));
}

TEST(RoiToRegion, AFrameWithoutColumnsIsRefused)
{
    expect_refused(KivROI::Mask({}, 0, 5));
    expect_refused(KivROI::Mask({{1, 0, 3}}, 0, 5));
    expect_refused(KivROI::Mask({{1, 0, 3}}, 0, 0));
    expect_refused(KivROI::Rectangle(1.0, 1.0, 3.0, 2.0, 0, 5));
}

TEST(RoiToRegion, TheEmptyShapeIsRefused)
{
    expect_refused(KivROI());
    expect_refused(KivROI(KivShape::Empty{}, 6, 5));
}

TEST(RoiToRegion, AnOpenCurveIsRefused)
{
    expect_refused(KivROI::OpenCurve({{1, 1}, {3, 3}}, 6, 5));
    expect_refused(KivROI::OpenCurve({}, 0, 0));
}

TEST(RoiToRegion, AFrameThatIsTooLargeToHoldRaises)
{
    KivROI roi = KivROI::Mask({{1, 0, 3}}, INT_MAX, INT_MAX);
    KivRegion region(earlier);
    EXPECT_TRUE(support::raises([&] { return KivROIToRegion(roi, &region); }));
    EXPECT_TRUE(same(region, earlier));
}

} // namespace
