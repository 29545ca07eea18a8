// SPDX-License-Identifier: MIT
#include <KivData/KivROI.h>
#include <KivRLC/KivRLC.h>

#include "support/matrices.h"
#include "support/pictures.h"

#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <stdexcept>
#include <vector>

namespace
{

using support::mask_of;
using support::picture_of;
using Runs = std::vector<Run>;

constexpr double infinity = std::numeric_limits<double>::infinity();

KivContourArray traced(cv::Mat mask)
{
    KivContourArray contours;
    int width = -1;
    int height = -1;
    IKivROIPara::MatToMask(mask, &contours, &width, &height);
    EXPECT_EQ(width, mask.cols);
    EXPECT_EQ(height, mask.rows);
    return contours;
}

cv::Mat filled(KivContourArray contours, int width, int height)
{
    return IKivROIPara::ToMAT(contours, width, height);
}

std::string filled_picture(const KivContour& contour, int width, int height)
{
    return picture_of(filled(KivContourArray{contour}, width, height));
}

/// Filling what was traced gives the mask, of which any non-zero byte is foreground.
void expect_round_trip(const cv::Mat& mask)
{
    const cv::Mat back = filled(traced(mask), mask.cols, mask.rows);
    cv::Mat expected;
    cv::compare(mask, 0, expected, cv::CMP_NE);
    ASSERT_EQ(back.type(), CV_8UC1);
    ASSERT_EQ(cv::norm(back, expected, cv::NORM_INF), 0.0) << picture_of(expected) << '\n' << picture_of(back);
}

cv::Mat mask_of_bits(int bits, int width, int height)
{
    cv::Mat mask(height, width, CV_8UC1);
    for (int i = 0; i < width * height; ++i) {
        mask.at<uchar>(i / width, i % width) = (bits >> i & 1) != 0 ? 255 : 0;
    }
    return mask;
}

/// Noise, smooth blobs, frames within frames, checkers: masks with holes in holes, corner touches and every border.
cv::Mat random_mask(std::mt19937& random)
{
    const auto below = [&random](int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); };
    cv::Mat mask(1 + below(64), 1 + below(64), CV_8UC1, cv::Scalar(0));
    const int threshold = below(101);
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            mask.at<uchar>(y, x) = below(100) < threshold ? 255 : 0;
        }
    }
    for (int k = below(12); k > 0; --k) { // flip rectangles, so that holes nest
        const int x = below(mask.cols);
        const int y = below(mask.rows);
        cv::Mat part = mask(cv::Rect(x, y, 1 + below(mask.cols - x), 1 + below(mask.rows - y)));
        cv::bitwise_not(part, part);
    }
    return mask;
}

/// The number of connected parts of the pixels with or without foreground, by flooding; 8-connected or 4-connected.
int count_parts(const cv::Mat& mask, bool foreground, bool diagonal)
{
    cv::Mat seen(mask.size(), CV_8UC1, cv::Scalar(0));
    int parts = 0;
    const std::function<void(int, int)> flood = [&](int x, int y) {
        if (x < 0 || y < 0 || x >= mask.cols || y >= mask.rows || seen.at<uchar>(y, x) != 0 ||
            (mask.at<uchar>(y, x) != 0) != foreground) {
            return;
        }
        seen.at<uchar>(y, x) = 1;
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (diagonal || dx == 0 || dy == 0) {
                    flood(x + dx, y + dy);
                }
            }
        }
    };
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            if (seen.at<uchar>(y, x) == 0 && (mask.at<uchar>(y, x) != 0) == foreground) {
                ++parts;
                flood(x, y);
            }
        }
    }
    return parts;
}

/// One outer border for each part of the foreground, one hole border for each part of the background but the outermost.
void expect_borders_of_all_parts(const cv::Mat& mask)
{
    cv::Mat framed(mask.rows + 2, mask.cols + 2, CV_8UC1, cv::Scalar(0));
    mask.copyTo(framed(cv::Rect(1, 1, mask.cols, mask.rows)));
    const KivContourArray contours = traced(mask);
    const auto holes =
        std::count_if(contours.begin(), contours.end(), [](const KivContour& contour) { return contour.IsHole(); });
    ASSERT_EQ(contours.Length() - holes, count_parts(framed, true, true)) << picture_of(mask);
    ASSERT_EQ(holes, count_parts(framed, false, false) - 1) << picture_of(mask);
}

TEST(MaskContours, RoundTripsAllMasksOfFourByFour)
{
    for (int bits = 0; bits < 65536 && !testing::Test::HasFatalFailure(); ++bits) {
        expect_round_trip(mask_of_bits(bits, 4, 4));
    }
}

