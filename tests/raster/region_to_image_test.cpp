// SPDX-License-Identifier: MIT
// Regions painted into images: grey values, clipping, rejected arguments and which of several faults is reported.
#include <KivDataConvert/KivDataConvert.h>

#include "support/rasters.h"
#include "support/sanitizer_memory.h"

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <climits>
#include <cstddef>
#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace
{

using KIVMV::KivRegionToBinImage;
using KIVMV::KivRegionToImage;
using support::grey_of;
using support::same_pixels;
using support::same_region;

// What the output holds before each call: a view into something larger, with 16-bit colour pixels.
cv::Mat earlier_pixels()
{
    cv::Mat colour(3, 2, CV_16UC3);
    colour.setTo(cv::Scalar(1000, 2000, 3000));
    return support::padded(colour, 1, 2, 77).inner;
}

using Runs = std::vector<Run>;

constexpr Run every_column_of(int row)
{
    return {row, INT_MIN, INT_MAX};
}

struct Request {
    int foreground = 200;
    int background = 10;
    int width = 8;
    int height = 4;
};

int paint(KivImage* image, KivRegion& region, const Request& request)
{
    return KivRegionToImage(image, region, request.foreground, request.background, request.width, request.height);
}

void expect_image(const KivRegion& region, const Request& request, const cv::Mat& expected)
{
    KivRegion input = region;
    KivImage image(earlier_pixels());
    EXPECT_EQ(paint(&image, input, request), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, expected));
    EXPECT_TRUE(same_region(input, region));
}

void expect_binary_image(const KivRegion& region, const cv::Mat& expected)
{
    KivRegion input = region;
    KivImage image(earlier_pixels());
    EXPECT_EQ(KivRegionToBinImage(&image, input), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, expected));
    EXPECT_TRUE(same_region(input, region));
}

// Refused with `code`, and nothing has changed: neither the image, its buffer included, nor the region.
void expect_refused(const KivRegion& region, const Request& request, int code)
{
    KivRegion input = region;
    KivImage image(earlier_pixels());
    const support::Snapshot snapshot(image);
    EXPECT_EQ(paint(&image, input, request), code);
    EXPECT_TRUE(snapshot.untouched());
    EXPECT_TRUE(same_region(input, region));

    KivImage empty;
    EXPECT_EQ(paint(&empty, input, request), code);
    EXPECT_EQ(empty, KivImage());
}

const KivRegion one_run(10, 10, {{2, 3, 5}});

// ---------------------------------------------------------------------------------------------------------------
// KivRegionToImage: what is painted

TEST(RegionToImage, PaintsARunIncludingBothEnds)
{
    expect_image(one_run, Request(),
                 grey_of({{10, 10, 10, 10, 10, 10, 10, 10},
                          {10, 10, 10, 10, 10, 10, 10, 10},
                          {10, 10, 10, 200, 200, 200, 10, 10},
                          {10, 10, 10, 10, 10, 10, 10, 10}}));
}

TEST(RegionToImage, ARunIsCutOffAtTheImagesWidth)
{
    expect_image(one_run, {200, 10, 4, 4},
                 grey_of({{10, 10, 10, 10}, {10, 10, 10, 10}, {10, 10, 10, 200}, {10, 10, 10, 10}}));
}

TEST(RegionToImage, ARunThatStartsAtTheImagesWidthPaintsNothing)
{
    expect_image(one_run, {200, 10, 3, 3}, grey_of({{10, 10, 10}, {10, 10, 10}, {10, 10, 10}}));
}

TEST(RegionToImage, ARunInTheRowBelowTheImagePaintsNothing)
{
    expect_image(one_run, {200, 10, 8, 2},
                 grey_of({{10, 10, 10, 10, 10, 10, 10, 10}, {10, 10, 10, 10, 10, 10, 10, 10}}));
}

TEST(RegionToImage, EqualForegroundAndBackgroundGiveAUniformImage)
{
    expect_image(one_run, {55, 55, 3, 2}, grey_of({{55, 55, 55}, {55, 55, 55}}));
    expect_image(one_run, {55, 55, 8, 4}, cv::Mat(4, 8, CV_8UC1, cv::Scalar(55)));
}

TEST(RegionToImage, TheLimitsOfTheGreyRangeAreTaken)
{
    const KivRegion region(2, 1, {{0, 1, 1}});
    expect_image(region, {0, 255, 2, 1}, grey_of({{255, 0}}));
    expect_image(region, {255, 0, 2, 1}, grey_of({{0, 255}}));
    expect_image(region, {0, 0, 2, 1}, grey_of({{0, 0}}));
    expect_image(region, {255, 255, 2, 1}, grey_of({{255, 255}}));
}

