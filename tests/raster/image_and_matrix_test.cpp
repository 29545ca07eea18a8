// SPDX-License-Identifier: MIT
// Images and matrices: one way shares pixels, the other one copies and converts them.
#include "raster/rounded_bytes.h"

#include <KivDataConvert/KivDataConvert.h>

#include "support/matrices.h"
#include "support/rasters.h"

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <climits>
#include <exception>
#include <limits>
#include <vector>

namespace
{

using KIVMV::KivImageToMatrix;
using KIVMV::KivMatrixToImage;
using support::grey_of;
using support::matrix_of;
using support::same_pixels;

cv::Mat filled(int width, int height, int type)
{
    cv::Mat pixels(height, width, type);
    pixels.reshape(1).setTo(cv::Scalar(3));
    return pixels;
}

cv::Mat three_dimensional()
{
    constexpr int sizes[] = {2, 3, 4};
    return cv::Mat(3, sizes, CV_8UC1, cv::Scalar(1));
}

// What the output holds before each call.
cv::Mat earlier_pixels()
{
    return matrix_of<double>(2, {1.5, 2.5, 3.5, 4.5, 5.5, 6.5});
}

// ---------------------------------------------------------------------------------------------------------------
// KivImageToMatrix

void expect_shared(const cv::Mat& pixels)
{
    SCOPED_TRACE(support::text_of(pixels));
    KivImage image(pixels);
    const support::Snapshot snapshot(image);
    KivMatrix matrix(earlier_pixels());
    ASSERT_EQ(KivImageToMatrix(image, &matrix), KIVMV::KIVMV_OK);
    EXPECT_EQ(matrix.Mat().data, image.Mat().data);
    EXPECT_EQ(matrix.Mat().step[0], image.Mat().step[0]);
    EXPECT_EQ(matrix.Mat().type(), image.Mat().type());
    EXPECT_TRUE(same_pixels(matrix, pixels));
    EXPECT_TRUE(snapshot.untouched());
}

void expect_image_refused(const cv::Mat& pixels, int code)
{
    SCOPED_TRACE(support::text_of(pixels));
    KivImage image(pixels);
    const support::Snapshot image_before(image);
    KivMatrix matrix(earlier_pixels());
    const support::Snapshot matrix_before(matrix);
    EXPECT_EQ(KivImageToMatrix(image, &matrix), code);
    EXPECT_TRUE(matrix_before.untouched());
    EXPECT_TRUE(image_before.untouched());
}

TEST(ImageToMatrix, SharesPixelsOfEveryDepth)
{
    for (const int type : {CV_8UC1, CV_8SC1, CV_16UC1, CV_16SC1, CV_32SC1, CV_32FC1, CV_64FC1}) {
        expect_shared(filled(3, 2, type));
    }
}

TEST(ImageToMatrix, WritingThroughAnyOfTheTwoIsSeenThroughTheOther)
{
    KivImage image(matrix_of<unsigned short>(1, {1000, 2000, 3000}));
    KivMatrix matrix;
    ASSERT_EQ(KivImageToMatrix(image, &matrix), KIVMV::KIVMV_OK);
    ASSERT_EQ(matrix.Mat().type(), CV_16UC1);
    matrix.Mat().at<unsigned short>(0, 1) = 65535;
    EXPECT_EQ(image.Mat().at<unsigned short>(0, 1), 65535);
    image.Mat().at<unsigned short>(0, 2) = 17;
    EXPECT_EQ(matrix.Mat().at<unsigned short>(0, 2), 17);
    EXPECT_EQ(matrix.Mat().at<unsigned short>(0, 0), 1000);
}

TEST(ImageToMatrix, KeepsTheStrideOfAPaddedImage)
{
    const support::Padded pixels = support::padded(grey_of({{1, 2, 3}, {4, 5, 6}}), 2, 4, 99);
    expect_shared(pixels.inner);
    EXPECT_EQ(pixels.inner.step[0], 9U);
}

TEST(ImageToMatrix, PixelsOutliveTheImage)
{
    KivMatrix matrix;
    {
        KivImage image(grey_of({{1, 2}, {3, 4}}));
        ASSERT_EQ(KivImageToMatrix(image, &matrix), KIVMV::KIVMV_OK);
    }
    EXPECT_TRUE(same_pixels(matrix, grey_of({{1, 2}, {3, 4}})));
}

TEST(ImageToMatrix, TheFormerPixelsOfTheMatrixAreReleased)
{
    const cv::Mat sharer = earlier_pixels();
    KivMatrix matrix(sharer);
    ASSERT_EQ(sharer.u->refcount, 2);
    KivImage image(grey_of({{1}}));
    ASSERT_EQ(KivImageToMatrix(image, &matrix), KIVMV::KIVMV_OK);
    EXPECT_EQ(sharer.u->refcount, 1);
    EXPECT_EQ(image.Mat().u->refcount, 2);
    EXPECT_TRUE(same_pixels(KivMatrix(sharer), earlier_pixels()));
}

TEST(ImageToMatrix, DoingItTwiceChangesNothing)
{
    KivImage image(grey_of({{1, 2}, {3, 4}}));
    KivMatrix matrix;
    ASSERT_EQ(KivImageToMatrix(image, &matrix), KIVMV::KIVMV_OK);
    const unsigned char* const data = image.ImageData();
    ASSERT_EQ(KivImageToMatrix(image, &matrix), KIVMV::KIVMV_OK);
    EXPECT_EQ(image.ImageData(), data);
    EXPECT_EQ(matrix.Mat().data, data);
    EXPECT_EQ(image.Mat().u->refcount, 2);
    EXPECT_TRUE(same_pixels(matrix, grey_of({{1, 2}, {3, 4}})));
}

TEST(ImageToMatrix, MissingColumnsAreNoFault)
{
    KivImage image(cv::Mat(3, 0, CV_16UC1));
    KivMatrix matrix(earlier_pixels());
    EXPECT_EQ(KivImageToMatrix(image, &matrix), KIVMV::KIVMV_OK);
    EXPECT_EQ(matrix.Mat().rows, 3);
    EXPECT_EQ(matrix.Mat().cols, 0);
    EXPECT_EQ(matrix.Mat().type(), CV_16UC1);
}

TEST(ImageToMatrix, AnImageWithoutRowsIsRefused)
{
    expect_image_refused(cv::Mat(), KIVMV::KIVMV_ERR_NO_IMAGE);
    expect_image_refused(cv::Mat(0, 4, CV_8UC1), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToMatrix, PixelsOfThreeDimensionsAreNoImage)
{
    expect_image_refused(three_dimensional(), KIVMV::KIVMV_ERR_NO_IMAGE);
}

TEST(ImageToMatrix, MoreThanOneChannelIsRefused)
{
    for (const int type : {CV_8UC2, CV_8UC3, CV_8UC4, CV_8UC(5), CV_16UC3, CV_64FC2}) {
        expect_image_refused(filled(2, 2, type), KIVMV::KIVMV_ERR_CHANNELS);
    }
}

TEST(ImageToMatrix, MissingRowsComeBeforeTheChannels)
{
    for (const int type : {CV_8UC2, CV_8UC3, CV_16UC4}) {
        expect_image_refused(cv::Mat(0, 0, type), KIVMV::KIVMV_ERR_NO_IMAGE);
        expect_image_refused(cv::Mat(0, 6, type), KIVMV::KIVMV_ERR_NO_IMAGE);
    }
}

// ---------------------------------------------------------------------------------------------------------------
// KivMatrixToImage

// The image gets these values, on pixels of its own, and the matrix stays as it is.
void expect_copy(const cv::Mat& values, const cv::Mat& expected)
{
    SCOPED_TRACE(support::text_of(values));
    KivMatrix matrix(values);
    const support::Snapshot snapshot(matrix);
    const cv::Mat sharer = earlier_pixels();
    KivImage image(sharer);
    ASSERT_EQ(KivMatrixToImage(&image, matrix), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, expected));
    EXPECT_EQ(image.BitDepth(), 0);
    EXPECT_NE(image.Mat().data, values.data);
    EXPECT_EQ(image.Mat().u->refcount, 1);
    EXPECT_TRUE(snapshot.untouched());
    EXPECT_EQ(sharer.u->refcount, 1);
    EXPECT_TRUE(same_pixels(KivImage(sharer), earlier_pixels()));
}

void expect_matrix_refused(const cv::Mat& values)
{
    SCOPED_TRACE(support::text_of(values));
    KivMatrix matrix(values);
    const support::Snapshot matrix_before(matrix);
    KivImage image(earlier_pixels());
    const support::Snapshot image_before(image);
    EXPECT_EQ(KivMatrixToImage(&image, matrix), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_TRUE(image_before.untouched());
    EXPECT_TRUE(matrix_before.untouched());
}

TEST(MatrixToImage, DoublesAreRoundedAndClamped)
{
    expect_copy(matrix_of<double>(1, {0.4, 0.6, 300.0, -2.0}), grey_of({{0, 1, 255, 0}}));
}

TEST(MatrixToImage, TiesGoToTheEvenNeighbour)
{
    const cv::Mat expected = grey_of({{0, 2, 2, 4, 254, 255, 0, 0}});
    expect_copy(matrix_of<double>(1, {0.5, 1.5, 2.5, 3.5, 254.5, 255.5, -0.5, -0.4}), expected);
    expect_copy(matrix_of<float>(1, {0.5F, 1.5F, 2.5F, 3.5F, 254.5F, 255.5F, -0.5F, -0.4F}), expected);
}

TEST(MatrixToImage, TiesGoToTheEvenNeighbourInLongRowsAsWell)
{
    for (int cols = 1; cols < 70; ++cols) {
        cv::Mat_<double> values(1, cols);
        cv::Mat_<uchar> expected(1, cols);
        for (int x = 0; x < cols; ++x) {
            values(0, x) = x + 0.5;
            expected(0, x) = static_cast<uchar>(x % 2 == 0 ? x : x + 1);
        }
        expect_copy(values, expected);
        cv::Mat floats;
        values.convertTo(floats, CV_32F);
        expect_copy(floats, expected);
    }
}

TEST(MatrixToImage, NaNAndWhatNoIntCanHoldBecomeZero)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const cv::Mat expected = grey_of({{0, 0, 0, 0, 0, 255, 0, 255, 0, 0, 0, 0}});
    expect_copy(matrix_of<double>(1, {nan, -nan, infinity, -infinity, 2147483648.0, 2147483647.0, -2147483649.0,
                                      2147483647.25, 2147483647.5, -3e9, 5e9, 1e300}),
                expected);
    const float float_infinity = std::numeric_limits<float>::infinity();
    const float float_nan = std::numeric_limits<float>::quiet_NaN();
    expect_copy(matrix_of<float>(1, {float_nan, -float_nan, float_infinity, -float_infinity, 2147483648.0F,
                                     2147483520.0F, -4294967296.0F, 256.0F, -3e9F, 5e9F, 4294967296.0F, 1e38F}),
                expected);
}

#ifdef CV_16F // from OpenCV 4 on
TEST(MatrixToImage, HalfFloatsAreRoundedAndClampedAlike)
{
    const float infinity = std::numeric_limits<float>::infinity();
    const cv::Mat some = matrix_of<float>(1, {0.5F, 1.5F, 2.5F, 254.5F, 255.5F, -0.5F, 0.75F, 60000.0F, infinity,
                                              -infinity, std::numeric_limits<float>::quiet_NaN()});
    const cv::Mat floats = cv::repeat(some, 1, 9);
    const cv::Mat expected = cv::repeat(grey_of({{0, 2, 2, 254, 255, 0, 1, 255, 0, 0, 0}}), 1, 9);
    cv::Mat halves;
    floats.convertTo(halves, CV_16F);
    expect_copy(halves, expected);
    EXPECT_TRUE(same_pixels(KivMatrix(kiv::rounded_bytes(halves)), expected));
}
#endif

// What is done where OpenCV rounds differently, on every machine.
TEST(RoundedBytes, AreTheNearestBytes)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const cv::Mat values =
        matrix_of<double>(2, {0.5, 1.5, 2.5, 3.5, 254.5, 255.5, -0.5, 0.49999999999999994, 1e300, nan, infinity,
                              -infinity, 2147483647.25, 2147483647.5, -3e9, 100.4, 100.6, 300.0});
    const cv::Mat expected = grey_of({{0, 2, 2, 4, 254, 255, 0, 0, 0}, {0, 0, 0, 255, 0, 0, 100, 101, 255}});
    EXPECT_TRUE(same_pixels(KivMatrix(kiv::rounded_bytes(values)), expected));
    EXPECT_TRUE(same_pixels(KivMatrix(kiv::rounded_bytes(support::padded(values, 1, 2, 99).inner)), expected));
    EXPECT_TRUE(same_pixels(KivMatrix(kiv::rounded_bytes(values.reshape(3))), expected.reshape(3)));
    const cv::Mat floats = matrix_of<float>(1, {0.5F, 1.5F, 2147483520.0F, 2147483648.0F});
    EXPECT_TRUE(same_pixels(KivMatrix(kiv::rounded_bytes(floats)), grey_of({{0, 2, 255, 0}})));
}

