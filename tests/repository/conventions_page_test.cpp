// SPDX-License-Identifier: MIT
// What docs/conventions.md says, and its table of what becomes of fractions.
#include "support/pictures.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace
{

using support::picture_of;
using support::Runs;
using support::same;

TEST(ConventionsPage, ContoursRunAlongTheCentresOfTheOutermostPixels)
{
    KivROI rectangle = KivROI::Rectangle(2, 1, 11, 4, 20, 8); // 10 columns
    KivContourArray contours;
    ASSERT_EQ(KIVMV::KivROIToContourArray(rectangle, &contours), 0);
    ASSERT_EQ(contours.Length(), 1);
    for (const cv::Point2d& point : contours[0].AllPoints()) {
        EXPECT_TRUE(point.x == 2 || point.x == 11 || point.y == 1 || point.y == 4) << point;
    }
}

TEST(ConventionsPage, RunsMayLieOutsideOfTheFrameAndShapesDoNot)
{
    const Runs outside{{1, -2, 1}, {5, 0, 0}};
    const KivRegion region(4, 3, outside);
    EXPECT_EQ(region.Runs(), outside);
    EXPECT_EQ(KivROI::Mask(outside, 4, 3).Parameters().MaskRuns(), outside);
    EXPECT_EQ(KivROI::Rectangle(-2, 1, 1, 5, 4, 3).Parameters().MaskRuns(), (Runs{{1, 0, 1}, {2, 0, 1}}));
}

TEST(ConventionsPage, FilledContoursAlsoHaveWhatTheirBorderPasses)
{
    const KivContour::Points corners{{0, 0}, {11, 3}, {0, 6}};
    KivContour contour(corners);
    KivRegion filled;
    ASSERT_EQ(KIVMV::KivContourToRegion(contour, &filled), 0);
    const Runs shape = KivROI::Polygon(corners, 12, 7).Parameters().MaskRuns();
    ASSERT_GE(filled.Runs().size(), 2U);
    EXPECT_EQ(filled.Runs()[1].colEnd, 5);
    EXPECT_EQ(shape[1].colEnd, 3);
}

TEST(ConventionsPage, WhatIsEnclosedTwiceIsNotFilled)
{
    const std::string outline = "####\n"
                                "#..#\n"
                                "#..#\n"
                                "####\n";
    const KivContour square{{0, 0}, {3, 0}, {3, 3}, {0, 3}};
    KivContour twice{{0, 0}, {3, 0}, {3, 3}, {0, 3}, {0, 0}, {3, 0}, {3, 3}, {0, 3}};
    KivRegion region;
    ASSERT_EQ(KIVMV::KivContourToRegion(twice, &region), 0);
    EXPECT_EQ(picture_of(region.Runs(), 4, 4), outline);
    KivContourArray squares{square, square};
    ASSERT_EQ(KIVMV::KivContourArrayToRegion(squares, 4, 4, &region), 0);
    EXPECT_EQ(picture_of(region.Runs(), 4, 4), outline);
}

TEST(ConventionsPage, ARegionWithAFrameAndWithoutRunsIsAllBackground)
{
    KivRegion region(3, 2, {});
    KivImage mask;
    ASSERT_EQ(KIVMV::KivRegionToBinImage(&mask, region), 0);
    EXPECT_EQ(picture_of(mask.Mat()), "...\n...\n");
}

constexpr int frame = 8;

/// The pixel (x, y) as a picture in a frame that all of the table's pixels lie in.
std::string pixel(int x, int y)
{
    return picture_of(Runs{{y, x, x}}, frame, frame);
}

/// The pixel that each function makes of a point, as the table has it.
struct Fraction {
    cv::Point2d point;
    cv::Point truncated;
    cv::Point rounded;
};
const Fraction fractions[] = {{{2.5, 3.5}, {2, 3}, {2, 4}}, {{-0.5, 4.9}, {0, 4}, {0, 5}}};

TEST(ConventionsPage, PointsAndOneContourAreTruncatedToARegion)
{
    for (const auto& [point, truncated, rounded] : fractions) {
        KivPointArray points{{point.x, point.y}, {7, 7}}; // a list in column 0 alone would be rejected
        KivRegion region;
        ASSERT_EQ(KIVMV::KivPointArrayToRegion(points, &region), 0);
        const KivRegion expected(frame, frame, {{truncated.y, truncated.x, truncated.x}, {7, 7, 7}});
        EXPECT_TRUE(same(region, expected));

        KivContour contour{point};
        ASSERT_EQ(KIVMV::KivContourToRegion(contour, &region), 0);
        EXPECT_EQ(picture_of(region.Runs(), frame, frame), pixel(truncated.x, truncated.y));
    }
}

TEST(ConventionsPage, DoublesInArraysAreTruncated)
{
    for (const auto& [point, truncated, rounded] : fractions) {
        KivVarArray xs{point.x, 7.9};
        KivVarArray ys{point.y, 7.9};
        KivRegion region;
        ASSERT_EQ(KIVMV::KivVarArrayToRegion(xs, ys, &region), 0);
        EXPECT_TRUE(same(region, KivRegion(frame, frame, {{truncated.y, truncated.x, truncated.x}, {7, 7, 7}})));
        KivContour contour;
        ASSERT_EQ(KIVMV::KivVarArrayToContour(xs, ys, &contour), 0);
        EXPECT_EQ(contour, (KivContour{cv::Point2d(truncated), {7, 7}}));
    }
}

TEST(ConventionsPage, WhatIsNoNumberBecomesZeroOrIsLeftOut)
{
    const double nan = std::nan("");
    KivContour contour{{nan, 2}, {5, nan}};
    KivVarArray xs;
    KivVarArray ys;
    ASSERT_EQ(KIVMV::KivContourToVarArray(contour, &xs, &ys), 0);
    EXPECT_EQ(xs, (KivVarArray{0, 5}));
    EXPECT_EQ(ys, (KivVarArray{2, 0}));
    KivPointArray points{{nan, 2}, {5, nan}};
    KivRegion region;
    ASSERT_EQ(KIVMV::KivPointArrayToRegion(points, &region), 0);
    EXPECT_TRUE(same(region, KivRegion(6, 3, {{0, 5, 5}, {2, 0, 0}})));

    KivContourArray contours{KivContour{{nan, 2}, {5, 1}, {5, nan}}};
    ASSERT_EQ(KIVMV::KivContourArrayToRegion(contours, 7, 3, &region), 0);
    EXPECT_TRUE(same(region, KivRegion(7, 3, {{1, 5, 5}})));
}

TEST(ConventionsPage, ContoursAreRoundedElsewhere)
{
    for (const auto& [point, truncated, rounded] : fractions) {
        KivContour contour{point};
        KivVarArray xs;
        KivVarArray ys;
        ASSERT_EQ(KIVMV::KivContourToVarArray(contour, &xs, &ys), 0);
        EXPECT_EQ(xs, KivVarArray{rounded.x});
        EXPECT_EQ(ys, KivVarArray{rounded.y});

        KivImage background(cv::Mat(frame, frame, CV_8UC1, cv::Scalar(0)));
        KivContourArray merged;
        ASSERT_EQ(KIVMV::KivMergContour(background, contour, true, &merged), 0);
        EXPECT_EQ(merged, KivContourArray{KivContour{cv::Point2d(rounded)}});

        KivContourArray contours{contour};
        KivRegion region;
        ASSERT_EQ(KIVMV::KivContourArrayToRegion(contours, frame, frame, &region), 0);
        EXPECT_EQ(picture_of(region.Runs(), frame, frame), pixel(rounded.x, rounded.y));
        KivImage mask;
        ASSERT_EQ(KIVMV::KivContourArrayToBinImage(&mask, contours, frame, frame), 0);
        EXPECT_EQ(picture_of(mask.Mat()), pixel(rounded.x, rounded.y));
    }
}

TEST(ConventionsPage, ContoursAndPointsKeepFractions)
{
    for (const auto& [point, truncated, rounded] : fractions) {
        KivContour contour{point};
        KivPointArray points;
        KivContour back;
        ASSERT_EQ(KIVMV::KivContourToPointArray(contour, &points), 0);
        EXPECT_EQ(points, (KivPointArray{{point.x, point.y}}));
        ASSERT_EQ(KIVMV::KivPointArrayToContour(points, &back), 0);
        EXPECT_EQ(back, contour);
    }
}

} // namespace