TEST(RegionToImage, TheSmallestImageIsOnePixel)
{
    expect_image(KivRegion(1, 1, {{0, 0, 0}}), {9, 8, 1, 1}, grey_of({{9}}));
    expect_image(KivRegion(1, 1, {{0, 1, 1}}), {9, 8, 1, 1}, grey_of({{8}}));
}

TEST(RegionToImage, ARegionWithoutRunsGivesTheBackground)
{
    expect_image(KivRegion(1, 1, {}), {200, 10, 3, 2}, grey_of({{10, 10, 10}, {10, 10, 10}}));
}

TEST(RegionToImage, TheRegionsOwnFrameDoesNotMatter)
{
    const cv::Mat expected = grey_of({{1, 1, 1, 1}, {1, 2, 2, 1}});
    for (const auto& [width, height] : {std::pair{1, 1}, std::pair{1, 0}, std::pair{4, 2}, std::pair{100, 100}}) {
        SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
        expect_image(KivRegion(width, height, {{1, 1, 2}}), {2, 1, 4, 2}, expected);
    }
}

TEST(RegionToImage, OverlappingAndUnsortedRunsArePaintedTogether)
{
    expect_image(KivRegion(5, 3, {{2, 4, 4}, {0, 1, 3}, {0, 2, 4}, {2, 0, 0}, {0, 1, 3}}), {1, 0, 5, 3},
                 grey_of({{0, 1, 1, 1, 1}, {0, 0, 0, 0, 0}, {1, 0, 0, 0, 1}}));
}

TEST(RegionToImage, ManyRowsArePaintedInWhateverOrderTheirRunsCome)
{
    constexpr int width = 300;
    constexpr int height = 2001;
    cv::Mat expected(height, width, CV_8UC1, cv::Scalar(7));
    Runs upwards;
    Runs by_turns;
    for (int y = height - 1; y >= 0; y -= 2) {
        expected.row(y).colRange(y % width, width) = cv::Scalar(9);
        upwards.push_back({y, y % width, width});
        by_turns.insert(y % 4 == 0 ? by_turns.begin() : by_turns.end(), upwards.back());
    }
    const Runs downwards(upwards.rbegin(), upwards.rend());
    for (const Runs& runs : {downwards, upwards, by_turns}) {
        expect_image(KivRegion(width, height, runs), {9, 7, width, height}, expected);
    }
}

TEST(RegionToImage, RowsOfManyColumnsArePaintedToTheirEnds)
{
    constexpr int width = 100000;
    cv::Mat expected(3, width, CV_8UC1, cv::Scalar(10));
    expected.at<uchar>(0, width - 1) = 200;
    expected.at<uchar>(2, 0) = 200;
    expect_image(KivRegion(1, 1, {{0, width - 1, width}, {2, -1, 0}}), {.width = width, .height = 3}, expected);
}

TEST(RegionToImage, RunsOutsideTheImagePaintNothing)
{
    const cv::Mat background(2, 3, CV_8UC1, cv::Scalar(4));
    for (const auto& run : Runs{{-1, 0, 2},
                                {2, 0, 2},
                                {INT_MIN, 0, 2},
                                {INT_MAX, 0, 2},
                                {INT_MIN, INT_MIN, INT_MAX},
                                {INT_MAX, INT_MIN, INT_MAX},
                                {0, 3, 3},
                                {0, -1, -1},
                                {1, -7, -1},
                                {1, 3, INT_MAX},
                                {1, INT_MIN, -1},
                                {0, INT_MAX, INT_MAX},
                                {0, INT_MIN, INT_MIN}}) {
        SCOPED_TRACE(support::text_of(KivRegion(3, 2, {run})));
        expect_image(KivRegion(3, 2, {run}), {9, 4, 3, 2}, background);
    }
}

struct LongRun {
    Run run;
    cv::Mat row; // what it makes of one row of four pixels
};

TEST(RegionToImage, OnlyTheInsideOfALongRunIsPainted)
{
    for (const LongRun& each : std::vector<LongRun>{{{0, INT_MIN, INT_MAX}, grey_of({{9, 9, 9, 9}})},
                                                    {{0, 0, INT_MAX}, grey_of({{9, 9, 9, 9}})},
                                                    {{0, INT_MIN, 3}, grey_of({{9, 9, 9, 9}})},
                                                    {{0, 2, INT_MAX}, grey_of({{4, 4, 9, 9}})},
                                                    {{0, 3, INT_MAX}, grey_of({{4, 4, 4, 9}})},
                                                    {{0, INT_MIN, 0}, grey_of({{9, 4, 4, 4}})},
                                                    {{0, -5, 1}, grey_of({{9, 9, 4, 4}})},
                                                    {{0, 2, 7}, grey_of({{4, 4, 9, 9}})},
                                                    {{0, -1, 4}, grey_of({{9, 9, 9, 9}})}}) {
        SCOPED_TRACE(support::text_of(KivRegion(4, 1, {each.run})));
        expect_image(KivRegion(4, 1, {each.run}), {9, 4, 4, 1}, each.row);
    }
}

