// SPDX-License-Identifier: MIT
// Shapes of few runs in frames whose masks would take 32 GB or 16 TB: with the bundled data types no mask is made where
// no pixel of one is read or written.
#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <vector>

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

TEST(Maskless, AContourIsFilled)
{
    constexpr int columns = 1 << 15; // further to the right, it is drawn in its frame
    KivContour contour = {{columns - 3, height - 2}, {columns - 3, height - 1}, {columns - 1, height - 1}};
    KivRegion region;
    EXPECT_EQ(KIVMV::KivContourToRegion(contour, &region), KIVMV::KIVMV_OK);
    EXPECT_EQ(region, KivRegion(columns, height,
                                {{height - 2, columns - 3, columns - 2}, {height - 1, columns - 3, columns - 1}}));
}

constexpr int far_away = 1 << 22;
const std::vector<Run> far_runs = {{1, 1, 3}, {far_away - 1, far_away - 2, far_away - 1}};

TEST(Maskless, AnRoiBecomesARegion)
{
    KivROI roi = KivROI::Mask(far_runs, far_away, far_away);
    KivRegion region;
    EXPECT_EQ(KIVMV::KivROIToRegion(roi, &region), KIVMV::KIVMV_OK);
    EXPECT_EQ(region, KivRegion(far_away, far_away, far_runs));
}

TEST(Maskless, PixelsAreListed)
{
    KivRegion region(far_away, far_away, far_runs);
    KivVarArray xs;
    KivVarArray ys;
    EXPECT_EQ(KIVMV::KivRegionToVarArray(region, &xs, &ys), KIVMV::KIVMV_OK);
    EXPECT_EQ(xs, (KivVarArray{1, 2, 3, far_away - 2, far_away - 1}));
    EXPECT_EQ(ys, (KivVarArray{1, 1, 1, far_away - 1, far_away - 1}));
}

TEST(Maskless, PixelsInAnyOrderBecomeARegion)
{
    KivVarArray xs = {far_away - 1, 3, 1, -1, 2, far_away - 2, 2};
    KivVarArray ys = {far_away - 1, 1, 1, 5, 1, far_away - 1, 1};
    KivRegion region;
    EXPECT_EQ(KIVMV::KivVarArrayToRegion(xs, ys, &region), KIVMV::KIVMV_OK);
    EXPECT_EQ(region, KivRegion(far_away, far_away, far_runs));
}

} // namespace
