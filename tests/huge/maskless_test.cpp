// SPDX-License-Identifier: MIT
// Regions of few runs in frames whose masks would take 32 GB: with the bundled data types, contours and regions are
// made of each other without a mask.
#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

namespace
{

constexpr int width = 1 << 18;
constexpr int height = 1 << 17;

const KivRegion far_square(width, height, {{height - 2, width - 2, width - 1}, {height - 1, width - 2, width - 1}});
const KivContourArray its_border = {
    {{width - 2, height - 2}, {width - 2, height - 1}, {width - 1, height - 1}, {width - 1, height - 2}}};

TEST(Maskless, ARegionIsTraced)
{
    KivRegion region(far_square);
    KivContourArray contours;
    EXPECT_EQ(KIVMV::KivRegionToContourArray(region, &contours), KIVMV::KIVMV_OK);
    EXPECT_EQ(contours, its_border);
}

TEST(Maskless, AnRoiIsTraced)
{
    KivROI roi = KivROI::Mask(far_square.Runs(), width, height);
    KivContourArray contours;
    EXPECT_EQ(KIVMV::KivROIToContourArray(roi, &contours), KIVMV::KIVMV_OK);
    EXPECT_EQ(contours, its_border);
}

TEST(Maskless, ContoursAreFilled)
{
    KivContourArray contours(its_border);
    KivRegion region;
    EXPECT_EQ(KIVMV::KivContourArrayToRegion(contours, width, height, &region), KIVMV::KIVMV_OK);
    EXPECT_EQ(region, far_square);
}

} // namespace
