// SPDX-License-Identifier: MIT
// Laws of the conversions between contours, regions and binary images: filling what was traced gives the traced mask
// back, and drawing a contour does what drawing by hand does.
#include "support/coordinates.h"
#include "support/drawing.h"
#include "support/pictures.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace
{

using support::same_region;
using support::same_values;

using Runs = std::vector<Run>;

class Random
{
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    int between(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(engine_); }
    bool one_in(int count) { return between(1, count) == 1; }

    // Many different pictures: noise, single pixels, frames within frames, rectangles added and cut out, corners.
    cv::Mat mask(int width, int height)
    {
        cv::Mat mask(height, width, CV_8UC1, cv::Scalar(one_in(2) ? 255 : 0));
        switch (between(0, 4)) {
        case 0:
            add_noise(mask, between(2, 6));
            break;
        case 1:
            add_noise(mask, 40);
            break;
        case 2:
            add_frames(mask);
            add_noise(mask, one_in(2) ? 60 : 1000);
            break;
        case 3:
            add_rectangles(mask);
            break;
        default:
            add_rectangles(mask);
            add_noise(mask, between(5, 30));
        }
        for (const int x : {0, width - 1}) {
            for (const int y : {0, height - 1}) {
                if (one_in(3)) {
                    mask.at<unsigned char>(y, x) ^= 255;
                }
            }
        }
        return mask;
    }

    // A contour with coordinates in quarters, around and beyond a frame of that size.
    KivContour contour(int width, int height)
    {
        KivContour::Points points;
        const int beyond = one_in(3) ? 100000 : between(0, 80);
        for (int i = between(1, 8); i > 0; --i) {
            const double x = between(-beyond, 4 * width + beyond) / 4.0;
            points.emplace_back(x, between(-beyond, 4 * height + beyond) / 4.0);
        }
        return KivContour(points);
    }

private:
    void add_noise(cv::Mat& mask, int rarity)
    {
        for (int y = 0; y < mask.rows; ++y) {
            for (int x = 0; x < mask.cols; ++x) {
                if (one_in(rarity)) {
                    mask.at<unsigned char>(y, x) ^= 255;
                }
            }
        }
    }

    // Ever smaller frames, foreground and background by turns.
    void add_frames(cv::Mat& mask)
    {
        cv::Rect rectangle(0, 0, mask.cols, mask.rows);
        for (int value = one_in(2) ? 255 : 0; rectangle.width > 0 && rectangle.height > 0; value = 255 - value) {
            mask(rectangle).setTo(value);
            const int left = between(one_in(4) ? 0 : 1, 3);
            const int top = between(one_in(4) ? 0 : 1, 3);
            rectangle = cv::Rect(rectangle.x + left, rectangle.y + top, rectangle.width - left - between(1, 3),
                                 rectangle.height - top - between(1, 3));
        }
    }

    void add_rectangles(cv::Mat& mask)
    {
        for (int i = between(1, 12); i > 0; --i) {
            const int x = between(0, mask.cols - 1);
            const int y = between(0, mask.rows - 1);
            mask(cv::Rect(x, y, between(1, mask.cols - x), between(1, mask.rows - y))).setTo(one_in(2) ? 255 : 0);
        }
    }

    std::mt19937 engine_;
};

KivContourArray traced(const cv::Mat& mask)
{
    KivImage image(mask);
    KivContourArray contours;
    EXPECT_EQ(KIVMV::KivBinImageToContourArray(image, &contours), KIVMV::KIVMV_OK);
    return contours;
}

// A copy in which the pixels of `shape` have the given value.
cv::Mat painted(const cv::Mat& mask, const cv::Mat& shape, int value)
{
    cv::Mat result = mask.clone();
    result.setTo(value, shape);
    return result;
}

// There and back by an image, by a region, and from one to the other.
void expect_there_and_back(const cv::Mat& mask)
{
    KivImage image(mask.clone());
    KivRegion region(mask.cols, mask.rows, support::plain_runs(mask));
    const KivRegion region_before(region);
    KivContourArray contours = {{{1, 2}}};
    ASSERT_EQ(KIVMV::KivBinImageToContourArray(image, &contours), KIVMV::KIVMV_OK);
    ASSERT_TRUE(support::same_pixels(image, mask));
    KivContourArray contours_of_region;
    ASSERT_EQ(KIVMV::KivRegionToContourArray(region, &contours_of_region), KIVMV::KIVMV_OK);
    ASSERT_TRUE(same_region(region, region_before));
    ASSERT_TRUE(same_values(contours_of_region, contours));

    // Nothing is filled from nothing: an array without contours is rejected.
    const int code = contours.Length() > 0 ? KIVMV::KIVMV_OK : KIVMV::KIVMV_ERR_PARAM_1;
    ASSERT_EQ(contours.Length() > 0, !region.Runs().empty());
    KivImage filled_image(cv::Mat::zeros(mask.rows, mask.cols, CV_8UC1));
    ASSERT_EQ(KIVMV::KivContourArrayToBinImage(&filled_image, contours, mask.cols, mask.rows), code);
    ASSERT_EQ(support::picture_of(filled_image.Mat()), support::picture_of(mask));
    ASSERT_TRUE(support::same_pixels(filled_image, mask));
    KivRegion filled_region(mask.cols, mask.rows, {});
    ASSERT_EQ(KIVMV::KivContourArrayToRegion(contours, mask.cols, mask.rows, &filled_region), code);
    ASSERT_TRUE(same_region(filled_region, region));
}

TEST(ContourRoundTrip, IsTheIdentityForAllMasksOfFourByFour)
{
    for (unsigned bits = 0; bits < 65536; ++bits) {
        SCOPED_TRACE(bits);
        cv::Mat mask(4, 4, CV_8UC1);
        for (unsigned i = 0; i < 16; ++i) {
            mask.data[i] = (bits >> i & 1U) != 0 ? 255 : 0;
        }
        expect_there_and_back(mask);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(ContourRoundTrip, IsTheIdentityForRandomMasks)
{
    for (std::uint32_t seed = 1000; seed < 11000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(2, 64);
        expect_there_and_back(random.mask(width, random.between(2, 64)));
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(ContourRoundTrip, IsTheIdentityForRunsOfAnyOrderInsideOfTheFrame)
{
    for (std::uint32_t seed = 12000; seed < 13000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(2, 40);
        const int height = random.between(2, 12);
        cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
        Runs runs;
        for (int i = random.between(1, 20); i > 0; --i) {
            const int begin = random.between(-10, width + 10);
            runs.push_back({random.between(-2, height + 1), begin, begin + random.between(-3, 20)});
            for (int x = begin; x <= runs.back().colEnd; ++x) {
                if (runs.back().row >= 0 && runs.back().row < height && x >= 0 && x < width) {
                    mask.at<unsigned char>(runs.back().row, x) = 255;
                }
            }
        }
        KivRegion region(width, height, runs);
        KivContourArray contours;
        ASSERT_EQ(KIVMV::KivRegionToContourArray(region, &contours), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(contours, traced(mask)));
        if (contours.Length() > 0) {
            KivRegion back;
            ASSERT_EQ(KIVMV::KivContourArrayToRegion(contours, width, height, &back), KIVMV::KIVMV_OK);
            ASSERT_TRUE(same_region(back, KivRegion(width, height, support::plain_runs(mask))));
        }
    }
}

TEST(ContourMerging, OfARectangleEqualsALoopOverItsPixels)
{
    for (std::uint32_t seed = 14000; seed < 16000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(1, 64);
        const int height = random.between(1, 64);
        const cv::Mat mask = random.mask(width, height);
        const int left = random.between(-10, width + 5);
        const int top = random.between(-10, height + 5);
        const int right = left + random.between(0, width + 10);
        const int bottom = top + random.between(0, height + 10);
        cv::Mat added = mask.clone();
        cv::Mat cut = mask.clone();
        for (int y = std::max(top, 0); y <= std::min(bottom, height - 1); ++y) {
            for (int x = std::max(left, 0); x <= std::min(right, width - 1); ++x) {
                added.at<unsigned char>(y, x) = 255;
                cut.at<unsigned char>(y, x) = 0;
            }
        }
        const double shift = random.between(-49, 49) / 100.0; // rounded away
        KivContour contour = {{left + shift, top - shift},
                              {right - shift, top + shift},
                              {right + shift, bottom + shift},
                              {left - shift, bottom - shift}};
        KivImage image(mask);
        const support::Snapshot snapshot(image);
        KivContourArray contours;
        ASSERT_EQ(KIVMV::KivMergContour(image, contour, true, &contours), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(contours, traced(added)));
        ASSERT_EQ(KIVMV::KivMergContour(image, contour, false, &contours), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(contours, traced(cut)));
        ASSERT_TRUE(snapshot.untouched());
    }
}

TEST(ContourMerging, EqualsFillingTheRoundedContourAlone)
{
    for (std::uint32_t seed = 17000; seed < 19000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(1, 64);
        const int height = random.between(1, 64);
        const cv::Mat mask = random.mask(width, height);
        KivContour contour = random.contour(width, height);
        KivContour::Points rounded;
        for (const auto& point : contour.AllPoints()) {
            rounded.emplace_back(std::nearbyint(point.x), std::nearbyint(point.y));
        }
        const cv::Mat shape = support::drawn(rounded, width, height);
        KivImage image(mask);
        const support::Snapshot snapshot(image);
        KivContourArray contours;
        ASSERT_EQ(KIVMV::KivMergContour(image, contour, true, &contours), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(contours, traced(painted(mask, shape, 255)))) << support::text_of(contour);
        ASSERT_EQ(KIVMV::KivMergContour(image, contour, false, &contours), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(contours, traced(painted(mask, shape, 0)))) << support::text_of(contour);
        ASSERT_TRUE(snapshot.untouched());
    }
}

TEST(ContourFilling, EqualsFillingTheTruncatedContour)
{
    for (std::uint32_t seed = 20000; seed < 22000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        // As far beyond the frame on the negative sides as it likes; the positive sides make the frame.
        KivContour::Points points;
        KivContour::Points truncated;
        const int beyond = random.one_in(3) ? 100000 : random.between(0, 80);
        int width = 0;
        int height = 0;
        for (int i = random.between(1, 8); i > 0; --i) {
            const double x = random.between(-beyond, 200) / 4.0;
            points.emplace_back(x, random.between(-beyond, 200) / 4.0);
            truncated.emplace_back(static_cast<int>(x), static_cast<int>(points.back().y));
            width = truncated.size() == 1 ? static_cast<int>(truncated.back().x) + 1
                                          : std::max(width, static_cast<int>(truncated.back().x) + 1);
            height = truncated.size() == 1 ? static_cast<int>(truncated.back().y) + 1
                                           : std::max(height, static_cast<int>(truncated.back().y) + 1);
        }
        KivContour contour(points);
        KivRegion region;
        if (width < 0 || height < 0) {
            ASSERT_TRUE(support::raises([&] { return KIVMV::KivContourToRegion(contour, &region); }));
            continue;
        }
        ASSERT_EQ(KIVMV::KivContourToRegion(contour, &region), KIVMV::KIVMV_OK);
        const cv::Mat expected = support::drawn(truncated, width, height);
        ASSERT_TRUE(same_region(region, KivRegion(width, height, support::plain_runs(expected))))
            << support::text_of(contour);
    }
}

TEST(ContourFilling, EqualsFillingTheContourWhereItLies)
{
    for (std::uint32_t seed = 22000; seed < 22400; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int left = random.one_in(4) ? random.between(32700, 32800) : random.between(0, 2000);
        const int top = random.between(0, 200);
        const int size = random.between(1, 100);
        const int width = left + size + 1;
        const int height = top + size + 1;
        KivContour::Points points;
        points.emplace_back(left + size, top + size); // so that the frame is known
        for (int i = random.between(0, 8); i > 0; --i) {
            points.emplace_back(left + random.between(0, size), top + random.between(0, size));
        }
        KivContour contour(points);
        KivRegion region;
        ASSERT_EQ(KIVMV::KivContourToRegion(contour, &region), KIVMV::KIVMV_OK);
        const cv::Mat expected = support::drawn(points, width, height);
        ASSERT_TRUE(same_region(region, KivRegion(width, height, support::plain_runs(expected))))
            << support::text_of(contour);
    }
}

// Whether the pixel is inside by the even-odd rule, and how far it is from the nearest edge.
struct Place {
    bool inside = false;
    double distance = 1e300;
};

Place place_of(int x, int y, const KivContour::Points& points)
{
    Place place;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto& p = points[i];
        const auto& q = points[(i + 1) % points.size()];
        if ((p.y <= y) != (q.y <= y) && x < p.x + (y - p.y) * (q.x - p.x) / (q.y - p.y)) {
            place.inside = !place.inside;
        }
        const double dx = q.x - p.x;
        const double dy = q.y - p.y;
        const double length = dx * dx + dy * dy;
        const double along = length > 0 ? std::clamp(((x - p.x) * dx + (y - p.y) * dy) / length, 0.0, 1.0) : 0.0;
        place.distance = std::min(place.distance, std::hypot(x - p.x - along * dx, y - p.y - along * dy));
    }
    return place;
}

// The corners are filled, and away from the border what the even-odd rule says and nothing else.
TEST(ContourFilling, FollowsTheEvenOddRule)
{
    for (std::uint32_t seed = 23000; seed < 23500; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        KivContour::Points points;
        for (int i = random.between(1, 9); i > 0; --i) {
            const double x = random.between(-20, 60);
            points.emplace_back(x, random.between(-20, 60));
        }
        points.emplace_back(60, 60); // so that there is a frame
        KivContour contour(points);
        KivRegion region;
        ASSERT_EQ(KIVMV::KivContourToRegion(contour, &region), KIVMV::KIVMV_OK);
        ASSERT_EQ(region.Width(), 61);
        ASSERT_EQ(region.Height(), 61);
        cv::Mat mask = cv::Mat::zeros(61, 61, CV_8UC1);
        for (const auto& run : region.Runs()) {
            mask.row(run.row).colRange(run.colBegin, run.colEnd + 1).setTo(255);
        }
        for (const auto& corner : points) {
            if (corner.x >= 0 && corner.y >= 0) {
                ASSERT_NE(mask.at<unsigned char>(static_cast<int>(corner.y), static_cast<int>(corner.x)), 0)
                    << "corner (" << corner.x << ", " << corner.y << ") of " << support::text_of(contour);
            }
        }
        for (int y = 0; y < mask.rows; ++y) {
            for (int x = 0; x < mask.cols; ++x) {
                const Place place = place_of(x, y, points);
                const bool filled = mask.at<unsigned char>(y, x) != 0;
                if (place.distance > 2.0) { // edges that leave the frame are a pixel off at times
                    ASSERT_EQ(filled, place.inside)
                        << "pixel (" << x << ", " << y << ") of " << support::text_of(contour);
                }
            }
        }
    }
}

} // namespace