TEST(MaskContours, RoundTripsRandomMasks)
{
    std::mt19937 random(1);
    for (int round = 0; round < 10000 && !testing::Test::HasFatalFailure(); ++round) {
        expect_round_trip(random_mask(random));
    }
}

/// The borders as OpenCV finds them: the plain way, and the one whose points and order are promised.
KivContourArray found_by_opencv(const cv::Mat& mask)
{
    cv::Mat framed;
    cv::copyMakeBorder(mask, framed, 1, 1, 1, 1, cv::BORDER_CONSTANT, cv::Scalar(0));
    std::vector<std::vector<cv::Point_<int>>> chains;
    cv::findContours(framed, chains, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE, cv::Point(-1, -1));
    KivContourArray contours;
    for (const auto& chain : chains) {
        contours.Append(KivContour(KivContour::Points(chain.begin(), chain.end())));
    }
    return contours;
}

TEST(MaskContours, AreThoseOfOpenCVForAllMasksOfFourByFour)
{
    for (int bits = 0; bits < 1 << 16; ++bits) {
        const cv::Mat mask = mask_of_bits(bits, 4, 4);
        ASSERT_EQ(traced(mask), found_by_opencv(mask)) << picture_of(mask);
    }
}

TEST(MaskContours, AreThoseOfOpenCVForRandomMasks)
{
    std::mt19937 random(20);
    for (int i = 0; i < 2000; ++i) {
        const cv::Mat mask = random_mask(random);
        ASSERT_EQ(traced(mask), found_by_opencv(mask)) << picture_of(mask);
    }
}

TEST(MaskContours, TellsHolesFromOuterBorders)
{
    for (int bits = 0; bits < 65536 && !testing::Test::HasFatalFailure(); ++bits) {
        expect_borders_of_all_parts(mask_of_bits(bits, 4, 4));
    }
    std::mt19937 random(2);
    for (int round = 0; round < 1000 && !testing::Test::HasFatalFailure(); ++round) {
        expect_borders_of_all_parts(random_mask(random));
    }
}

TEST(MaskContours, TracesHolesInHoles)
{
    const cv::Mat mask = mask_of({
        "#########",
        "#.......#",
        "#.#####.#",
        "#.#...#.#",
        "#.#.#.#.#",
        "#.#...#.#",
        "#.#####.#",
        "#.......#",
        "#########",
    });
    const KivContourArray contours = traced(mask);
    EXPECT_EQ(contours.Length(), 5);
    EXPECT_EQ(std::count_if(contours.begin(), contours.end(), [](const KivContour& c) { return c.IsHole(); }), 2);
    expect_round_trip(mask);
}

TEST(MaskContours, TracesASinglePixelAndALine)
{
    const KivContourArray pixel = traced(mask_of({
        "...",
        ".#.",
    }));
    EXPECT_EQ(pixel, (KivContourArray{KivContour{{1.0, 1.0}}}));
    EXPECT_FALSE(pixel[0].IsHole());

    const KivContourArray line = traced(mask_of({"###"}));
    ASSERT_EQ(line.Length(), 1);
    EXPECT_FALSE(line[0].IsHole());
}

TEST(MaskContours, JoinsWhatTouchesByACornerAndNothingFarther)
{
    EXPECT_EQ(traced(mask_of({
                  "#.",
                  ".#",
              })),
              (KivContourArray{KivContour{{0.0, 0.0}, {1.0, 1.0}}}));
    EXPECT_EQ(traced(mask_of({
                  ".#",
                  "#.",
              })),
              (KivContourArray{KivContour{{1.0, 0.0}, {0.0, 1.0}}}));
    EXPECT_EQ(traced(mask_of({
                  "#..",
                  "..#",
              })),
              (KivContourArray{KivContour{{2.0, 1.0}}, KivContour{{0.0, 0.0}}}));
    EXPECT_EQ(traced(mask_of({
                  "..#",
                  "#..",
              })),
              (KivContourArray{KivContour{{0.0, 1.0}}, KivContour{{2.0, 0.0}}}));
    EXPECT_EQ(traced(mask_of({
                  "#...",
                  "...#",
              })),
              (KivContourArray{KivContour{{3.0, 1.0}}, KivContour{{0.0, 0.0}}}));
}

