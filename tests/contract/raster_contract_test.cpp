// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

using RasterContract = ContractTest;

TEST_F(RasterContract, ImageToRegionExtractsFromANormalisedCopy)
{
    KivImage image;
    image.test_name = "image";
    image.test_set(padded_matrix(2, 4, {0, 7, 255, 0, 1, 0, 0, 9}));
    const cv::Mat before = image.test_matrix.clone();
    KivRegion region;
    region.test_name = "region";
    start();

    EXPECT_EQ(KivImageToRegion(image, &region), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{"image.Channels()", "image.ImageData()", "image.BitDepth()", "image.Width()",
                              "image.Height()", "KivRLC()", find_contours("2x4[0 255 255 0 | 255 0 0 255]"),
                              "~KivRLC()", "region.CreateRegion(4, 2, {(0,1,2) (1,0,0) (1,3,3)})"}));
    EXPECT_EQ(recording::text_of(image.test_matrix), recording::text_of(before));
}

TEST_F(RasterContract, ImageToRegionNormalisesTheFirstBytesOfARowOfSeveralChannels)
{
    KivImage image;
    image.test_name = "image";
    cv::Mat pixels(2, 2, CV_8UC2);
    pixels.at<cv::Vec2b>(0, 0) = {1, 2};
    pixels.at<cv::Vec2b>(0, 1) = {3, 4};
    pixels.at<cv::Vec2b>(1, 0) = {0, 5};
    pixels.at<cv::Vec2b>(1, 1) = {6, 0};
    image.test_set(pixels);
    KivRegion region;
    region.test_name = "region";
    start();

    EXPECT_EQ(KivImageToRegion(image, &region), KIVMV_OK);

    ASSERT_EQ(calls().size(), 9U);
    EXPECT_EQ(calls()[6], find_contours("2x2[255 255 3 4 | 0 255 6 0]"));
}

TEST_F(RasterContract, BinImageToRegionExtractsFromACopyOfTheBytesAsTheyAre)
{
    KivImage image;
    image.test_name = "image";
    image.test_set(padded_matrix(2, 3, {0, 7, 255, 1, 0, 0}));
    KivRegion region;
    region.test_name = "region";
    start();

    EXPECT_EQ(KivBinImageToRegion(image, &region), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{"image.Height()", "image.Channels()", "image.BitDepth()", "image.Width()",
                              "image.Height()", "KivRLC()", find_contours("2x3[0 7 255 | 1 0 0]"), "~KivRLC()",
                              "region.CreateRegion(3, 2, {(0,1,2) (1,0,0)})"}));
}

TEST_F(RasterContract, AFailedCheckEndsTheCallAtOnce)
{
    KivImage image;
    image.test_name = "image";
    KivRegion region;
    region.test_name = "region";
    const auto calls_of = [&](auto function) {
        start();
        EXPECT_NE(function(image, &region), KIVMV_OK);
        return calls();
    };

    image.test_channels = 3;
    EXPECT_EQ(calls_of(KivImageToRegion), (Calls{"image.Channels()"}));
    image.test_channels = 1;
    EXPECT_EQ(calls_of(KivImageToRegion), (Calls{"image.Channels()", "image.ImageData()"}));
    EXPECT_EQ(calls_of(KivBinImageToRegion), (Calls{"image.Height()"}));

    image.test_set(cv::Mat(1, 1, CV_16UC1, cv::Scalar(1)));
    EXPECT_EQ(calls_of(KivImageToRegion), (Calls{"image.Channels()", "image.ImageData()", "image.BitDepth()"}));
    EXPECT_EQ(calls_of(KivBinImageToRegion), (Calls{"image.Height()", "image.Channels()", "image.BitDepth()"}));
    image.test_channels = 2;
    EXPECT_EQ(calls_of(KivBinImageToRegion), (Calls{"image.Height()", "image.Channels()"}));
}

TEST_F(RasterContract, RegionToImageReadsTheRegionOnceAndReplacesTheMatrix)
{
    KivImage image;
    image.test_matrix = cv::Mat(5, 5, CV_16UC3, cv::Scalar(1, 2, 3));
    KivRegion region;
    set(region, "region", 99, 1, {{1, -4, 0}, {0, 1, 2}, {7, 0, 1}, {-1, 0, 1}, {1, 2, 1}});
    start();

    EXPECT_EQ(KivRegionToImage(&image, region, 200, 10, 3, 2), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{"region.Width()", "region.Height()", "region.GetRegionRuns()"}));
    EXPECT_EQ(image.test_matrix.type(), CV_8UC1);
    EXPECT_EQ(recording::text_of(image.test_matrix), "2x3[10 200 200 | 200 10 10]");
}

TEST_F(RasterContract, RegionToImageLooksAtTheRegionLast)
{
    KivImage image;
    KivRegion region;
    set(region, "region", 0, 5, {{0, 0, 0}});
    start();

    EXPECT_EQ(KivRegionToImage(&image, region, 256, 10, 3, 2), KIVMV_ERR_PARAM_2);
    EXPECT_EQ(KivRegionToImage(&image, region, 255, 256, 3, 2), KIVMV_ERR_PARAM_3);
    EXPECT_EQ(KivRegionToImage(&image, region, 255, 0, 0, 2), KIVMV_ERR_PARAM_4);
    EXPECT_EQ(KivRegionToImage(&image, region, 255, 0, 3, 0), KIVMV_ERR_PARAM_5);
    EXPECT_EQ(calls(), Calls{});

    EXPECT_EQ(KivRegionToImage(&image, region, 255, 0, 3, 2), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), (Calls{"region.Width()", "region.Height()", "region.GetRegionRuns()"}));
    EXPECT_TRUE(image.test_matrix.empty());
}

TEST_F(RasterContract, RegionToBinImageUsesTheRegionsFrame)
{
    KivImage image;
    KivRegion region;
    set(region, "region", 3, 2, {{1, 0, 1}, {0, 2, 9}});
    start();

    EXPECT_EQ(KivRegionToBinImage(&image, region), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{"region.Width()", "region.Height()", "region.GetRegionRuns()"}));
    EXPECT_EQ(recording::text_of(image.test_matrix), "2x3[0 0 255 | 255 255 0]");
}

TEST_F(RasterContract, RegionToBinImagePassesOnTheErrorOfANegativeHeight)
{
    KivImage image;
    KivRegion region;
    set(region, "region", 3, -2, {});
    EXPECT_THROW(KivRegionToBinImage(&image, region), cv::Exception);
    EXPECT_TRUE(image.test_matrix.empty());
}

TEST_F(RasterContract, ImageToMatrixSharesThePixelsAndAsksForHeightAndChannelsOnly)
{
    KivImage image;
    image.test_name = "image";
    image.test_set(cv::Mat(2, 2, CV_16UC1, cv::Scalar(5)));
    KivMatrix matrix;
    start();

    EXPECT_EQ(KivImageToMatrix(image, &matrix), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{"image.Height()", "image.Channels()"}));
    EXPECT_EQ(matrix.test_matrix.data, image.test_matrix.data);
}

TEST_F(RasterContract, MatrixToImageAsksTheImageForNothing)
{
    KivImage image;
    KivMatrix matrix;
    matrix.test_matrix = padded_matrix(1, 2, {3, 4});
    start();

    EXPECT_EQ(KivMatrixToImage(&image, matrix), KIVMV_OK);

    EXPECT_EQ(calls(), Calls{});
    EXPECT_NE(image.test_matrix.data, matrix.test_matrix.data);
    EXPECT_EQ(recording::text_of(image.test_matrix), "1x2[3 4]");
}
