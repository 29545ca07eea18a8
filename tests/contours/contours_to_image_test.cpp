// SPDX-License-Identifier: MIT
// Contours filled into a new binary image: grey values, the image's former pixels, rejected sizes and which of several
// faults is reported.
#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <climits>

namespace
{

using KIVMV::KivContourArrayToBinImage;
using support::grey_of;
using support::same_pixels;
using support::same_values;

const KivContourArray square = {{{1, 1}, {3, 1}, {3, 2}, {1, 2}}};

cv::Mat earlier_pixels()
{
    return cv::Mat(3, 7, CV_16UC3, cv::Scalar(1, 2000, 3));
}

void expect_image(const KivContourArray& contours, const cv::Mat& expected)
{
    KivContourArray input(contours);
    const cv::Mat earlier = earlier_pixels();
    KivImage image(earlier);
    EXPECT_EQ(KivContourArrayToBinImage(&image, input, expected.cols, expected.rows), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, expected));
    EXPECT_TRUE(same_values(input, contours));
    EXPECT_TRUE(same_pixels(KivImage(earlier), earlier_pixels())) << "pixels that the image had before";
}

void expect_refused(const KivContourArray& contours, int width, int height, int code)
{
    SCOPED_TRACE("into " + std::to_string(width) + " x " + std::to_string(height));
    KivContourArray input(contours);
    KivImage image(earlier_pixels());
    const support::Snapshot snapshot(image);
    EXPECT_EQ(KivContourArrayToBinImage(&image, input, width, height), code);
    EXPECT_TRUE(snapshot.untouched());
    EXPECT_TRUE(same_values(input, contours));
}

TEST(ContoursToImage, ASquareIsWhiteOnBlackWithItsBorder)
{
    expect_image(square, grey_of({{0, 0, 0, 0, 0}, {0, 255, 255, 255, 0}, {0, 255, 255, 255, 0}, {0, 0, 0, 0, 0}}));
}

TEST(ContoursToImage, TheSmallestImageIsTwoByTwo)
{
    expect_image({{{1, 0}}}, grey_of({{0, 255}, {0, 0}}));
}

TEST(ContoursToImage, WidthAreTheColumnsAndHeightTheRows)
{
    KivContourArray contours(square);
    KivImage image;
    ASSERT_EQ(KivContourArrayToBinImage(&image, contours, 70, 2), KIVMV::KIVMV_OK);
    EXPECT_EQ(image.Width(), 70);
    EXPECT_EQ(image.Height(), 2);
    EXPECT_EQ(image.Channels(), 1);
    EXPECT_EQ(image.BitDepth(), 0);
}

TEST(ContoursToImage, CoordinatesAreRounded)
{
    expect_image({{{0.5, 1.5}}, {{2.5, 0.49}}}, grey_of({{0, 0, 255}, {0, 0, 0}, {255, 0, 0}}));
}

TEST(ContoursToImage, AContourInsideOfAnotherIsAHoleWithItsBorderFilled)
{
    expect_image({{{0, 0}, {4, 0}, {4, 4}, {0, 4}}, {{1, 1}, {3, 1}, {3, 3}, {1, 3}}},
                 grey_of({{255, 255, 255, 255, 255},
                          {255, 255, 255, 255, 255},
                          {255, 255, 0, 255, 255},
                          {255, 255, 255, 255, 255},
                          {255, 255, 255, 255, 255}}));
}

TEST(ContoursToImage, ContoursWithoutPointsOrOutsideLeaveTheImageBlack)
{
    expect_image({KivContour()}, grey_of({{0, 0}, {0, 0}}));
    expect_image({{{20, 20}, {30, 20}, {30, 30}}}, grey_of({{0, 0}, {0, 0}}));
}

TEST(ContoursToImage, AnImageWithoutPixelsGetsSome)
{
    KivContourArray contours = {{{1, 0}}};
    KivImage image;
    EXPECT_EQ(KivContourArrayToBinImage(&image, contours, 3, 2), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, grey_of({{0, 255, 0}, {0, 0, 0}})));
}

TEST(ContoursToImage, AnImageOfTheRightSizeGetsPixelsOfItsOwnAllTheSame)
{
    KivContourArray contours = {{{1, 0}}};
    const cv::Mat earlier = grey_of({{9, 9}, {9, 9}});
    KivImage image(earlier);
    EXPECT_EQ(KivContourArrayToBinImage(&image, contours, 2, 2), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, grey_of({{0, 255}, {0, 0}})));
    EXPECT_TRUE(same_pixels(KivImage(earlier), grey_of({{9, 9}, {9, 9}})));
}

TEST(ContoursToImage, AViewIsReplacedAndWhatItLookedIntoStays)
{
    KivContourArray contours = {{{1, 0}}};
    const support::Padded padded = support::padded(grey_of({{9, 9}, {9, 9}}), 3, 2, 77);
    const cv::Mat whole_before = padded.whole.clone();
    KivImage image(padded.inner);
    EXPECT_EQ(KivContourArrayToBinImage(&image, contours, 2, 2), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, grey_of({{0, 255}, {0, 0}})));
    EXPECT_TRUE(same_pixels(KivImage(padded.whole), whole_before));
}

TEST(ContoursToImage, NoContoursAreRefused)
{
    expect_refused({}, 4, 3, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ContoursToImage, AWidthBelowTwoIsRefused)
{
    for (const int width : {1, 0, -1, INT_MIN}) {
        expect_refused(square, width, 3, KIVMV::KIVMV_ERR_PARAM_2);
    }
}

TEST(ContoursToImage, AHeightBelowTwoIsRefused)
{
    for (const int height : {1, 0, -1, INT_MIN}) {
        expect_refused(square, 3, height, KIVMV::KIVMV_ERR_PARAM_3);
    }
}

TEST(ContoursToImage, AnImageThatIsTooLargeToHoldIsAnException)
{
    expect_refused(square, INT_MAX, INT_MAX, KIVMV::KIVMV_ERR_EXCEPTION);
}

TEST(ContoursToImage, TheContoursAreCountedBeforeTheWidthIsLookedAt)
{
    expect_refused({}, 1, 3, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ContoursToImage, TheContoursAreCountedBeforeTheHeightIsLookedAt)
{
    expect_refused({}, 3, 1, KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused({}, 1, 1, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ContoursToImage, TheContoursAreCountedBeforeTheImageIsMade)
{
    expect_refused({}, INT_MAX, INT_MAX, KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(ContoursToImage, TheWidthIsLookedAtBeforeTheHeight)
{
    expect_refused(square, 1, 1, KIVMV::KIVMV_ERR_PARAM_2);
}

TEST(ContoursToImage, TheSizesAreLookedAtBeforeTheImageIsMade)
{
    expect_refused(square, -1, INT_MAX, KIVMV::KIVMV_ERR_PARAM_2);
    expect_refused(square, INT_MAX, -1, KIVMV::KIVMV_ERR_PARAM_3);
}

} // namespace
