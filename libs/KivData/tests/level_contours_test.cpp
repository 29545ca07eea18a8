// SPDX-License-Identifier: MIT
// Lines at a level of grey images: worked examples, and that they enclose the bright pixels and no others.
#include "level_contour_laws.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <random>
#include <stdexcept>

namespace
{

cv::Mat bytes(int rows, int columns, std::initializer_list<int> values)
{
    cv::Mat image(rows, columns, CV_8UC1);
    std::transform(values.begin(), values.end(), image.data,
                   [](int value) { return static_cast<unsigned char>(value); });
    return image;
}

TEST(LevelContours, ABrightPixelIsCircledCounterclockwise)
{
    const cv::Mat image = bytes(3, 3, {0, 0, 0, 0, 8, 0, 0, 0, 0});
    const KivContourArray half = {{{1, 0.5}, {0.5, 1}, {1, 1.5}, {1.5, 1}}};
    EXPECT_EQ(KivContours::AtLevel(image, 4), half);
    EXPECT_FALSE(half[0].IsHole());
    EXPECT_EQ(KivContours::AtLevel(image, 2), (KivContourArray{{{1, 0.25}, {0.25, 1}, {1, 1.75}, {1.75, 1}}}));
    EXPECT_EQ(KivContours::AtLevel(image, 8), (KivContourArray{{{1, 1}}}));
    EXPECT_EQ(KivContours::AtLevel(image, 8.5), KivContourArray());
}

TEST(LevelContours, BrightPixelsAtTheEndOfTheImageAreClosedAlongTheirCentres)
{
    const KivContourArray whole = {{{0, 0}, {0, 1}, {1, 1}, {2, 1}, {2, 0}, {1, 0}}};
    EXPECT_EQ(KivContours::AtLevel(bytes(2, 3, {5, 5, 5, 5, 5, 5}), 1), whole);
    EXPECT_EQ(KivContours::AtLevel(bytes(2, 3, {0, 0, 0, 0, 0, 0}), 0), whole);
    EXPECT_EQ(KivContours::AtLevel(bytes(1, 1, {5}), 1), (KivContourArray{{{0, 0}}}));
    EXPECT_EQ(KivContours::AtLevel(bytes(2, 1, {5, 5}), 1), (KivContourArray{{{0, 0}, {0, 1}}}));
    EXPECT_EQ(KivContours::AtLevel(bytes(1, 2, {4, 0}), 1), (KivContourArray{{{0, 0}, {0.75, 0}}}));
}

TEST(LevelContours, AHoleIsCircledClockwise)
{
    const KivContourArray lines = KivContours::AtLevel(bytes(3, 3, {8, 8, 8, 8, 0, 8, 8, 8, 8}), 4);
    EXPECT_EQ(lines, (KivContourArray{{{0, 0}, {0, 1}, {0, 2}, {1, 2}, {2, 2}, {2, 1}, {2, 0}, {1, 0}},
                                      {{1, 1.5}, {0.5, 1}, {1, 0.5}, {1.5, 1}}}));
    EXPECT_TRUE(lines[1].IsHole());
}

TEST(LevelContours, TheMeanDecidesWhetherACrossingIsJoined)
{
    const cv::Mat crossing = bytes(2, 2, {8, 0, 0, 8});
    EXPECT_EQ(KivContours::AtLevel(crossing, 4),
              (KivContourArray{{{0, 0}, {0, 0.5}, {0.5, 1}, {1, 1}, {1, 0.5}, {0.5, 0}}}));
    EXPECT_EQ(KivContours::AtLevel(crossing, 6),
              (KivContourArray{{{0, 0}, {0, 0.25}, {0.25, 0}}, {{1, 0.75}, {0.75, 1}, {1, 1}}}));
    // The mean is 5 each time, that of a single row or column at most 6.
    EXPECT_EQ(KivContours::AtLevel(bytes(2, 2, {8, 0, 4, 8}), 6),
              (KivContourArray{{{0, 0}, {0, 0.5}, {0.25, 0}}, {{1, 0.75}, {0.5, 1}, {1, 1}}}));
    EXPECT_EQ(KivContours::AtLevel(bytes(2, 2, {8, 4, 0, 8}), 6),
              (KivContourArray{{{0, 0}, {0, 0.25}, {0.5, 0}}, {{1, 0.5}, {0.75, 1}, {1, 1}}}));
    const cv::Mat mirrored = bytes(2, 2, {0, 8, 8, 0});
    EXPECT_EQ(KivContours::AtLevel(mirrored, 4).Length(), 1);
    EXPECT_EQ(KivContours::AtLevel(mirrored, 6).Length(), 2);
}

TEST(LevelContours, AllDepthsAndStridesAreRead)
{
    const cv::Mat image = bytes(3, 5, {9, 0, 0, 0, 9, 9, 0, 8, 0, 9, 9, 0, 0, 0, 9});
    const cv::Mat middle = image.colRange(1, 4);
    const KivContourArray expected = {{{1, 0.5}, {0.5, 1}, {1, 1.5}, {1.5, 1}}};
    EXPECT_EQ(KivContours::AtLevel(middle, 4), expected);
    cv::Mat deep;
    middle.convertTo(deep, CV_16U, 1000);
    EXPECT_EQ(KivContours::AtLevel(deep, 4000), expected);
    middle.convertTo(deep, CV_32F, -0.5, 4); // 4 and, in the middle, 0
    deep = 4.0 - deep;
    EXPECT_EQ(KivContours::AtLevel(deep, 2), expected);
}

TEST(LevelContours, WhatStandsAroundAnImageIsNotRead)
{
    cv::Mat around(4, 4, CV_32FC1, cv::Scalar(std::numeric_limits<double>::quiet_NaN()));
    cv::Mat image = around(cv::Rect(1, 1, 2, 2));
    image.setTo(5);
    EXPECT_EQ(KivContours::AtLevel(image, 1), (KivContourArray{{{0, 0}, {0, 1}, {1, 1}, {1, 0}}}));
}

TEST(LevelContours, BrightPixelsAreInsideInAllBinaryImagesOf3x3)
{
    for (unsigned bits = 0; bits < 512; ++bits) {
        cv::Mat image(3, 3, CV_8UC1);
        for (int i = 0; i < 9; ++i) {
            image.data[i] = (bits >> i & 1U) != 0 ? 200 : 40;
        }
        level_contour_laws::expect_bright_inside(image, 100);
        level_contour_laws::expect_bright_inside(image, 150);
    }
}

TEST(LevelContours, BrightPixelsAreInsideInRandomImages)
{
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        cv::Mat image(1 + i % 9, 1 + i % 11, CV_8UC1);
        for (unsigned char* pixel = image.data; pixel != image.dataend; ++pixel) {
            *pixel = static_cast<unsigned char>(random() % 8);
        }
        level_contour_laws::expect_bright_inside(image, 4.5);
        level_contour_laws::expect_bright_inside(image, 4);
    }
}