TEST(RegionToImage, InvertedRunsPaintNothing)
{
    const cv::Mat background(2, 4, CV_8UC1, cv::Scalar(4));
    for (const auto& run : Runs{{0, 2, 1},
                                {1, 3, 0},
                                {0, INT_MAX, INT_MIN},
                                {0, INT_MAX, 0},
                                {0, 3, INT_MIN},
                                {0, 0, -1},
                                {1, 4, 3},
                                {0, 100, -100}}) {
        SCOPED_TRACE(support::text_of(KivRegion(4, 2, {run})));
        expect_image(KivRegion(4, 2, {run}), {9, 4, 4, 2}, background);
    }
}

TEST(RegionToImage, AnInvertedRunDoesNotStopTheNextOne)
{
    expect_image(KivRegion(4, 1, {{0, 3, 0}, {5, 0, 3}, {-1, 0, 3}, {0, 2, 2}}), {9, 4, 4, 1}, grey_of({{4, 4, 9, 4}}));
}

TEST(RegionToImage, ManyRunsOfTheWholeRangeOfColumnsAreCheap)
{
    const Runs runs(20000, every_column_of(0));
    expect_image(KivRegion(1, 1, runs), {9, 4, 2, 2}, grey_of({{9, 9}, {4, 4}}));
}

// ---------------------------------------------------------------------------------------------------------------
// KivRegionToImage: the new pixels

TEST(RegionToImage, TheImageGetsPixelsOfItsOwn)
{
    const cv::Mat sharer = grey_of({{1, 2}, {3, 4}});
    KivImage image(sharer);
    KivRegion region(2, 2, {{0, 0, 1}, {1, 0, 1}});
    ASSERT_EQ(KivRegionToImage(&image, region, 200, 10, 2, 2), KIVMV::KIVMV_OK);
    EXPECT_NE(image.Mat().data, sharer.data);
    EXPECT_TRUE(same_pixels(KivImage(sharer), grey_of({{1, 2}, {3, 4}})));
    EXPECT_TRUE(same_pixels(image, grey_of({{200, 200}, {200, 200}})));
}

TEST(RegionToImage, TheFormerPixelsAreReleased)
{
    const cv::Mat sharer = grey_of({{1, 2}, {3, 4}});
    KivImage image(sharer);
    ASSERT_EQ(sharer.u->refcount, 2);
    KivRegion region(2, 2, {});
    ASSERT_EQ(KivRegionToImage(&image, region, 200, 10, 2, 2), KIVMV::KIVMV_OK);
    EXPECT_EQ(sharer.u->refcount, 1);
    EXPECT_EQ(image.Mat().u->refcount, 1);
}

TEST(RegionToImage, TheImagesPropertiesFollow)
{
    KivImage image(earlier_pixels());
    KivRegion region = one_run;
    ASSERT_EQ(KivRegionToImage(&image, region, 200, 10, 8, 4), KIVMV::KIVMV_OK);
    EXPECT_EQ(image.Width(), 8);
    EXPECT_EQ(image.Height(), 4);
    EXPECT_EQ(image.BitDepth(), 0);
    EXPECT_EQ(image.Channels(), 1);
    EXPECT_NE(image.ImageData(), nullptr);
}

TEST(RegionToImage, AnEmptyImageIsFilledAsWell)
{
    KivImage image;
    KivRegion region(2, 1, {{0, 0, 0}});
    ASSERT_EQ(KivRegionToImage(&image, region, 200, 10, 2, 1), KIVMV::KIVMV_OK);
    EXPECT_TRUE(same_pixels(image, grey_of({{200, 10}})));
}

// ---------------------------------------------------------------------------------------------------------------
// KivRegionToImage: rejected arguments

TEST(RegionToImage, AForegroundOutsideTheGreyRangeIsRefused)
{
    for (const int foreground : {256, -1, 300, INT_MAX, INT_MIN, -255, -256}) {
        SCOPED_TRACE(foreground);
        expect_refused(one_run, {foreground, 10, 8, 4}, KIVMV::KIVMV_ERR_PARAM_2);
    }
}

