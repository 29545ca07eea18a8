// SPDX-License-Identifier: MIT
// Binary images traced into contours: outlines, padded images, images without pixels and which fault is reported.
#include "support/coordinates.h"
#include "support/pictures.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

namespace
{

using KIVMV::KivBinImageToContourArray;
using support::grey_of;
using support::mask_of;
using support::same_outline;
using support::same_values;

const KivContourArray earlier = {{{7, 8}, {9, 10}}, {{0.5, 0.25}}};

KivContourArray traced(const cv::Mat& pixels)
{
    KivImage image(pixels);
    const support::Snapshot snapshot(image);
    KivContourArray contours(earlier);
    EXPECT_EQ(KivBinImageToContourArray(image, &contours), KIVMV::KIVMV_OK);
    EXPECT_TRUE(snapshot.untouched());
    return contours;
}

void expect_refused(const cv::Mat& pixels, int code)
{
    SCOPED_TRACE(support::text_of(pixels));
    KivImage image(pixels);
    const support::Snapshot snapshot(image);
    KivContourArray contours(earlier);
    EXPECT_EQ(KivBinImageToContourArray(image, &contours), code);
    EXPECT_TRUE(same_values(contours, earlier));
    EXPECT_TRUE(snapshot.untouched());
}

TEST(ImageToContours, ASquareHasItsBorderPixelsAsOutline)
{
    const KivContourArray contours = traced(mask_of({".....", ".###.", ".###.", ".###.", "....."}));
    ASSERT_EQ(contours.Length(), 1);
    EXPECT_TRUE(same_outline(contours[0], {{1, 1}, {1, 2}, {1, 3}, {2, 3}, {3, 3}, {3, 2}, {3, 1}, {2, 1}}));
    EXPECT_FALSE(contours[0].IsHole());
}

TEST(ImageToContours, AnImageWithoutBackgroundIsTracedAlongItsEdge)
{
    const KivContourArray contours = traced(mask_of({"###", "###", "###"}));
    ASSERT_EQ(contours.Length(), 1);
    EXPECT_TRUE(same_outline(contours[0], {{0, 0}, {0, 1}, {0, 2}, {1, 2}, {2, 2}, {2, 1}, {2, 0}, {1, 0}}));
}

TEST(ImageToContours, AnyNonZeroByteIsForeground)
{
    const KivContourArray contours = traced(grey_of({{0, 1, 0}, {128, 0, 255}, {0, 127, 0}}));
    EXPECT_TRUE(same_values(contours, traced(mask_of({".#.", "#.#", ".#."}))));
    EXPECT_EQ(contours.Length(), 2);
}

TEST(ImageToContours, OneRowOrOneColumnIsEnough)
{
    EXPECT_TRUE(same_values(traced(mask_of({"..#"})), {{{2, 0}}}));
    EXPECT_TRUE(same_values(traced(mask_of({".", "#", "."})), {{{0, 1}}}));
    EXPECT_TRUE(same_values(traced(mask_of({"#"})), {{{0, 0}}}));
}

TEST(ImageToContours, AnImageWithoutForegroundHasNoContours)
{
    EXPECT_TRUE(same_values(traced(mask_of({"...", "..."})), {}));
}

TEST(ImageToContours, AnImageWithoutColumnsHasNoContours)
{
    EXPECT_TRUE(same_values(traced(cv::Mat(5, 0, CV_8UC1)), {}));
}

TEST(ImageToContours, WhatLiesBetweenTheRowsDoesNotMatter)
{
    const cv::Mat mask = mask_of({"##..#", "#...#", "#.#.#"});
    for (const int surroundings : {0, 255}) {
        const support::Padded padded = support::padded(mask, 3, 5, surroundings);
        const cv::Mat whole_before = padded.whole.clone();
        EXPECT_TRUE(same_values(traced(padded.inner), traced(mask)));
        EXPECT_TRUE(support::same_pixels(KivImage(padded.whole), whole_before));
    }
}

TEST(ImageToContours, AnImageWithoutRowsIsRefused)
{
    expect_refused(cv::Mat(), KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(cv::Mat(0, 5, CV_8UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToContours, SeveralChannelsAreRefused)
{
    for (const int channels : {2, 3, 4}) {
        expect_refused(cv::Mat(2, 2, CV_8UC(channels), cv::Scalar::all(1)), KIVMV::KIVMV_ERR_CHANNELS);
    }
}

TEST(ImageToContours, OtherDepthsAreRefused)
{
    for (const int depth : {CV_8S, CV_16U, CV_16S, CV_32S, CV_32F, CV_64F}) {
        expect_refused(cv::Mat(2, 2, CV_MAKETYPE(depth, 1), cv::Scalar(1)), KIVMV::KIVMV_ERR_BIT_DEPTH);
    }
}

TEST(ImageToContours, TheHeightIsLookedAtBeforeTheChannels)
{
    expect_refused(cv::Mat(0, 5, CV_8UC3), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToContours, TheHeightIsLookedAtBeforeTheDepth)
{
    expect_refused(cv::Mat(0, 5, CV_16UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(cv::Mat(0, 5, CV_32FC3), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToContours, TheChannelsAreLookedAtBeforeTheDepth)
{
    expect_refused(cv::Mat(2, 2, CV_16UC3, cv::Scalar::all(1)), KIVMV::KIVMV_ERR_CHANNELS);
    expect_refused(cv::Mat(2, 2, CV_32FC2, cv::Scalar::all(1)), KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(ImageToContours, ChannelsAndDepthAreLookedAtWithoutColumns)
{
    expect_refused(cv::Mat(5, 0, CV_8UC3), KIVMV::KIVMV_ERR_CHANNELS);
    expect_refused(cv::Mat(5, 0, CV_16UC1), KIVMV::KIVMV_ERR_BIT_DEPTH);
}

} // namespace
