// SPDX-License-Identifier: MIT
// Images and binary images to regions: runs, frames, rejected images and which fault of an image is reported.
#include <KivDataConvert/KivDataConvert.h>

#include "support/rasters.h"

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <string>
#include <utility>
#include <vector>

namespace
{

using KIVMV::KivBinImageToRegion;
using KIVMV::KivImageToRegion;
using support::grey_of;
using support::same_pixels;
using support::same_region;

using Conversion = int (*)(KivImage&, KivRegion*);

// What the output holds before each call.
KivRegion earlier_region()
{
    return KivRegion(9, 8, {{1, 2, 3}, {7, 8, 8}, {-4, 5, 2}});
}

void expect_region(Conversion convert, const cv::Mat& pixels, const KivRegion& expected)
{
    KivImage image(pixels);
    KivRegion region = earlier_region();
    EXPECT_EQ(convert(image, &region), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_region(region, expected));
}

void expect_region_of_both(const cv::Mat& pixels, const KivRegion& expected)
{
    {
        SCOPED_TRACE("KivImageToRegion");
        expect_region(KivImageToRegion, pixels, expected);
    }
    {
        SCOPED_TRACE("KivBinImageToRegion");
        expect_region(KivBinImageToRegion, pixels, expected);
    }
}

// Refused with `code`, and nothing has changed: neither the region nor the image.
void expect_refused(Conversion convert, const cv::Mat& pixels, int code)
{
    SCOPED_TRACE(support::text_of(pixels));
    KivImage image(pixels);
    const support::Snapshot snapshot(image);
    KivRegion region = earlier_region();
    EXPECT_EQ(convert(image, &region), code);
    EXPECT_TRUE(same_region(region, earlier_region()));
    EXPECT_TRUE(snapshot.untouched());
}

cv::Mat filled(int width, int height, int type)
{
    cv::Mat pixels(height, width, type);
    pixels.reshape(1).setTo(cv::Scalar(1));
    return pixels;
}

// An image that has a buffer although its frame has no pixels.
cv::Mat frame_without_pixels(int width, int height, int type)
{
    static unsigned char buffer[64] = {};
    return cv::Mat(height, width, type, static_cast<void*>(buffer));
}

// ---------------------------------------------------------------------------------------------------------------
// Both functions: pixels to runs

TEST(ImageToRegion, ZerosAndSevensGiveTheSameRegionFromBoth)
{
    expect_region_of_both(grey_of({{0, 7, 7, 0, 7}, //
                                   {7, 0, 0, 0, 0},
                                   {0, 0, 0, 0, 0},
                                   {7, 7, 7, 7, 7}}),
                          KivRegion(5, 4, {{0, 1, 2}, {0, 4, 4}, {1, 0, 0}, {3, 0, 4}}));
}

TEST(ImageToRegion, EveryNonZeroByteIsForeground)
{
    for (int value = 1; value <= 255; ++value) {
        SCOPED_TRACE(value);
        expect_region_of_both(grey_of({{0, value, 0}}), KivRegion(3, 1, {{0, 1, 1}}));
    }
}

TEST(ImageToRegion, DifferentNonZeroValuesMakeOneRun)
{
    expect_region_of_both(grey_of({{1, 255, 128, 2, 0, 127}}), KivRegion(6, 1, {{0, 0, 3}, {0, 5, 5}}));
}

TEST(ImageToRegion, AnAllZeroImageGivesItsFrameWithoutRuns)
{
    expect_region_of_both(cv::Mat::zeros(3, 5, CV_8UC1), KivRegion(5, 3, {}));
}

TEST(ImageToRegion, ASingleForegroundPixelGivesOneRun)
{
    expect_region_of_both(grey_of({{1}}), KivRegion(1, 1, {{0, 0, 0}}));
}

TEST(ImageToRegion, ASingleBackgroundPixelGivesNone)
{
    expect_region_of_both(grey_of({{0}}), KivRegion(1, 1, {}));
}

TEST(ImageToRegion, FullRowsGiveOneRunEach)
{
    expect_region_of_both(grey_of({{9, 9, 9}, {9, 9, 9}}), KivRegion(3, 2, {{0, 0, 2}, {1, 0, 2}}));
}

TEST(ImageToRegion, RunsDoNotReachOverTheEndOfARow)
{
    expect_region_of_both(grey_of({{0, 0, 1}, {1, 0, 0}}), KivRegion(3, 2, {{0, 2, 2}, {1, 0, 0}}));
}

TEST(ImageToRegion, AlternatingPixelsGiveARunEach)
{
    expect_region_of_both(grey_of({{1, 0, 1, 0, 1}, {0, 1, 0, 1, 0}}),
                          KivRegion(5, 2, {{0, 0, 0}, {0, 2, 2}, {0, 4, 4}, {1, 1, 1}, {1, 3, 3}}));
}

TEST(ImageToRegion, OneColumnGivesOneRunPerForegroundRow)
{
    expect_region_of_both(grey_of({{3}, {0}, {4}, {5}}), KivRegion(1, 4, {{0, 0, 0}, {2, 0, 0}, {3, 0, 0}}));
}

TEST(ImageToRegion, AGapOfOnePixelFarOutSplitsALongRow)
{
    cv::Mat pixels = filled(1000, 2, CV_8UC1);
    pixels.at<unsigned char>(1, 639) = 0;
    expect_region_of_both(pixels, KivRegion(1000, 2, {{0, 0, 999}, {1, 0, 638}, {1, 640, 999}}));
}

TEST(ImageToRegion, BytesBetweenTheRowsOfAPaddedImageDoNotMatter)
{
    const cv::Mat pixels = grey_of({{0, 7, 0}, {7, 0, 7}, {0, 0, 0}});
    const KivRegion expected(3, 3, {{0, 1, 1}, {1, 0, 0}, {1, 2, 2}});
    for (const int surroundings : {0, 255}) {
        for (const auto& [left, right] : {std::pair{0, 1}, std::pair{1, 0}, std::pair{3, 5}, std::pair{64, 64}}) {
            SCOPED_TRACE(std::to_string(surroundings) + ' ' + std::to_string(left) + ' ' + std::to_string(right));
            const support::Padded image = support::padded(pixels, left, right, surroundings);
            ASSERT_GT(image.inner.step[0], static_cast<std::size_t>(image.inner.cols));
            expect_region_of_both(image.inner, expected);
        }
    }
}

TEST(ImageToRegion, TheEarlierContentsOfTheRegionAreGone)
{
    KivImage image(grey_of({{0, 0}, {0, 0}}));
    for (const Conversion convert : {KivImageToRegion, KivBinImageToRegion}) {
        KivRegion region = earlier_region();
        ASSERT_EQ(convert(image, &region), KIVMV::KIVMV_OK);
        EXPECT_EQ(region.Width(), 2);
        EXPECT_EQ(region.Height(), 2);
        EXPECT_TRUE(region.Runs().empty());
    }
}

TEST(ImageToRegion, TheImageIsNotChanged)
{
    const support::Padded pixels = support::padded(grey_of({{0, 7, 200}, {1, 0, 255}}), 2, 3, 9);
    const cv::Mat whole_before = pixels.whole.clone();
    for (const Conversion convert : {KivImageToRegion, KivBinImageToRegion}) {
        KivImage image(pixels.inner);
        const support::Snapshot snapshot(image);
        KivRegion region;
        ASSERT_EQ(convert(image, &region), KIVMV::KIVMV_OK);
        EXPECT_TRUE(snapshot.untouched());
        EXPECT_TRUE(same_pixels(KivImage(pixels.whole), whole_before));
    }
}

TEST(ImageToRegion, TheRegionOutlivesChangesOfTheImage)
{
    for (const Conversion convert : {KivImageToRegion, KivBinImageToRegion}) {
        KivImage image(grey_of({{0, 1, 1}}));
        KivRegion region;
        ASSERT_EQ(convert(image, &region), KIVMV::KIVMV_OK);
        image.Mat().setTo(cv::Scalar::all(0));
        EXPECT_TRUE(same_region(region, KivRegion(3, 1, {{0, 1, 2}})));
    }
}

// ---------------------------------------------------------------------------------------------------------------
// KivImageToRegion: images of several channels

TEST(ImageToRegion, OfTwoChannelsTheFirstBytesOfEachRowCount)
{
    cv::Mat pixels(3, 4, CV_8UC2, cv::Scalar(0, 0));
    // row 0: bytes 0 1 0 0 | 5 5 5 5
    pixels.at<cv::Vec2b>(0, 0) = {0, 1};
    pixels.at<cv::Vec2b>(0, 2) = {5, 5};
    pixels.at<cv::Vec2b>(0, 3) = {5, 5};
    // row 1: bytes 9 0 0 2 | 0 0 0 0
    pixels.at<cv::Vec2b>(1, 0) = {9, 0};
    pixels.at<cv::Vec2b>(1, 1) = {0, 2};
    // row 2: bytes 0 0 0 0 | 1 0 0 1
    pixels.at<cv::Vec2b>(2, 2) = {1, 0};
    pixels.at<cv::Vec2b>(2, 3) = {0, 1};
    expect_region(KivImageToRegion, pixels, KivRegion(4, 3, {{0, 1, 1}, {1, 0, 0}, {1, 3, 3}}));
}

TEST(ImageToRegion, OfFourChannelsTheFirstBytesOfEachRowCount)
{
    cv::Mat pixels(2, 3, CV_8UC4, cv::Scalar::all(0));
    // row 0: bytes 1 1 0 | 200 ..., row 1: bytes 0 0 3 | 0 ...
    pixels.at<cv::Vec4b>(0, 0) = {1, 1, 0, 200};
    pixels.at<cv::Vec4b>(0, 1) = {200, 200, 200, 200};
    pixels.at<cv::Vec4b>(1, 0) = {0, 0, 3, 0};
    expect_region(KivImageToRegion, pixels, KivRegion(3, 2, {{0, 0, 1}, {1, 2, 2}}));
}

TEST(ImageToRegion, EveryChannelCountButThreeIsTaken)
{
    for (const int channels : {1, 2, 4, 5, 8, 16}) {
        SCOPED_TRACE(channels);
        cv::Mat pixels = cv::Mat::zeros(2, 3, CV_8UC(channels));
        pixels.ptr<unsigned char>(1)[2] = 1;
        expect_region(KivImageToRegion, pixels, KivRegion(3, 2, {{1, 2, 2}}));
    }
}

TEST(ImageToRegion, PaddedRowsOfSeveralChannelsAreFoundByTheirStride)
{
    for (const int channels : {2, 4}) {
        for (const int surroundings : {0, 255}) {
            SCOPED_TRACE(std::to_string(channels) + " channels, surroundings " + std::to_string(surroundings));
            cv::Mat pixels = cv::Mat::zeros(3, 4, CV_8UC(channels));
            pixels.ptr<unsigned char>(0)[0] = 1;
            pixels.ptr<unsigned char>(1)[1] = 2;
            pixels.ptr<unsigned char>(1)[2] = 3;
            pixels.ptr<unsigned char>(1)[4] = 4; // past the bytes that count
            pixels.ptr<unsigned char>(2)[3] = 5;
            const support::Padded image = support::padded(pixels, 2, 3, surroundings);
            const cv::Mat whole_before = image.whole.clone();
            expect_region(KivImageToRegion, image.inner, KivRegion(4, 3, {{0, 0, 0}, {1, 1, 2}, {2, 3, 3}}));
            EXPECT_TRUE(same_pixels(KivImage(image.whole), whole_before));
        }
    }
}

// ---------------------------------------------------------------------------------------------------------------
// KivImageToRegion: rejected images

TEST(ImageToRegion, ThreeChannelsAreRefused)
{
    expect_refused(KivImageToRegion, filled(2, 2, CV_8UC3), KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(ImageToRegion, AnImageThatHoldsNoPixelsIsRefused)
{
    expect_refused(KivImageToRegion, cv::Mat(), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToRegion, EveryDepthButEightBitUnsignedIsRefused)
{
    for (const int type : {CV_8SC1, CV_16UC1, CV_16SC1, CV_32SC1, CV_32FC1, CV_64FC1, CV_16UC2, CV_32FC4}) {
        expect_refused(KivImageToRegion, filled(3, 2, type), KIVMV::KIVMV_ERR_BIT_DEPTH);
    }
}

TEST(ImageToRegion, ThreeChannelsComeBeforeMissingPixels)
{
    expect_refused(KivImageToRegion, cv::Mat(0, 0, CV_8UC3), KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(ImageToRegion, ThreeChannelsComeBeforeTheDepth)
{
    expect_refused(KivImageToRegion, filled(2, 2, CV_16UC3), KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(ImageToRegion, MissingPixelsComeBeforeTheDepth)
{
    expect_refused(KivImageToRegion, cv::Mat(0, 0, CV_16UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToRegion, ThreeChannelsComeBeforeAllElse)
{
    expect_refused(KivImageToRegion, cv::Mat(0, 0, CV_16UC3), KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(ImageToRegion, MissingColumnsAreMissingPixels)
{
    expect_refused(KivImageToRegion, cv::Mat(3, 0, CV_8UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToRegion, ABufferIsAllThatIsAskedFor)
{
    expect_region(KivImageToRegion, frame_without_pixels(5, 0, CV_8UC1), KivRegion(5, 0, {}));
    expect_region(KivImageToRegion, frame_without_pixels(0, 3, CV_8UC1), KivRegion(0, 3, {}));
}

// ---------------------------------------------------------------------------------------------------------------
// KivBinImageToRegion: rejected images

TEST(BinImageToRegion, AnImageWithoutRowsIsRefused)
{
    expect_refused(KivBinImageToRegion, cv::Mat(), KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(KivBinImageToRegion, cv::Mat(0, 5, CV_8UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(KivBinImageToRegion, frame_without_pixels(5, 0, CV_8UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(BinImageToRegion, EveryChannelCountButOneIsRefused)
{
    for (const int channels : {2, 3, 4, 5, 16}) {
        expect_refused(KivBinImageToRegion, filled(2, 2, CV_8UC(channels)), KIVMV::KIVMV_ERR_CHANNELS);
    }
}

TEST(BinImageToRegion, EveryDepthButEightBitUnsignedIsRefused)
{
    for (const int type : {CV_8SC1, CV_16UC1, CV_16SC1, CV_32SC1, CV_32FC1, CV_64FC1}) {
        expect_refused(KivBinImageToRegion, filled(3, 2, type), KIVMV::KIVMV_ERR_BIT_DEPTH);
    }
}

TEST(BinImageToRegion, MissingRowsComeBeforeTheChannels)
{
    expect_refused(KivBinImageToRegion, cv::Mat(0, 0, CV_8UC3), KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(KivBinImageToRegion, cv::Mat(0, 0, CV_8UC2), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(BinImageToRegion, MissingRowsComeBeforeTheDepth)
{
    expect_refused(KivBinImageToRegion, cv::Mat(0, 0, CV_16UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(BinImageToRegion, TheChannelsComeBeforeTheDepth)
{
    expect_refused(KivBinImageToRegion, filled(2, 2, CV_16UC3), KIVMV::KIVMV_ERR_CHANNELS);
    expect_refused(KivBinImageToRegion, filled(2, 2, CV_32FC2), KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(BinImageToRegion, MissingRowsComeBeforeAllElse)
{
    expect_refused(KivBinImageToRegion, cv::Mat(0, 0, CV_16UC3), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(BinImageToRegion, MissingColumnsAreNoFault)
{
    expect_region(KivBinImageToRegion, cv::Mat(3, 0, CV_8UC1), KivRegion(0, 3, {}));
}

} // namespace
