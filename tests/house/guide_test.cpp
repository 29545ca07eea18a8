// SPDX-License-Identifier: MIT
// What the pages of the guide say in tables and pictures, page by page.
#include "support/pictures.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace
{

using support::picture_of;
using support::Runs;
using support::same;

// ---------------------------------------------------------------------------------------------------------------------
// Conventions

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
        KivPointArray points{{point.x, point.y}, {7, 7}}; // a list in column 0 alone would be refused
        KivRegion region;
        ASSERT_EQ(KIVMV::KivPointArrayToRegion(points, &region), 0);
        const KivRegion expected(frame, frame, {{truncated.y, truncated.x, truncated.x}, {7, 7, 7}});
        EXPECT_TRUE(same(region, expected));

        KivContour contour{point};
        ASSERT_EQ(KIVMV::KivContourToRegion(contour, &region), 0);
        EXPECT_EQ(picture_of(region.Runs(), frame, frame), pixel(truncated.x, truncated.y));
    }
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

// ---------------------------------------------------------------------------------------------------------------------
// Result codes: what the output holds after a failure

TEST(ResultCodesPage, ListsAreEmptyAfterAFailure)
{
    KivRegion no_region;
    KivContour no_contour;
    KivVarArray xs{7};
    KivVarArray ys{7};
    EXPECT_EQ(KIVMV::KivRegionToVarArray(no_region, &xs, &ys), 1100008);
    EXPECT_EQ(xs.Length() + ys.Length(), 0);
    xs = ys = KivVarArray{7};
    EXPECT_EQ(KIVMV::KivContourToVarArray(no_contour, &xs, &ys), 1100008);
    EXPECT_EQ(xs.Length() + ys.Length(), 0);

    KivPointArray points{{7, 7}};
    EXPECT_EQ(KIVMV::KivRegionToPointArray(no_region, &points), 1100008);
    EXPECT_EQ(points.Length(), 0);
    points = {{7, 7}};
    EXPECT_EQ(KIVMV::KivContourToPointArray(no_contour, &points), 1100008);
    EXPECT_EQ(points.Length(), 0);
}

TEST(ResultCodesPage, ContoursHoldWhatCameBeforeTheFailure)
{
    KivContour contour{{7, 7}};
    KivPointArray no_points;
    EXPECT_EQ(KIVMV::KivPointArrayToContour(no_points, &contour), 1100008);
    EXPECT_EQ(contour, KivContour());

    KivVarArray xs{1, 2, "three"};
    KivVarArray ys{4, 5, 6};
    EXPECT_EQ(KIVMV::KivVarArrayToContour(xs, ys, &contour), 1100008);
    EXPECT_EQ(contour, (KivContour{{1, 4}, {2, 5}}));
    KivVarArray text_first{4, "five", 6};
    EXPECT_EQ(KIVMV::KivVarArrayToContour(ys, text_first, &contour), 1100009);
    EXPECT_EQ(contour, (KivContour{{4, 4}}));
}

TEST(ResultCodesPage, SetOperationsGiveAnEmptyResult)
{
    for (const auto operation : {KIVMV::KivRegionAdd, KIVMV::KivRegionAnd, KIVMV::KivRegionSub}) {
        KivRegion none;
        KivRegion out(3, 3, {{1, 1, 1}});
        EXPECT_EQ(operation(none, none, &out), 1100008);
        EXPECT_TRUE(same(out, KivRegion()));
    }
    KivROI empty;
    KivROI circle = KivROI::Circle(3, 3, 2, 7, 7);
    KivROI out = circle;
    EXPECT_EQ(KIVMV::KivROIAnd(empty, circle, &out), 1100009);
    EXPECT_TRUE(same(out, KivROI()));
    out = circle;
    EXPECT_EQ(KIVMV::KivROIAnd(circle, empty, &out), 1100009);
    EXPECT_TRUE(same(out, KivROI()));
}

// ---------------------------------------------------------------------------------------------------------------------
// Set algebra

KivRegion region_of(const cv::Mat& mask)
{
    KivImage image(mask);
    KivRegion region;
    EXPECT_EQ(KIVMV::KivBinImageToRegion(image, &region), 0);
    return region;
}