TEST(LevelContours, WhatIsNoGreyImageIsRejected)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const cv::Mat image(2, 2, CV_8UC1, cv::Scalar(1));
    EXPECT_THROW(KivContours::AtLevel(image, nan), std::invalid_argument);
    EXPECT_THROW(KivContours::AtLevel(image, infinity), std::invalid_argument);
    EXPECT_THROW(KivContours::AtLevel(cv::Mat(2, 2, CV_8UC3, cv::Scalar()), 1), std::invalid_argument);
    EXPECT_THROW(KivContours::AtLevel(cv::Mat(2, 2, CV_64FC1, cv::Scalar()), 1), std::invalid_argument);
    EXPECT_THROW(KivContours::AtLevel(cv::Mat(2, 2, CV_8SC1, cv::Scalar()), 1), std::invalid_argument);
    const int sizes[] = {2, 2, 2};
    EXPECT_THROW(KivContours::AtLevel(cv::Mat(3, sizes, CV_8UC1, cv::Scalar()), 1), std::invalid_argument);
    for (const double bad : {nan, infinity, -infinity}) {
        for (const cv::Point& place : {cv::Point(0, 0), cv::Point(1, 0), cv::Point(0, 1), cv::Point(1, 1)}) {
            cv::Mat floats(2, 2, CV_32FC1, cv::Scalar(1));
            floats.at<float>(place) = static_cast<float>(bad);
            EXPECT_THROW(KivContours::AtLevel(floats, 1), std::invalid_argument);
        }
    }
    EXPECT_THROW(KivContours::AtLevel(cv::Mat(0, 0, CV_64FC1), 1), std::invalid_argument);
    EXPECT_THROW(KivContours::AtLevel(cv::Mat(0, 3, CV_8UC3), 1), std::invalid_argument);
}

TEST(LevelContours, ImagesWithoutPixelsHaveNone)
{
    EXPECT_EQ(KivContours::AtLevel(cv::Mat(), 1), KivContourArray());
    for (const int type : {CV_8UC1, CV_16UC1, CV_32FC1}) {
        EXPECT_EQ(KivContours::AtLevel(cv::Mat(0, 3, type), 1), KivContourArray());
        EXPECT_EQ(KivContours::AtLevel(cv::Mat(3, 0, type), 1), KivContourArray());
    }
}

} // namespace
