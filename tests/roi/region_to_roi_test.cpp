// SPDX-License-Identifier: MIT
// ROIs that are masks of regions: the region's runs and frame, whatever the ROI was before, and rejected regions.
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{

using KIVMV::KivRegionToROI;
using support::same;

// Of types with and without pixels.
const KivROI earlier[] = {KivROI(), KivROI::OpenCurve({{1, 1}, {3, 3}}, 6, 5), KivROI::Mask({{7, 3, 4}}, 9, 8),
                          KivROI::Circle(5.0, 5.0, 3.0, 20, 20)};

void expect_mask(const KivRegion& region)
{
    for (const KivROI& before : earlier) {
        SCOPED_TRACE(support::described(before));
        KivRegion input(region);
        KivROI roi(before);
        EXPECT_EQ(KivRegionToROI(input, &roi), KIVMV::KIVMV_OK);
        EXPECT_TRUE(same(roi, KivROI::Mask(region.Runs(), region.Width(), region.Height())));
        EXPECT_TRUE(same(input, region));
    }
}

void expect_refused(const KivRegion& region)
{
    for (const KivROI& before : earlier) {
        SCOPED_TRACE(support::described(before));
        KivRegion input(region);
        KivROI roi(before);
        EXPECT_EQ(KivRegionToROI(input, &roi), KIVMV::KIVMV_ERR_PARAM_1);
        EXPECT_TRUE(same(roi, before));
        EXPECT_TRUE(same(input, region));
    }
}

TEST(RegionToRoi, TheRunsAreKeptInTheirOrder)
{
    expect_mask(KivRegion(6, 3, {{2, 1, 3}, {0, 4, 5}, {0, 0, 1}}));
}

TEST(RegionToRoi, RunsAreNeitherMergedNorClipped)
{
    expect_mask(KivRegion(4, 2, {{0, 0, 2}, {0, 2, 4}, {0, 0, 2}, {-3, 1, 2}, {8, 1, 2}, {1, -5, 99}, {1, 4, 2}}));
    expect_mask(KivRegion(1, 1, {{INT_MIN, INT_MIN, INT_MAX}, {INT_MAX, INT_MAX, INT_MIN}}));
}

TEST(RegionToRoi, ARegionWithoutRunsGivesAMaskWithoutRuns)
{
    expect_mask(KivRegion(1, 1, {}));
    expect_mask(KivRegion(60, 50, {}));
}

TEST(RegionToRoi, ARegionWithoutRowsIsConverted)
{
    expect_mask(KivRegion(6, 0, {}));
    expect_mask(KivRegion(6, 0, {{0, 1, 2}}));
}

TEST(RegionToRoi, TheSizeOfTheFrameDoesNotMatter)
{
    expect_mask(KivRegion(INT_MAX, INT_MAX, {{4, 2, 3}}));
}

TEST(RegionToRoi, ARegionWithoutColumnsIsRefused)
{
    expect_refused(KivRegion());
    expect_refused(KivRegion(0, 5, {}));
}

TEST(RegionToRoi, ARegionWithoutColumnsIsRefusedWhateverItsRuns)
{
    expect_refused(KivRegion(0, 5, {{1, 0, 3}}));
}

} // namespace
