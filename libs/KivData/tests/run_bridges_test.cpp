// SPDX-License-Identifier: MIT
// Regions and regions of interest to sets of pixels and back.
#include <KivData/KivRunBridges.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace
{

using Runs = std::vector<Run>;

TEST(RunBridges, TakeTheRunsOfARegion)
{
    const KivRegion region(4, 3, {{2, 0, 1}, {0, 3, 9}, {2, 1, 2}, {0, 5, 4}});
    const KivRunSet set = KivRuns::SetOf(region);
    EXPECT_EQ(set, (KivRunSet{{0, 3, 9}, {2, 0, 2}}));
    EXPECT_EQ(KivRuns::RegionOf(set, 4, 3), KivRegion(4, 3, {{0, 3, 9}, {2, 0, 2}}));
}

TEST(RunBridges, UniteRegionsPlainly)
{
    const KivRegion a(9, 2, {{0, 0, 3}, {1, 0, 0}});
    const KivRegion b(9, 2, {{0, 2, 6}, {1, 4, 4}});
    const KivRegion any = KivRuns::RegionOf(KivRuns::SetOf(a) | KivRuns::SetOf(b), 9, 2);
    EXPECT_EQ(any.Runs(), (Runs{{0, 0, 6}, {1, 0, 0}, {1, 4, 4}}));
}

TEST(RunBridges, TakeThePixelsOfARegionOfInterest)
{
    const KivRunSet set = KivRuns::SetOf(KivROI::Rectangle(1, 0, 2, 1, 9, 9));
    EXPECT_EQ(set, (KivRunSet{{0, 1, 2}, {1, 1, 2}}));
    EXPECT_EQ(KivRuns::MaskOf(set, 9, 9), KivROI::Mask({{0, 1, 2}, {1, 1, 2}}, 9, 9));
    EXPECT_TRUE(KivRuns::SetOf(KivROI::OpenCurve({{0, 0}, {5, 5}}, 9, 9)).Empty());
    EXPECT_TRUE(KivRuns::SetOf(KivROI()).Empty());
}

TEST(RunBridges, RefuseNegativeFrames)
{
    EXPECT_THROW(KivRuns::RegionOf(KivRunSet(), -1, 0), std::invalid_argument);
    EXPECT_THROW(KivRuns::MaskOf(KivRunSet(), 0, -1), std::invalid_argument);
}

} // namespace