TEST(MatrixToImage, FloatsBetweenZeroAndOneAreNotRescaled)
{
    expect_copy(matrix_of<float>(2, {0.0F, 0.25F, 0.75F, 1.0F}), grey_of({{0, 0}, {1, 1}}));
}

TEST(MatrixToImage, IntegersOfEveryDepthAreClamped)
{
    expect_copy(matrix_of<signed char>(1, {-128, -1, 0, 127}), grey_of({{0, 0, 0, 127}}));
    expect_copy(matrix_of<unsigned short>(1, {0, 255, 256, 65535}), grey_of({{0, 255, 255, 255}}));
    expect_copy(matrix_of<short>(1, {-32768, -1, 255, 256, 32767}), grey_of({{0, 0, 255, 255, 255}}));
    expect_copy(matrix_of<int>(1, {INT_MIN, -1, 7, 255, 256, INT_MAX}), grey_of({{0, 0, 7, 255, 255, 255}}));
}

TEST(MatrixToImage, BytesAreCopiedAsTheyAre)
{
    expect_copy(grey_of({{0, 1, 254}, {255, 7, 9}}), grey_of({{0, 1, 254}, {255, 7, 9}}));
}

TEST(MatrixToImage, LaterWritesToTheMatrixDoNotReachTheImage)
{
    for (const int type : {CV_8UC1, CV_8UC3, CV_16UC1, CV_64FC1}) {
        SCOPED_TRACE(type);
        KivMatrix matrix(filled(2, 2, type));
        KivImage image;
        ASSERT_EQ(KivMatrixToImage(&image, matrix), KIVMV::KIVMV_OK);
        const KivImage before = image;
        matrix.Mat().setTo(cv::Scalar::all(100));
        EXPECT_EQ(image, before);
    }
}

