// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

using RasterContract = ContractTest;

TEST_F(RasterContract, ImageToRegionExtractsFromANormalisedCopy)
{
    KivImage image("image");
    image.test_set(padded_matrix(2, 4, {0, 7, 255, 0, 1, 0, 0, 9}));
    KivRegion region;
    region.test_name = "region";
    const Unchanged input(image);
    start();

    EXPECT_EQ(KivImageToRegion(image, &region), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{find_contours("2x4[0 255 255 0 | 255 0 0 255]"),
                              "region.CreateRegion(4, 2, {(0,1,2) (1,0,0) (1,3,3)})"}));
}

TEST_F(RasterContract, ImageToRegionNormalisesTheFirstBytesOfARowOfSeveralChannels)
{
    KivImage image("image");
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

    EXPECT_EQ(calls().front(), find_contours("2x2[255 255 3 4 | 0 255 6 0]"));
}

TEST_F(RasterContract, BinImageToRegionExtractsFromACopyOfTheBytesAsTheyAre)
{
    KivImage image("image");
    image.test_set(padded_matrix(2, 3, {0, 7, 255, 1, 0, 0}));
    KivRegion region;
    region.test_name = "region";
    const Unchanged input(image);
    start();

    EXPECT_EQ(KivBinImageToRegion(image, &region), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{find_contours("2x3[0 7 255 | 1 0 0]"), "region.CreateRegion(3, 2, {(0,1,2) (1,0,0)})"}));
}

TEST_F(RasterContract, TheFrameIsTheImagesOwnSizeAndThePixelsAreItsMatrix)
{
    for (const auto function : {KivImageToRegion, KivBinImageToRegion}) {
        KivImage image("image");
        image.test_set(padded_matrix(1, 2, {0, 1}));
        image.test_width = 40;
        image.test_height = 30;
        KivRegion region;
        EXPECT_EQ(function(image, &region), KIVMV_OK);
        EXPECT_EQ(recording::described(region), "40 x 30 (0,1,1)");
    }
}

TEST_F(RasterContract, AnImageWithoutForegroundReplacesTheRegionToo)
{
    for (const auto function : {KivImageToRegion, KivBinImageToRegion}) {
        KivImage image("image");
        image.test_set(padded_matrix(2, 1, {0, 0}));
        OldRegion region;
        EXPECT_EQ(function(image, &region), KIVMV_OK);
        EXPECT_EQ(recording::described(region), "1 x 2");
    }
}

TEST_F(RasterContract, AFailedCheckEndsTheCallAtOnce)
{
    OldRegion region;
    KivImage empty("image");
    KivImage wide("image");
    wide.test_set(cv::Mat(1, 1, CV_16UC1, cv::Scalar(1)));
    KivImage coloured("image");
    coloured.test_set(cv::Mat(1, 1, CV_16UC3, cv::Scalar::all(1)));
    KivImage empty_coloured("image");
    empty_coloured.test_channels = 3;
    empty_coloured.test_bit_depth = 2;
    const auto region_of = [&](KivImage& image) { return [&] { return KivImageToRegion(image, &region); }; };
    const auto binary_region_of = [&](KivImage& image) { return [&] { return KivBinImageToRegion(image, &region); }; };
    expect_all({
        {"channels first", region_of(empty_coloured), KIVMV_ERR_CHANNELS, {}},
        {"then data", region_of(empty), KIVMV_ERR_NO_IMAGE, {}},
        {"then depth", region_of(wide), KIVMV_ERR_BIT_DEPTH, {}},
        {"height first", binary_region_of(empty_coloured), KIVMV_ERR_NO_IMAGE, {}},
        {"then channels", binary_region_of(coloured), KIVMV_ERR_CHANNELS, {}},
        {"then the depth", binary_region_of(wide), KIVMV_ERR_BIT_DEPTH, {}},
    });
    coloured.test_channels = 0;
    EXPECT_EQ(KivBinImageToRegion(coloured, &region), KIVMV_ERR_CHANNELS);
    EXPECT_TRUE(region.is_old());
}