TEST(MaskContours, TracesAViewWithoutChangingTheImage)
{
    std::mt19937 random(3);
    cv::Mat image(40, 50, CV_8UC1);
    cv::randu(image, 0, 2);
    const cv::Mat before = image.clone();
    const cv::Mat view = image(cv::Rect(7, 5, 30, 20));
    expect_round_trip(view);
    EXPECT_EQ(traced(view), traced(view.clone()));
    EXPECT_EQ(cv::norm(image, before, cv::NORM_INF), 0.0);
}

TEST(MaskContours, FindsNothingInAnEmptyMask)
{
    EXPECT_EQ(traced(cv::Mat()).Length(), 0);
    EXPECT_EQ(traced(cv::Mat(3, 4, CV_8UC1, cv::Scalar(0))).Length(), 0);
}

TEST(MaskContours, TakesAnyNonZeroPixelOfAnyDepthAsForeground)
{
    const KivContourArray dot{KivContour{{1.0, 0.0}}};
    EXPECT_EQ(traced(support::matrix_of<uchar>(2, {0, 1, 0, 0, 0, 0})), dot);
    EXPECT_EQ(traced(support::matrix_of<ushort>(2, {0, 256, 0, 0, 0, 0})), dot);
    EXPECT_EQ(traced(support::matrix_of<float>(2, {0, -0.25F, 0, 0, 0, 0})), dot);
}

TEST(MaskContours, RefusesColourAndKeepsItsOutputs)
{
    cv::Mat colour(2, 2, CV_8UC3, cv::Scalar(1, 2, 3));
    const KivContourArray before{KivContour{{1.0, 2.0}}};
    KivContourArray contours(before);
    int width = -1;
    int height = -2;
    EXPECT_THROW(IKivROIPara::MatToMask(colour, &contours, &width, &height), std::invalid_argument);
    EXPECT_EQ(contours, before);
    EXPECT_EQ(width, -1);
    EXPECT_EQ(height, -2);
}

TEST(MaskContours, RefusesMoreThanTwoDimensions)
{
    const int sizes[] = {2, 2, 2};
    cv::Mat cube(3, sizes, CV_8UC1, cv::Scalar(1));
    KivContourArray contours;
    int width = 0;
    int height = 0;
    EXPECT_THROW(IKivROIPara::MatToMask(cube, &contours, &width, &height), std::invalid_argument);
}

TEST(MaskContours, RefusesMasksThatLeaveNoRoomForAFrame)
{
    uchar pixel = 255;
    cv::Mat longest(1, 1, CV_8UC1, &pixel);
    KivContourArray contours;
    int width = 0;
    int height = 0;
    longest.rows = std::numeric_limits<int>::max() - 1; // of one pixel; nobody gets to see the others
    EXPECT_THROW(IKivROIPara::MatToMask(longest, &contours, &width, &height), std::invalid_argument);
    longest.rows = 1;
    longest.cols = std::numeric_limits<int>::max() - 1;
    EXPECT_THROW(IKivROIPara::MatToMask(longest, &contours, &width, &height), std::invalid_argument);
}

TEST(MaskContours, AreTracedFromRunsAsFromTheMask)
{
    std::mt19937 random(21);
    for (int i = 0; i < 500; ++i) {
        cv::Mat mask = random_mask(random);
        Runs runs;
        KivRLC::AppendRuns(mask, runs);
        const KivContourArray expected = traced(mask);
        ASSERT_EQ(KivContourArray::BordersOf(runs, mask.cols, mask.rows), expected);
        int width = -1;
        int height = -1;
        KivContourArray contours{KivContour{{1.0, 2.0}}};
        KivROI::Mask(runs, mask.cols, mask.rows).Parameters().GetMask(&contours, &width, &height);
        ASSERT_EQ(contours, expected);
        ASSERT_EQ(cv::Size(width, height), mask.size());
    }
    KivContourArray contours;
    int width = -1;
    int height = -1;
    KivROI circle = KivROI::Circle(10, 12, 7.5, 30, 16);
    circle.Parameters().GetMask(&contours, &width, &height);
    EXPECT_EQ(contours, KivContourArray::BordersOf(circle.Parameters().MaskRuns(), 30, 16));
}