TEST(MatrixToImage, LaterWritesToTheImageDoNotReachTheMatrix)
{
    KivMatrix matrix(grey_of({{1, 2}}));
    KivImage image;
    ASSERT_EQ(KivMatrixToImage(&image, matrix), KIVMV::KIVMV_OK);
    image.Mat().setTo(cv::Scalar::all(100));
    EXPECT_TRUE(same_pixels(matrix, grey_of({{1, 2}})));
}

TEST(MatrixToImage, ThreeByteChannelsStayAsTheyAre)
{
    cv::Mat colour(1, 2, CV_8UC3);
    colour.at<cv::Vec3b>(0, 0) = {0, 128, 255};
    colour.at<cv::Vec3b>(0, 1) = {1, 2, 3};
    expect_copy(colour, colour.clone());
}

TEST(MatrixToImage, TheChannelCountIsKept)
{
    cv::Mat expected(1, 1, CV_8UC2);
    expected.at<cv::Vec2b>(0, 0) = {255, 2};
    cv::Mat values(1, 1, CV_32FC2);
    values.at<cv::Vec2f>(0, 0) = {1000.0F, 1.6F};
    expect_copy(values, expected);
    expect_copy(filled(2, 3, CV_16SC4), filled(2, 3, CV_8UC4));
    expect_copy(filled(2, 3, CV_8UC(7)), filled(2, 3, CV_8UC(7)));
}