std::string shown(const KivRegion& region)
{
    return picture_of(region.Runs(), region.Width(), region.Height());
}

std::string shown(support::Combination<KivRegion> operation, KivRegion a, KivRegion b)
{
    KivRegion out;
    EXPECT_EQ(operation(a, b, &out), 0);
    return shown(out);
}

/// The same of masks.
std::string shown(support::Combination<KivROI> operation, const KivRegion& a, const KivRegion& b)
{
    KivROI first = KivROI::Mask(a.Runs(), a.Width(), a.Height());
    KivROI second = KivROI::Mask(b.Runs(), b.Width(), b.Height());
    KivROI out;
    EXPECT_EQ(operation(first, second, &out), 0);
    return picture_of(out.Parameters().MaskRuns(), out.Parameters().Width(), out.Parameters().Height());
}

TEST(SetAlgebraPage, TheOrdinaryCase)
{
    const KivRegion a = region_of(support::mask_of({"..#####...", //
                                                    "..#####...", //
                                                    "..........", //
                                                    "#........."}));
    const KivRegion b = region_of(support::mask_of({"..........", //
                                                    "....#####.", //
                                                    "....#####.", //
                                                    ".........#"}));
    EXPECT_EQ(shown(KIVMV::KivRegionAdd, a, b), "..#####...\n"
                                                "..#######.\n"
                                                "....#####.\n"
                                                "#........#\n");
    EXPECT_EQ(shown(KIVMV::KivRegionAnd, a, b), "..........\n"
                                                "....###...\n"
                                                "..........\n"
                                                "..........\n");
    EXPECT_EQ(shown(KIVMV::KivRegionSub, a, b), "..#####...\n"
                                                "..##......\n"
                                                "..........\n"
                                                "#.........\n");
}

/// A row of the table of pairs: the runs of A and B, and those of the three results.
struct Pair {
    Run a;
    Run b;
    Runs results[3];
};

TEST(SetAlgebraPage, PairsOfRuns)
{
    const Pair pairs[] = {
        {{0, 2, 8}, {0, 5, 12}, {{{0, 2, 12}}, {{0, 5, 8}}, {{0, 2, 4}}}},
        {{0, 5, 12}, {0, 2, 8}, {{{0, 2, 12}}, {{0, 5, 8}}, {{0, 9, 12}}}},
        {{0, 2, 9}, {0, 4, 5}, {{{0, 2, 9}}, {{0, 4, 5}}, {{0, 2, 3}, {0, 6, 9}}}},
        {{0, 4, 5}, {0, 2, 9}, {{{0, 2, 9}}, {{0, 4, 5}}, {}}},
        {{0, 2, 4}, {0, 4, 9}, {{{0, 2, 9}}, {{0, 4, 4}}, {{0, 2, 3}}}},
        {{0, 2, 4}, {0, 5, 9}, {{{0, 2, 4}, {0, 5, 9}}, {}, {{0, 2, 4}}}},
        {{0, 6, 9}, {0, 2, 4}, {{{0, 2, 4}, {0, 6, 9}}, {}, {{0, 6, 9}}}},
    };
    const support::Combination<KivRegion> operations[] = {KIVMV::KivRegionAdd, KIVMV::KivRegionAnd,
                                                          KIVMV::KivRegionSub};
    for (const Pair& pair : pairs) {
        for (int i = 0; i < 3; ++i) {
            const KivRegion a(20, 4, {pair.a, {3, 0, 0}}); // a further row below
            Runs expected = pair.results[i];
            if (i != 1) {
                expected.push_back({3, 0, 0});
            }
            EXPECT_TRUE(same(support::combined(operations[i], a, KivRegion(20, 4, {pair.b}), KivRegion()),
                             KivRegion(20, 4, expected)));
        }
    }
}

TEST(SetAlgebraPage, AGapOfTheComplementIncludesAPixelOfEachNeighbour)
{
    KivRegion region(10, 1, {{0, 2, 3}, {0, 6, 7}, {1, 0, 0}}); // the last row gives nothing
    KivRegion complement;
    ASSERT_EQ(KIVMV::KivRegionNot(region, &complement), 0);
    EXPECT_TRUE(same(complement, KivRegion(10, 1, {{0, 0, 1}, {0, 3, 7}, {0, 8, 9}})));
}

