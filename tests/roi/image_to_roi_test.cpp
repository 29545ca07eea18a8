// SPDX-License-Identifier: MIT
// ROIs that are masks of binary images: runs, frames, whatever the ROI was before, and which fault of an image is
// reported.
#include "support/pictures.h"
#include "support/rasters.h"
#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

namespace
{

using KIVMV::KivBinImageToROI;
using support::mask_of;
using support::same;

// Of types with and without pixels.
const KivROI earlier[] = {KivROI(), KivROI::OpenCurve({{1, 1}, {3, 3}}, 6, 5), KivROI::Mask({{7, 3, 4}}, 9, 8),
                          KivROI::Circle(5.0, 5.0, 3.0, 20, 20)};

void expect_mask(const cv::Mat& pixels, const support::Runs& runs)
{
    for (const KivROI& before : earlier) {
        SCOPED_TRACE(support::described(before));
        KivImage image(pixels);
        const support::Snapshot snapshot(image);
        KivROI roi(before);
        EXPECT_EQ(KivBinImageToROI(image, &roi), KIVMV::KIVMV_OK);
        EXPECT_TRUE(same(roi, KivROI::Mask(runs, pixels.cols, pixels.rows)));
        EXPECT_TRUE(snapshot.untouched());
    }
}

void expect_refused(const cv::Mat& pixels, int code)
{
    for (const KivROI& before : earlier) {
        SCOPED_TRACE(support::text_of(pixels) + " to " + support::described(before));
        KivImage image(pixels);
        const support::Snapshot snapshot(image);
        KivROI roi(before);
        EXPECT_EQ(KivBinImageToROI(image, &roi), code);
        EXPECT_TRUE(same(roi, before));
        EXPECT_TRUE(snapshot.untouched());
    }
}

TEST(ImageToRoi, RunsAreMaximalAndOrderedByRowThenByColumn)
{
    expect_mask(mask_of({"##.##", ".....", "..###"}), {{0, 0, 1}, {0, 3, 4}, {2, 2, 4}});
}

TEST(ImageToRoi, AnyNonZeroByteIsForeground)
{
    expect_mask(support::grey_of({{0, 1, 2, 0}, {255, 128, 127, 254}}), {{0, 1, 2}, {1, 0, 3}});
}

TEST(ImageToRoi, ABlackImageGivesAMaskWithoutRuns)
{
    expect_mask(mask_of({"...", "..."}), {});
}

TEST(ImageToRoi, AnImageWithoutColumnsGivesAMaskWithoutRuns)
{
    expect_mask(cv::Mat(5, 0, CV_8UC1), {});
}

TEST(ImageToRoi, OnePixelIsEnough)
{
    expect_mask(mask_of({"#"}), {{0, 0, 0}});
}

TEST(ImageToRoi, WhatLiesBetweenTheRowsDoesNotMatter)
{
    for (const int surroundings : {0, 255}) {
        const support::Padded padded = support::padded(mask_of({"#.#", ".#."}), 2, 3, surroundings);
        const cv::Mat whole_before = padded.whole.clone();
        expect_mask(padded.inner, {{0, 0, 0}, {0, 2, 2}, {1, 1, 1}});
        EXPECT_TRUE(support::same_pixels(KivImage(padded.whole), whole_before));
    }
}

TEST(ImageToRoi, TheMaskSharesNothingWithTheImage)
{
    KivImage image(mask_of({"##.", "..."}));
    KivROI roi;
    ASSERT_EQ(KivBinImageToROI(image, &roi), KIVMV::KIVMV_OK);
    image.Mat().setTo(255);
    EXPECT_TRUE(same(roi, KivROI::Mask({{0, 0, 1}}, 3, 2)));
}

TEST(ImageToRoi, AnImageWithoutRowsIsRefused)
{
    expect_refused(cv::Mat(), KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(cv::Mat(0, 5, CV_8UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToRoi, SeveralChannelsAreRefused)
{
    for (const int channels : {2, 3, 4}) {
        expect_refused(cv::Mat(2, 2, CV_8UC(channels), cv::Scalar::all(1)), KIVMV::KIVMV_ERR_CHANNELS);
    }
}

TEST(ImageToRoi, OtherDepthsAreRefused)
{
    for (const int depth : {CV_8S, CV_16U, CV_16S, CV_32S, CV_32F, CV_64F}) {
        expect_refused(cv::Mat(2, 2, CV_MAKETYPE(depth, 1), cv::Scalar(1)), KIVMV::KIVMV_ERR_BIT_DEPTH);
    }
}

TEST(ImageToRoi, TheHeightIsLookedAtBeforeTheChannels)
{
    expect_refused(cv::Mat(0, 5, CV_8UC3), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToRoi, TheHeightIsLookedAtBeforeTheDepth)
{
    expect_refused(cv::Mat(0, 5, CV_16UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_refused(cv::Mat(0, 5, CV_32FC3), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToRoi, TheChannelsAreLookedAtBeforeTheDepth)
{
    expect_refused(cv::Mat(2, 2, CV_16UC3, cv::Scalar::all(1)), KIVMV::KIVMV_ERR_CHANNELS);
}

TEST(ImageToRoi, ChannelsAndDepthAreLookedAtWithoutColumns)
{
    expect_refused(cv::Mat(5, 0, CV_8UC3), KIVMV::KIVMV_ERR_CHANNELS);
    expect_refused(cv::Mat(5, 0, CV_16UC1), KIVMV::KIVMV_ERR_BIT_DEPTH);
}

} // namespace