TEST_F(RasterContract, RegionToImageReadsTheRegionOnceAndReplacesTheMatrix)
{
    KivImage image("image");
    image.test_matrix = cv::Mat(5, 5, CV_16UC3, cv::Scalar(1, 2, 3));
    KivRegion region;
    set(region, "region", 99, 1, {{1, -4, 0}, {0, 1, 2}, {7, 0, 1}, {-1, 0, 1}, {1, 2, 1}});
    const Unchanged input(region);
    start();

    EXPECT_EQ(KivRegionToImage(&image, region, 200, 10, 3, 2), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{}));
    EXPECT_EQ(image.test_matrix.type(), CV_8UC1);
    EXPECT_EQ(recording::text_of(image.test_matrix), "2x3[10 200 200 | 200 10 10]");
}

TEST_F(RasterContract, RegionToImageLooksAtTheRegionLast)
{
    KivImage image("image");
    KivRegion region;
    set(region, "region", 0, 5, {{0, 0, 0}});
    start();

    EXPECT_EQ(KivRegionToImage(&image, region, 256, 10, 3, 2), KIVMV_ERR_PARAM_2);
    EXPECT_EQ(KivRegionToImage(&image, region, 255, 256, 3, 2), KIVMV_ERR_PARAM_3);
    EXPECT_EQ(KivRegionToImage(&image, region, 255, 0, 0, 2), KIVMV_ERR_PARAM_4);
    EXPECT_EQ(KivRegionToImage(&image, region, 255, 0, 3, 0), KIVMV_ERR_PARAM_5);
    EXPECT_EQ(calls(), Calls{});

    EXPECT_EQ(KivRegionToImage(&image, region, 255, 0, 3, 2), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), (Calls{}));
    EXPECT_TRUE(image.test_matrix.empty());
}

TEST_F(RasterContract, RegionToBinImageUsesTheRegionsFrame)
{
    KivImage image("image");
    KivRegion region;
    set(region, "region", 3, 2, {{1, 0, 1}, {0, 2, 9}});
    start();

    EXPECT_EQ(KivRegionToBinImage(&image, region), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{}));
    EXPECT_EQ(recording::text_of(image.test_matrix), "2x3[0 0 255 | 255 255 0]");
}

TEST_F(RasterContract, RegionToBinImagePassesOnTheErrorOfANegativeHeight)
{
    KivImage image("image");
    KivRegion region;
    set(region, "region", 3, -2, {});
    EXPECT_THROW(KivRegionToBinImage(&image, region), cv::Exception);
    EXPECT_TRUE(image.test_matrix.empty());
}

TEST_F(RasterContract, RegionToBinImageLooksAtTheWidthOnly)
{
    KivImage image("image");
    KivRegion region;
    set(region, "region", 0, 2, {{1, 0, 1}});
    start();
    EXPECT_EQ(KivRegionToBinImage(&image, region), KIVMV_ERR_PARAM_1);
    EXPECT_EQ(calls(), (Calls{}));
    EXPECT_TRUE(image.test_matrix.empty());

    set(region, "region", 2, 1, {});
    EXPECT_EQ(KivRegionToBinImage(&image, region), KIVMV_OK);
    EXPECT_EQ(recording::text_of(image.test_matrix), "1x2[0 0]");
}