TEST(SetAlgebraPage, PicturesOfTheEndsOfTheLists)
{
    EXPECT_EQ(shown(KIVMV::KivRegionAdd,
                    region_of(support::mask_of({".............", "####......###", "##..........."})),
                    region_of(support::mask_of({".............", ".............", ".....##......"}))),
              ".............\n"
              "####......###\n"
              "##...........\n");

    const KivRegion bars = region_of(support::mask_of({"######", "######"}));
    const KivRegion dots = region_of(support::mask_of({"..##..", "..##.."}));
    EXPECT_EQ(shown(KIVMV::KivRegionAnd, bars, dots), "..##..\n"
                                                      "......\n");
    EXPECT_EQ(shown(KIVMV::KivROIAnd, bars, dots), "..##..\n"
                                                   "..##..\n");

    EXPECT_EQ(shown(KIVMV::KivROIAdd,
                    region_of(support::mask_of(
                        {".............", "####.........", "..........###", ".............", "............."})),
                    region_of(support::mask_of(
                        {".............", ".....##......", ".............", ".............", "#............"}))),
              ".............\n"
              "####.##......\n"
              ".....##...###\n"
              ".............\n"
              "#............\n");
}

/// A mask of three rows and two columns, a bit for each pixel.
cv::Mat small_mask(unsigned bits)
{
    cv::Mat mask(3, 2, CV_8UC1);
    for (unsigned i = 0; i < 6; ++i) {
        mask.data[i] = (bits >> i & 1U) != 0 ? 255 : 0;
    }
    return mask;
}

/// The region of small_mask(bits) with `ends` more runs, on rows of their own from `row` on.
KivRegion ended(unsigned bits, int row, int ends)
{
    Runs runs = region_of(small_mask(bits)).Runs();
    for (int i = 0; i < ends; ++i) {
        runs.push_back({row + i, 0, 0});
    }
    return KivRegion(2, 3, runs);
}

/// The pixels of the frame that the operation gives for operands with the ends that the page advises.
template <class Operand>
cv::Mat plain(support::Combination<Operand> operation, Operand a, Operand b)
{
    Operand out;
    KivImage mask;
    EXPECT_EQ(operation(a, b, &out), 0);
    if constexpr (std::is_same_v<Operand, KivROI>) {
        EXPECT_EQ(KIVMV::KivROIToBinImage(&mask, out), 0);
    } else {
        EXPECT_EQ(KIVMV::KivRegionToBinImage(&mask, out), 0);
    }
    return mask.Mat();
}

KivROI roi_of(const KivRegion& region)
{
    return KivROI::Mask(region.Runs(), region.Width(), region.Height());
}

TEST(SetAlgebraPage, TheAdvisedEndsMakeTheOperationsPlain)
{
    for (unsigned a = 0; a < 64; ++a) {
        for (unsigned b = 0; b < 64; ++b) {
            SCOPED_TRACE(testing::Message() << a << ", " << b);
            const KivRegion first = ended(a, 3, 2);
            const KivRegion second = ended(b, 5, 1);
            const std::string both = picture_of(small_mask(a & b));
            const std::string any = picture_of(small_mask(a | b));
            const std::string rest = picture_of(small_mask(a & ~b));
            ASSERT_EQ(picture_of(plain(KIVMV::KivRegionAdd, first, second)), any);
            ASSERT_EQ(picture_of(plain(KIVMV::KivRegionAnd, first, second)), both);
            ASSERT_EQ(picture_of(plain(KIVMV::KivRegionSub, first, second)), rest);
            ASSERT_EQ(picture_of(plain(KIVMV::KivROIAdd, roi_of(first), roi_of(second))), any);
            ASSERT_EQ(picture_of(plain(KIVMV::KivROIAnd, roi_of(first), roi_of(second))), both);
            ASSERT_EQ(picture_of(plain(KIVMV::KivROISub, roi_of(first), roi_of(second))), rest);

            const KivRegion unended = ended(b, 5, 0); // as compare_inspections has it
            ASSERT_EQ(picture_of(plain(KIVMV::KivRegionSub, first, unended)), rest);
        }
    }
}

} // namespace