TEST(MaskContours, AreTracedFromRunsWithinTheFrame)
{
    const Runs runs = {{0, 2, 9}, {-1, 0, 3}, {0, -5, 0}, {1, 5, 5}, {0, 3, 1}};
    EXPECT_EQ(KivContourArray::BordersOf(runs, 4, 1),
              (KivContourArray{KivContour{{2.0, 0.0}, {3.0, 0.0}}, KivContour{{0.0, 0.0}}}));
    EXPECT_EQ(KivContourArray::BordersOf(runs, 0, 1), KivContourArray());
    EXPECT_EQ(KivContourArray::BordersOf(runs, 4, 0), KivContourArray());
    EXPECT_EQ(KivContourArray::BordersOf(runs, 0, INT_MAX), KivContourArray());
    EXPECT_EQ(KivContourArray::BordersOf(runs, INT_MAX, 0), KivContourArray());
    EXPECT_EQ(KivContourArray::BordersOf(Runs{{-1, 1, 2}, {2, 1, 2}}, 4, 2), KivContourArray());
    EXPECT_THROW(KivContourArray::BordersOf(runs, -1, 1), std::invalid_argument);
    EXPECT_THROW(KivContourArray::BordersOf(runs, 4, -1), std::invalid_argument);
}

/// Raises the exception that asking a mask of one pixel in the frame for its outlines ends in, with the outputs kept.
void trace_in_frame(int width, int height)
{
    const KivContourArray before{KivContour{{1.0, 2.0}}};
    KivContourArray contours(before);
    int width_out = -1;
    int height_out = -2;
    try {
        KivROI::Mask({{0, 0, 0}}, width, height).Parameters().GetMask(&contours, &width_out, &height_out);
    } catch (...) {
        EXPECT_EQ(contours, before);
        EXPECT_EQ(width_out, -1);
        EXPECT_EQ(height_out, -2);
        throw;
    }
    EXPECT_EQ(contours, (KivContourArray{KivContour{{0.0, 0.0}}}));
}

TEST(MaskContours, OfFramesThatNoMaskCanHaveAreRefused)
{
    constexpr int largest = std::numeric_limits<int>::max();
    EXPECT_THROW(trace_in_frame(largest, largest), cv::Exception);
    EXPECT_THROW(trace_in_frame(largest - 2, 1 << 17), cv::Exception);
    EXPECT_THROW(trace_in_frame(1 << 23, 1 << 24), cv::Exception);
    EXPECT_THROW(trace_in_frame(largest - 1, 1), std::invalid_argument);
    EXPECT_THROW(trace_in_frame(1, largest - 1), std::invalid_argument);
    EXPECT_NO_THROW(trace_in_frame(largest - 2, 1));
    EXPECT_NO_THROW(trace_in_frame(1 << 23, (1 << 24) - 1));
}

TEST(ContourFilling, GivesTheRunsOfTheMask)
{
    std::mt19937 random(22);
    for (int round = 0; round < 300; ++round) {
        KivContourArray contours;
        std::uniform_real_distribution<double> coordinate(-20.0, 60.0);
        for (int polygon = 0; polygon < 2; ++polygon) {
            KivContour::Points points(static_cast<std::size_t>(round % 9));
            for (auto& point : points) {
                point = {coordinate(random), coordinate(random)};
            }
            contours.Append(KivContour(points));
        }
        Runs expected;
        KivRLC::AppendRuns(filled(contours, 40, 30), expected);
        ASSERT_EQ(contours.FilledRuns(40, 30), expected);
    }
}

TEST(ContourFilling, GivesRunsInFramesOfAnySize)
{
    constexpr int largest = std::numeric_limits<int>::max();
    const KivContourArray far{KivContour{{2e9, 2e9}, {2e9 + 2, 2e9}, {2e9 + 2, 2e9 + 1}}};
    EXPECT_EQ(far.FilledRuns(largest, largest),
              (Runs{{2000000000, 2000000000, 2000000002}, {2000000001, 2000000002, 2000000002}}));
    EXPECT_THROW(far.FilledRuns(-1, 1), std::invalid_argument);
    EXPECT_THROW(far.FilledRuns(1, -1), std::invalid_argument);
}

TEST(ContourFilling, FillsNothingFromNothing)
{
    EXPECT_EQ(cv::countNonZero(filled(KivContourArray(), 4, 3)), 0);
    EXPECT_EQ(cv::countNonZero(filled(KivContourArray{KivContour(), KivContour()}, 4, 3)), 0);
    EXPECT_EQ(filled(KivContourArray{KivContour{{1.0, 1.0}}}, 0, 3).size(), cv::Size(0, 3));
    EXPECT_EQ(filled(KivContourArray{KivContour{{1.0, 1.0}}}, 4, 0).size(), cv::Size(4, 0));
    EXPECT_THROW(filled(KivContourArray(), -1, 3), std::invalid_argument);
    EXPECT_THROW(filled(KivContourArray(), 4, -1), std::invalid_argument);
}