TEST(RegionToImage, ABackgroundOutsideTheGreyRangeIsRefused)
{
    for (const int background : {300, 256, -1, INT_MAX, INT_MIN, -255, -256}) {
        SCOPED_TRACE(background);
        expect_refused(one_run, {200, background, 8, 4}, KIVMV::KIVMV_ERR_PARAM_3);
    }
}

TEST(RegionToImage, AWidthBelowOneIsRefused)
{
    for (const int width : {0, -1, INT_MIN}) {
        SCOPED_TRACE(width);
        expect_refused(one_run, {200, 10, width, 4}, KIVMV::KIVMV_ERR_PARAM_4);
    }
}

TEST(RegionToImage, AHeightBelowOneIsRefused)
{
    for (const int height : {0, -1, INT_MIN}) {
        SCOPED_TRACE(height);
        expect_refused(one_run, {200, 10, 8, height}, KIVMV::KIVMV_ERR_PARAM_5);
    }
}

TEST(RegionToImage, AnEmptyRegionIsRefusedWhateverItsHeightAndRuns)
{
    expect_refused(KivRegion(), Request(), KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused(KivRegion(0, 5, {}), Request(), KIVMV::KIVMV_ERR_PARAM_1);
    expect_refused(KivRegion(0, 5, {{2, 3, 5}}), Request(), KIVMV::KIVMV_ERR_PARAM_1);
}

TEST(RegionToImage, AnImageThatNoMemoryCanHoldIsAnException)
{
    expect_refused(one_run, {200, 10, INT_MAX, INT_MAX}, KIVMV::KIVMV_ERR_EXCEPTION);
    expect_refused(KivRegion(1, 1, {}), {200, 10, INT_MAX, INT_MAX}, KIVMV::KIVMV_ERR_EXCEPTION);
    expect_refused(KivRegion(1, 1, {{0, INT_MIN, INT_MAX}}), {0, 0, INT_MAX, INT_MAX - 1}, KIVMV::KIVMV_ERR_EXCEPTION);
}

// Every fault there is, in the order in which they are looked for. A size that no memory can hold is a fault of its
// own, and is made of the other side where one side is wrong already.
struct Fault {
    const char* name;
    void (*add)(Request&, KivRegion&);
    int code;
};

const Fault faults[] = {
    {"foreground too large", [](Request& request, KivRegion&) { request.foreground = 256; }, KIVMV::KIVMV_ERR_PARAM_2},
    {"background negative", [](Request& request, KivRegion&) { request.background = -1; }, KIVMV::KIVMV_ERR_PARAM_3},
    {"no width", [](Request& request, KivRegion&) { request.width = 0; }, KIVMV::KIVMV_ERR_PARAM_4},
    {"no height", [](Request& request, KivRegion&) { request.height = 0; }, KIVMV::KIVMV_ERR_PARAM_5},
    {"empty region",
     [](Request&, KivRegion& region) {
         region = KivRegion(0, 5, {{2, 3, 5}});
     },
     KIVMV::KIVMV_ERR_PARAM_1},
    {"absurd size",
     [](Request& request, KivRegion&) {
         request.width = request.width < 1 ? request.width : INT_MAX;
         request.height = request.height < 1 ? request.height : INT_MAX;
     },
     KIVMV::KIVMV_ERR_EXCEPTION},
};

TEST(RegionToImage, OfTwoFaultsTheEarlierIsReported)
{
    for (std::size_t first = 0; first < std::size(faults); ++first) {
        for (std::size_t second = first + 1; second < std::size(faults); ++second) {
            SCOPED_TRACE(std::string(faults[first].name) + ", " + faults[second].name);
            Request request;
            KivRegion region = one_run;
            faults[first].add(request, region);
            faults[second].add(request, region);
            expect_refused(region, request, faults[first].code);
        }
    }
}

TEST(RegionToImage, OfAllFaultsFromOneOnTheFirstIsReported)
{
    for (std::size_t first = 0; first < std::size(faults); ++first) {
        SCOPED_TRACE(faults[first].name);
        Request request;
        KivRegion region = one_run;
        for (std::size_t i = first; i < std::size(faults); ++i) {
            faults[i].add(request, region);
        }
        expect_refused(region, request, faults[first].code);
    }
}

// ---------------------------------------------------------------------------------------------------------------
// KivRegionToBinImage

TEST(RegionToBinImage, PaintsTheRegionInItsFrame)
{
    expect_binary_image(KivRegion(5, 3, {{0, 1, 3}, {2, 0, 0}, {2, 4, 4}}),
                        grey_of({{0, 255, 255, 255, 0}, {0, 0, 0, 0, 0}, {255, 0, 0, 0, 255}}));
}

TEST(RegionToBinImage, AFrameWithoutRunsGivesZeros)
{
    expect_binary_image(KivRegion(5, 3, {}), cv::Mat::zeros(3, 5, CV_8UC1));
}

TEST(RegionToBinImage, AFrameOfOneColumnWithoutRunsIsNotEmpty)
{
    expect_binary_image(KivRegion(1, 2, {}), grey_of({{0}, {0}}));
}

TEST(RegionToBinImage, RunsAreClippedToTheFrame)
{
    expect_binary_image(KivRegion(4, 3,
                                  {{-1, 0, 3},
                                   {3, 0, 3},
                                   {INT_MIN, INT_MIN, INT_MAX},
                                   {INT_MAX, INT_MIN, INT_MAX},
                                   {0, -9, 1},
                                   {1, 2, INT_MAX},
                                   {1, 4, 4},
                                   {1, -1, -1},
                                   {2, INT_MIN, INT_MAX}}),
                        grey_of({{255, 255, 0, 0}, {0, 0, 255, 255}, {255, 255, 255, 255}}));
}

TEST(RegionToBinImage, InvertedRunsPaintNothing)
{
    expect_binary_image(KivRegion(4, 2, {{0, 2, 1}, {1, INT_MAX, INT_MIN}, {0, 3, 0}, {1, 4, -1}, {1, 1, 1}}),
                        grey_of({{0, 0, 0, 0}, {0, 255, 0, 0}}));
}

TEST(RegionToBinImage, OverlappingAndUnsortedRunsArePaintedTogether)
{
    expect_binary_image(KivRegion(4, 2, {{1, 1, 2}, {0, 3, 3}, {1, 2, 3}, {1, 1, 2}}),
                        grey_of({{0, 0, 0, 255}, {0, 255, 255, 255}}));
}

TEST(RegionToBinImage, ManyRunsOfTheWholeRangeOfColumnsAreCheap)
{
    expect_binary_image(KivRegion(2, 2, Runs(20000, every_column_of(1))), grey_of({{0, 0}, {255, 255}}));
}

TEST(RegionToBinImage, AFrameWithoutRowsGivesAnImageWithoutRows)
{
    KivImage image(earlier_pixels());
    KivRegion region(5, 0, {{0, 0, 4}});
    EXPECT_EQ(KivRegionToBinImage(&image, region), KIVMV::KIVMV_OK);
    EXPECT_EQ(image.Height(), 0);
    EXPECT_EQ(image.BitDepth(), 0);
    EXPECT_EQ(image.Channels(), 1);
    EXPECT_TRUE(image.Mat().empty());
}

TEST(RegionToBinImage, AnEmptyRegionIsRefusedWhateverItsHeightAndRuns)
{
    for (const KivRegion& region : {KivRegion(), KivRegion(0, 5, {}), KivRegion(0, 5, {{0, 0, 3}})}) {
        KivRegion input = region;
        KivImage image(earlier_pixels());
        const support::Snapshot snapshot(image);
        EXPECT_EQ(KivRegionToBinImage(&image, input), KIVMV::KIVMV_ERR_PARAM_1);
        EXPECT_TRUE(snapshot.untouched());
        EXPECT_TRUE(same_region(input, region));
    }
}

TEST(RegionToBinImage, AFrameThatNoMemoryCanHoldRaises)
{
    KivImage image(earlier_pixels());
    const support::Snapshot snapshot(image);
    KivRegion region(INT_MAX, INT_MAX, {{0, 0, 3}});
    EXPECT_THROW(KivRegionToBinImage(&image, region), std::exception);
    EXPECT_TRUE(snapshot.untouched());
    EXPECT_TRUE(same_region(region, KivRegion(INT_MAX, INT_MAX, {{0, 0, 3}})));
}

TEST(RegionToBinImage, TheImageGetsPixelsOfItsOwn)
{
    const cv::Mat sharer = grey_of({{1, 2}, {3, 4}});
    KivImage image(sharer);
    KivRegion region(2, 2, {{0, 0, 1}});
    ASSERT_EQ(KivRegionToBinImage(&image, region), KIVMV::KIVMV_OK);
    EXPECT_NE(image.Mat().data, sharer.data);
    EXPECT_EQ(sharer.u->refcount, 1);
    EXPECT_TRUE(same_pixels(KivImage(sharer), grey_of({{1, 2}, {3, 4}})));
    EXPECT_TRUE(same_pixels(image, grey_of({{255, 255}, {0, 0}})));
}

} // namespace
