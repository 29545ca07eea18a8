// SPDX-License-Identifier: MIT
// Contours added to and cut out of binary images: rounding, the untouched image, coordinates beyond all ints and which
// of several faults is reported.
#include "support/coordinates.h"
#include "support/pictures.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

namespace
{

using KIVMV::KivMergContour;
using support::infinity;
using support::mask_of;
using support::nan;
using support::same_values;
using support::two_to_31;

const KivContourArray earlier = {{{7, 8}, {9, 10}}, {{0.5, 0.25}}};
const KivContour square = {{1, 1}, {3, 1}, {3, 3}, {1, 3}};

KivContourArray traced(const cv::Mat& mask)
{
    KivImage image(mask);
    KivContourArray contours;
    EXPECT_EQ(KIVMV::KivBinImageToContourArray(image, &contours), KIVMV::KIVMV_OK);
    return contours;
}

// The contours must be those of `expected`.
void expect_merged(const cv::Mat& pixels, const KivContour& contour, bool add, const cv::Mat& expected)
{
    SCOPED_TRACE(support::text_of(contour) + (add ? ", added" : ", cut out"));
    KivImage image(pixels);
    const support::Snapshot snapshot(image);
    KivContour input(contour);
    KivContourArray contours(earlier);
    EXPECT_EQ(KivMergContour(image, input, add, &contours), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_values(contours, traced(expected)));
    EXPECT_TRUE(snapshot.untouched());
    EXPECT_EQ(support::bits_of(input), support::bits_of(contour));
}

void expect_refused(const cv::Mat& pixels, const KivContour& contour, int code)
{
    for (const bool add : {false, true}) {
        SCOPED_TRACE(support::text_of(pixels) + (add ? ", added" : ", cut out"));
        KivImage image(pixels);
        const support::Snapshot snapshot(image);
        KivContour input(contour);
        KivContourArray contours(earlier);
        EXPECT_EQ(KivMergContour(image, input, add, &contours), code);
        EXPECT_TRUE(same_values(contours, earlier));
        EXPECT_TRUE(snapshot.untouched());
        EXPECT_TRUE(same_values(input, contour));
    }
}

const auto& black()
{
    static const cv::Mat mask = mask_of({"......", "......", "......", "......", "......"});
    return mask;
}

const auto& white()
{
    static const cv::Mat mask = mask_of({"######", "######", "######", "######", "######"});
    return mask;
}

TEST(MergeContour, AnAddedContourIsForegroundWithItsBorder)
{
    expect_merged(black(), square, true, mask_of({"......", ".###..", ".###..", ".###..", "......"}));
}

TEST(MergeContour, ACutContourIsBackgroundWithItsBorder)
{
    expect_merged(white(), square, false, mask_of({"######", "#...##", "#...##", "#...##", "######"}));
}

TEST(MergeContour, WhatIsForegroundAlreadyStaysWhenAdded)
{
    expect_merged(mask_of({"##....", "##....", "......", "......", ".....#"}), square, true,
                  mask_of({"##....", "####..", ".###..", ".###..", ".....#"}));
    expect_merged(white(), square, true, white());
}

TEST(MergeContour, WhatIsBackgroundAlreadyStaysWhenCutOut)
{
    expect_merged(mask_of({"##....", "##....", "......", "......", ".....#"}), square, false,
                  mask_of({"##....", "#.....", "......", "......", ".....#"}));
}

TEST(MergeContour, CuttingFromABlackImageGivesNoContours)
{
    expect_merged(black(), square, false, black());
    KivImage image(black());
    KivContour contour(square);
    KivContourArray contours(earlier);
    EXPECT_EQ(KivMergContour(image, contour, false, &contours), KIVMV::KIVMV_OK);
    EXPECT_EQ(contours.Length(), 0);
}

TEST(MergeContour, CoordinatesAreRoundedTiesToEven)
{
    expect_merged(black(), {{2.5, 3.5}}, true, mask_of({"......", "......", "......", "......", "..#..."}));
    expect_merged(black(), {{3.5, 2.5}}, true, mask_of({"......", "......", "....#.", "......", "......"}));
    expect_merged(black(), {{0.5, 1.5}}, true, mask_of({"......", "......", "#.....", "......", "......"}));
}

TEST(MergeContour, CoordinatesAreRoundedNotTruncated)
{
    expect_merged(black(), {{0.51, 0.9}}, true, mask_of({"......", ".#....", "......", "......", "......"}));
    expect_merged(black(), {{-0.5, -0.4}}, true, mask_of({"#.....", "......", "......", "......", "......"}));
    expect_merged(black(), {{-0.51, 1}}, true, black());
    expect_merged(white(), {{5.49, 4.5}}, false, mask_of({"######", "######", "######", "######", "#####."}));
}

TEST(MergeContour, OnePointIsOnePixelAndTwoAreALine)
{
    expect_merged(black(), {{4, 2}}, true, mask_of({"......", "......", "....#.", "......", "......"}));
    expect_merged(white(), {{1, 1}, {4, 4}}, false, mask_of({"######", "#.####", "##.###", "###.##", "####.#"}));
}

TEST(MergeContour, WhatLiesInsideTwiceIsNotDrawn)
{
    expect_merged(mask_of({".......", ".......", ".......", ".......", ".......", ".......", "......."}),
                  {{0, 0}, {6, 0}, {6, 6}, {0, 6}, {0, 0}, {2, 2}, {4, 2}, {4, 4}, {2, 4}, {2, 2}}, true,
                  mask_of({"#######", "#######", "#######", "###.###", "#######", "#######", "#######"}));
}

TEST(MergeContour, PartsOutsideOfTheImageAreCutOff)
{
    expect_merged(black(), {{-3, 3}, {9, 3}, {9, 20}, {-3, 20}}, true,
                  mask_of({"......", "......", "......", "######", "######"}));
    expect_merged(black(), {{10, 10}, {20, 10}, {20, 20}}, true, black());
}

TEST(MergeContour, AnyNonZeroByteIsForeground)
{
    const cv::Mat grey = support::grey_of({{1, 0, 0, 0}, {0, 0, 0, 128}, {0, 0, 0, 127}});
    expect_merged(grey, {{1, 1}}, true, mask_of({"#...", ".#.#", "...#"}));
    expect_merged(grey, {{3, 1}}, false, mask_of({"#...", "....", "...#"}));
}

TEST(MergeContour, OneRowOrOneColumnIsEnough)
{
    expect_merged(mask_of({"....."}), {{1, 0}, {3, 0}}, true, mask_of({".###."}));
    expect_merged(mask_of({"#", "#", "#"}), {{0, 1}}, false, mask_of({"#", ".", "#"}));
}

TEST(MergeContour, WhatLiesBetweenTheRowsIsNeitherReadNorDrawnInto)
{
    for (const int surroundings : {0, 255}) {
        const support::Padded padded = support::padded(mask_of({"#...", "#...", "#..."}), 2, 3, surroundings);
        const cv::Mat whole_before = padded.whole.clone();
        expect_merged(padded.inner, {{-9, 1}, {9, 1}}, true, mask_of({"#...", "####", "#..."}));
        expect_merged(padded.inner, {{-9, 1}, {9, 1}}, false, mask_of({"#...", "....", "#..."}));
        EXPECT_TRUE(support::same_pixels(KivImage(padded.whole), whole_before));
    }
}

TEST(MergeContour, NaNCountsAsZero)
{
    expect_merged(black(), {{nan, nan}}, true, mask_of({"#.....", "......", "......", "......", "......"}));
    expect_merged(black(), {{3, nan}, {nan, 3}}, true, mask_of({"...#..", "..#...", ".#....", "#.....", "......"}));
}

TEST(MergeContour, CoordinatesBeyondAllIntsEncloseTheImageAndAreQuick)
{
    for (const double far : {two_to_31 - 0.5, two_to_31, two_to_31 + 0.5, 1e300, infinity}) {
        EXPECT_TRUE(support::is_quick([&] {
            const KivContour around = {{-far, -far}, {far, -far}, {far, far}, {-far, far}};
            expect_merged(black(), around, true, white());
            expect_merged(white(), around, false, black());
        }));
    }
}

TEST(MergeContour, CoordinatesBeyondAllIntsOnOneSideEncloseAPart)
{
    for (const double far : {two_to_31 - 0.5, two_to_31, 1e300, infinity}) {
        EXPECT_TRUE(support::is_quick([&] {
            expect_merged(black(), {{-far, -far}, {2, -far}, {2, far}, {-far, far}}, true,
                          mask_of({"###...", "###...", "###...", "###...", "###..."}));
            expect_merged(white(), {{-far, 3}, {far, 3}, {far, far}, {-far, far}}, false,
                          mask_of({"######", "######", "######", "......", "......"}));
        }));
    }
}

TEST(MergeContour, FarCoordinatesAreQuick)
{
    EXPECT_TRUE(support::is_quick([] {
        expect_merged(black(), {{-2e9, -2e9}, {4, 4}, {4, 0}}, true,
                      mask_of({"#####.", ".####.", "..###.", "...##.", "....#."}));
    }));
    EXPECT_TRUE(support::is_quick([] {
        expect_merged(black(), {{2, 1}, {2e9, 1}}, true, mask_of({"......", "..####", "......", "......", "......"}));
    }));
    EXPECT_TRUE(support::is_quick([] {
        expect_merged(white(), {{2, 1}, {2, 2e9}}, false, mask_of({"######", "##.###", "##.###", "##.###", "##.###"}));
    }));
}

TEST(MergeContour, OtherChannelCountsThanOneAreRefused)
{
    for (const int channels : {2, 3, 4}) {
        expect_refused(cv::Mat(4, 5, CV_8UC(channels), cv::Scalar::all(1)), square, KIVMV::KIVMV_ERR_CHANNELS);
    }
}

TEST(MergeContour, AnImageWithoutColumnsIsRefused)
{
    expect_refused(cv::Mat(), square, KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(cv::Mat(5, 0, CV_8UC1), square, KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(cv::Mat(5, 0, CV_16UC1), square, KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(MergeContour, AContourWithoutPointsIsRefused)
{
    expect_refused(black(), {}, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(MergeContour, TheChannelsAreLookedAtBeforeTheWidth)
{
    expect_refused(cv::Mat(5, 0, CV_8UC3), square, KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(MergeContour, TheChannelsAreLookedAtBeforeThePoints)
{
    expect_refused(cv::Mat(4, 5, CV_8UC3, cv::Scalar::all(1)), {}, KIVMV::KIVMV_ERR_CHANNELS);
    expect_refused(cv::Mat(5, 0, CV_8UC2), {}, KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(MergeContour, TheWidthIsLookedAtBeforeThePoints)
{
    expect_refused(cv::Mat(5, 0, CV_8UC1), {}, KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(cv::Mat(), {}, KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(MergeContour, ThePointsAreLookedAtWithoutRows)
{
    expect_refused(cv::Mat(0, 5, CV_8UC1), {}, KIVMV::KIVMV_ERR_PARAM_1);
}

// Neither the height nor the depth is checked.
TEST(MergeContour, AnImageWithoutRowsHasNoContours)
{
    expect_merged(cv::Mat(0, 5, CV_8UC1), square, true, cv::Mat(1, 1, CV_8UC1, cv::Scalar(0)));
    expect_merged(cv::Mat(0, 5, CV_8UC1), square, false, cv::Mat(1, 1, CV_8UC1, cv::Scalar(0)));
}

TEST(MergeContour, AnImageOfAnotherDepthIsDrawnInto)
{
    expect_merged(cv::Mat(5, 6, CV_16UC1, cv::Scalar(0)), square, true,
                  mask_of({"......", ".###..", ".###..", ".###..", "......"}));
    expect_merged(cv::Mat(5, 6, CV_32FC1, cv::Scalar(0.25)), square, false,
                  mask_of({"######", "#...##", "#...##", "#...##", "######"}));
}

} // namespace