TEST(ContourFilling, RoundsToTheNearestPixelTiesToEven)
{
    const auto pixel = [](double x) { return filled_picture(KivContour{{x, 0.0}}, 5, 1); };
    EXPECT_EQ(pixel(0.4), "#....\n");
    EXPECT_EQ(pixel(0.5), "#....\n");
    EXPECT_EQ(pixel(0.6), ".#...\n");
    EXPECT_EQ(pixel(1.5), "..#..\n");
    EXPECT_EQ(pixel(2.5), "..#..\n");
    EXPECT_EQ(pixel(3.5), "....#\n");
    EXPECT_EQ(pixel(-0.5), "#....\n");
    EXPECT_EQ(pixel(-0.6), ".....\n");
}

TEST(ContourFilling, LeavesOutPointsThatAreNoNumbers)
{
    const double nan = std::nan("");
    EXPECT_EQ(filled_picture(KivContour{{0.0, 0.0}, {nan, 9.0}, {2.0, 0.0}, {2.0, nan}, {2.0, 2.0}, {0.0, 2.0}}, 4, 4),
              "###.\n"
              "###.\n"
              "###.\n"
              "....\n");
    EXPECT_EQ(filled_picture(KivContour{{nan, nan}}, 2, 1), "..\n");

    std::mt19937 random(4);
    for (int round = 0; round < 200; ++round) {
        const cv::Mat mask = random_mask(random);
        KivContourArray spoiled;
        for (const KivContour& contour : traced(mask)) {
            KivContour::Points points;
            for (const cv::Point_<double>& point : contour.AllPoints()) {
                points.push_back(point);
                points.emplace_back(nan, point.y);
                points.emplace_back(point.x, nan);
            }
            spoiled.Append(KivContour(points));
        }
        ASSERT_EQ(picture_of(filled(spoiled, mask.cols, mask.rows)), picture_of(mask));
    }
}

TEST(ContourFilling, TakesPointsAtAnyDistance)
{
    for (const double far : {1e5, 1e6, 2e6, 2147483647.0, 2147483648.0, 1e10, 1e300, infinity}) {
        EXPECT_EQ(filled_picture(KivContour{{-far, -far}, {far, -far}, {far, far}, {-far, far}}, 3, 2), "###\n###\n")
            << far;
        EXPECT_EQ(filled_picture(KivContour{{1.0, -far}, {far, -far}, {far, far}, {1.0, far}}, 3, 2), ".##\n.##\n")
            << far;
        EXPECT_EQ(filled_picture(KivContour{{-far, 1.0}, {far, 1.0}}, 3, 2), "...\n###\n") << far;
        EXPECT_EQ(filled_picture(KivContour{{1.0, -far}, {1.0, far}}, 3, 2), ".#.\n.#.\n") << far;
        EXPECT_EQ(filled_picture(KivContour{{far, far}}, 3, 2), "...\n...\n") << far;
        EXPECT_EQ(filled_picture(KivContour{{far, 0.0}, {far, 1.0}}, 3, 2), "...\n...\n") << far;
        EXPECT_EQ(filled_picture(KivContour{{-far, -far}, {far, far}, {-far, far}}, 3, 3), "#..\n##.\n###\n") << far;
    }
}

TEST(ContourFilling, CutsALongWedgeWhereItShould)
{
    // From the origin to (far, far / 2): the rounding at the cut must not show in the mask.
    for (const double far : {1e4, 1e6, 1e7, 2e9}) {
        const std::string wedge = filled_picture(KivContour{{0.0, 0.0}, {far, far / 2}, {far, -far}}, 7, 4);
        const std::string near = filled_picture(KivContour{{0.0, 0.0}, {1e3, 5e2}, {1e3, -1e3}}, 7, 4);
        EXPECT_EQ(wedge, near) << far;
    }
}

TEST(ContourFilling, FollowsLongEdgesFromAboveToWithinAPixel)
{
    // Edges from (0, -far) to (50, 30) and to (100, 30): on row 20 they are at 50 and 100, within a thousandth.
    for (const double far : {1e4, 1e5, 1e6, 3e6}) {
        const cv::Mat mask = filled(KivContourArray{KivContour{{0.0, -far}, {100.0, 30.0}, {50.0, 30.0}}}, 110, 40);
        const cv::Mat row = mask.row(20);
        EXPECT_EQ(cv::countNonZero(row.colRange(51, 100)), 49) << far;
        EXPECT_EQ(cv::countNonZero(row.colRange(0, 49)), 0) << far;
        EXPECT_EQ(cv::countNonZero(row.colRange(102, 110)), 0) << far;
    }
}

} // namespace