TEST_F(RasterContract, APaintedImageHasPixelsOfItsOwn)
{
    KivRegion region;
    set(region, "region", 2, 1, {{0, 0, 1}});
    const cv::Mat old_pixels = padded_matrix(1, 2, {3, 4});
    const auto painted = [&](const auto& paint) {
        KivImage image("image");
        image.test_set(old_pixels);
        EXPECT_EQ(paint(&image), KIVMV_OK);
        EXPECT_EQ(recording::text_of(old_pixels), "1x2[3 4]");
        return recording::text_of(image.test_matrix);
    };
    EXPECT_EQ(painted([&](KivImage* image) { return KivRegionToImage(image, region, 8, 0, 2, 1); }), "1x2[8 8]");
    EXPECT_EQ(painted([&](KivImage* image) { return KivRegionToBinImage(image, region); }), "1x2[255 255]");
    KivMatrix matrix(padded_matrix(1, 2, {5, 6}));
    EXPECT_EQ(painted([&](KivImage* image) { return KivMatrixToImage(image, matrix); }), "1x2[5 6]");
}

TEST_F(RasterContract, ImageToMatrixSharesThePixelsAndAsksForHeightAndChannelsOnly)
{
    KivImage image("image");
    image.test_set(cv::Mat(2, 2, CV_16UC1, cv::Scalar(5)));
    image.test_width = 0;
    KivMatrix matrix(cv::Mat{});
    start();

    EXPECT_EQ(KivImageToMatrix(image, &matrix), KIVMV_OK);

    EXPECT_EQ(calls(), (Calls{}));
    EXPECT_EQ(matrix.test_matrix.data, image.test_matrix.data);
    EXPECT_EQ(matrix.test_matrix.type(), CV_16UC1);
    EXPECT_EQ(KivImageToMatrix(image, &matrix), KIVMV_OK) << "they share already";
    EXPECT_EQ(matrix.test_matrix.data, image.test_matrix.data);
}

TEST_F(RasterContract, ImageToMatrixRefusesBeforeItTouchesTheMatrix)
{
    KivImage image("image");
    image.test_matrix = padded_matrix(1, 1, {1});
    image.test_channels = 3;
    KivMatrix matrix(padded_matrix(1, 2, {3, 4}));
    const auto shared = [&] { return KivImageToMatrix(image, &matrix); };
    expect_all({{"no height", shared, KIVMV_ERR_NO_IMAGE, {}}});
    image.test_height = 1;
    expect_all({{"three channels", shared, KIVMV_ERR_CHANNELS, {}}});
    EXPECT_EQ(recording::text_of(matrix.test_matrix), "1x2[3 4]");
    image.test_channels = 0;
    EXPECT_EQ(shared(), KIVMV_OK);
}

TEST_F(RasterContract, MatrixToImageAsksTheImageForNothing)
{
    KivImage image("image");
    KivMatrix matrix(padded_matrix(1, 2, {3, 4}));
    const Unchanged input(matrix);
    start();

    EXPECT_EQ(KivMatrixToImage(&image, matrix), KIVMV_OK);

    EXPECT_EQ(calls(), Calls{});
    EXPECT_NE(image.test_matrix.data, matrix.test_matrix.data);
    EXPECT_EQ(recording::text_of(image.test_matrix), "1x2[3 4]");
}

TEST_F(RasterContract, MatrixToImageConvertsTheDepthAndKeepsTheChannels)
{
    KivImage image("image");
    KivMatrix matrix(cv::Mat(1, 2, CV_64FC3, cv::Scalar(0.4, 0.6, 300.0)));
    const Unchanged input(matrix);
    EXPECT_EQ(KivMatrixToImage(&image, matrix), KIVMV_OK);
    EXPECT_EQ(recording::text_of(image.test_matrix), "1x2[0 1 255 0 1 255]");
}

TEST_F(RasterContract, MatrixToImageRefusesAMatrixWithoutRows)
{
    KivImage image("image");
    image.test_matrix = padded_matrix(1, 1, {3});
    KivMatrix matrix(cv::Mat(0, 5, CV_8UC1));
    expect_all({{"no rows", [&] { return KivMatrixToImage(&image, matrix); }, KIVMV_ERR_PARAM_1, {}}});
    EXPECT_EQ(recording::text_of(image.test_matrix), "1x1[3]");
}