TEST(MatrixToImage, OnlyTheInsideOfAPaddedMatrixIsCopied)
{
    const cv::Mat bytes = grey_of({{1, 2, 3}, {4, 5, 6}});
    cv::Mat doubles;
    bytes.convertTo(doubles, CV_64F);
    expect_copy(support::padded(bytes, 1, 2, 99).inner, bytes);
    expect_copy(support::padded(doubles, 1, 2, 99).inner, bytes);
}

TEST(MatrixToImage, AnImageThatSharesItsPixelsWithTheMatrixGetsItsOwn)
{
    KivImage image(grey_of({{1, 2}, {3, 4}}));
    KivMatrix matrix;
    ASSERT_EQ(KivImageToMatrix(image, &matrix), KIVMV::KIVMV_OK);
    ASSERT_EQ(KivMatrixToImage(&image, matrix), KIVMV::KIVMV_OK);
    EXPECT_NE(image.Mat().data, matrix.Mat().data);
    image.Mat().setTo(cv::Scalar::all(100));
    EXPECT_TRUE(same_pixels(matrix, grey_of({{1, 2}, {3, 4}})));
}

TEST(MatrixToImage, MissingColumnsAreNoFault)
{
    for (const int type : {CV_8UC1, CV_64FC1}) {
        SCOPED_TRACE(type);
        KivMatrix matrix(cv::Mat(3, 0, type));
        KivImage image(earlier_pixels());
        EXPECT_EQ(KivMatrixToImage(&image, matrix), KIVMV::KIVMV_OK);
        EXPECT_TRUE(image.Mat().empty());
        EXPECT_EQ(image.ImageData(), nullptr);
    }
}

TEST(MatrixToImage, AMatrixWithoutRowsIsRefused)
{
    expect_matrix_refused(cv::Mat());
    for (const int type : {CV_8UC1, CV_8UC3, CV_64FC1}) {
        expect_matrix_refused(cv::Mat(0, 0, type));
        expect_matrix_refused(cv::Mat(0, 4, type));
    }
}

TEST(MatrixToImage, MoreThanTwoDimensionsCountAsNoRows)
{
    expect_matrix_refused(three_dimensional());
}

TEST(MatrixToImage, ACopyThatNoMemoryCanHoldRaises)
{
    for (const int type : {CV_8UC1, CV_8UC3, CV_16UC1}) {
        SCOPED_TRACE(type);
        // A header that claims more than there is: nothing of it is read before the copy has its memory.
        double value = 1;
        KivMatrix matrix(cv::Mat(INT_MAX, INT_MAX, type, static_cast<void*>(&value)));
        KivImage image(earlier_pixels());
        const support::Snapshot snapshot(image);
        EXPECT_THROW(KivMatrixToImage(&image, matrix), std::exception);
        EXPECT_TRUE(snapshot.untouched());
    }
}

} // namespace
