// SPDX-License-Identifier: MIT
// Laws of the conversions between regions, pixel lists, points and contours: nothing is lost on the way there and back,
// and what is listed is what a plain loop over the pixels finds.
#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace
{

using support::same_region;
using support::same_values;

using Runs = std::vector<Run>;

struct Pixel {
    int x;
    int y;
};

class Random
{
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    int between(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(engine_); }
    bool one_in(int count) { return between(1, count) == 1; }

    // At least 0 and below 1; often next to the ends.
    double fraction()
    {
        constexpr double next_to_one = 1.0 - 0x1p-40;
        return one_in(4) ? 0.0 : one_in(4) ? next_to_one : std::uniform_real_distribution<double>(0.0, 0.999)(engine_);
    }

    // Any bit pattern there is.
    double any_double()
    {
        const std::uint64_t high = engine_();
        return std::bit_cast<double>(high << 32 | std::uint64_t{engine_()});
    }

    cv::Mat mask(int width, int height)
    {
        cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
        const int density = between(1, 12);
        const bool in_stretches = one_in(2);
        for (int y = 0; y < height; ++y) {
            bool inside = false;
            for (int x = 0; x < width; ++x) {
                inside = in_stretches ? inside != one_in(density + 1) : one_in(density);
                mask.at<unsigned char>(y, x) = inside ? 255 : 0;
            }
        }
        return mask;
    }

    template <class Values>
    void shuffle(Values& values)
    {
        std::shuffle(values.begin(), values.end(), engine_);
    }

private:
    std::mt19937 engine_;
};

std::vector<Pixel> pixels_of(const cv::Mat& mask)
{
    std::vector<Pixel> pixels;
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            if (mask.at<unsigned char>(y, x) != 0) {
                pixels.push_back({x, y});
            }
        }
    }
    return pixels;
}

std::pair<KivVarArray, KivVarArray> arrays_of(const std::vector<Pixel>& pixels)
{
    std::vector<int> xs;
    std::vector<int> ys;
    for (const auto& pixel : pixels) {
        xs.push_back(pixel.x);
        ys.push_back(pixel.y);
    }
    return {KivVarArray(xs), KivVarArray(ys)};
}

// The part of the mask from (0, 0) to the last column and the last row that have foreground.
cv::Mat cropped(const cv::Mat& mask)
{
    int width = 0;
    int height = 0;
    for (const auto& pixel : pixels_of(mask)) {
        width = std::max(width, pixel.x + 1);
        height = std::max(height, pixel.y + 1);
    }
    return mask(cv::Rect(0, 0, width, height));
}

// Points that are truncated to the pixels; negative coordinates are truncated upward.
KivPointArray points_of(const std::vector<Pixel>& pixels, Random& random)
{
    const auto within = [&random](int coordinate) {
        return coordinate + std::copysign(coordinate == 0 ? 0.0 : random.fraction(), coordinate);
    };
    KivPointArray points;
    for (const auto& pixel : pixels) {
        const double x = within(pixel.x);
        points.Append(KivPoint{x, within(pixel.y)});
    }
    return points;
}

KivRegion region_of(const cv::Mat& mask)
{
    return KivRegion(mask.cols, mask.rows, support::plain_runs(mask));
}

// From the mask's region to lists, and back from the lists in any order.
void expect_there_and_back(const cv::Mat& mask, Random& random)
{
    KivRegion region = region_of(mask);
    const KivRegion region_before(region);
    std::vector<Pixel> pixels = pixels_of(mask);
    const auto [expected_xs, expected_ys] = arrays_of(pixels);
    KivVarArray xs;
    KivVarArray ys;
    ASSERT_EQ(KIVMV::KivRegionToVarArray(region, &xs, &ys), KIVMV::KIVMV_OK);
    ASSERT_TRUE(same_values(xs, expected_xs));
    ASSERT_TRUE(same_values(ys, expected_ys));

    KivPointArray expected_points;
    for (const auto& pixel : pixels) {
        expected_points.Append(KivPoint{static_cast<double>(pixel.x), static_cast<double>(pixel.y)});
    }
    KivPointArray points;
    ASSERT_EQ(KIVMV::KivRegionToPointArray(region, &points), KIVMV::KIVMV_OK);
    ASSERT_TRUE(same_values(points, expected_points));
    ASSERT_TRUE(same_region(region, region_before));

    // Back, with some pixels several times, and in any order.
    if (!pixels.empty()) {
        for (int i = random.between(0, 5); i > 0; --i) {
            pixels.push_back(pixels[static_cast<std::size_t>(random.between(0, static_cast<int>(pixels.size()) - 1))]);
        }
    }
    random.shuffle(pixels);
    auto [shuffled_xs, shuffled_ys] = arrays_of(pixels);
    KivPointArray shuffled_points;
    for (const auto& pixel : pixels) {
        shuffled_points.Append(KivPoint{pixel.x + random.fraction(), pixel.y + random.fraction()});
    }

    const cv::Mat kept = cropped(mask);
    const bool taken = kept.cols > 1 && kept.rows > 1;
    const KivRegion earlier(3, 3, {{2, 2, 2}});
    const KivRegion expected = taken ? region_of(kept) : earlier;
    KivRegion from_arrays(earlier);
    ASSERT_EQ(KIVMV::KivVarArrayToRegion(shuffled_xs, shuffled_ys, &from_arrays), taken ? KIVMV::KIVMV_OK
                                                                                  : pixels.empty()
                                                                                      ? KIVMV::KIVMV_ERR_LENGTH
                                                                                      : KIVMV::KIVMV_ERR_PARAM_1);
    ASSERT_TRUE(same_region(from_arrays, expected));
    KivRegion from_points(earlier);
    ASSERT_EQ(KIVMV::KivPointArrayToRegion(shuffled_points, &from_points),
              taken ? KIVMV::KIVMV_OK : KIVMV::KIVMV_ERR_PARAM_1);
    ASSERT_TRUE(same_region(from_points, expected));
}

TEST(PixelListRoundTrip, IsTheIdentityForAllMasksOfFourByFour)
{
    Random random(100);
    for (unsigned bits = 0; bits < 65536; ++bits) {
        SCOPED_TRACE(bits);
        cv::Mat mask(4, 4, CV_8UC1);
        for (unsigned i = 0; i < 16; ++i) {
            mask.data[i] = (bits >> i & 1U) != 0 ? 255 : 0;
        }
        expect_there_and_back(mask, random);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(PixelListRoundTrip, IsTheIdentityForRandomMasks)
{
    for (std::uint32_t seed = 1000; seed < 3000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(1, 70);
        expect_there_and_back(random.mask(width, random.between(1, 20)), random);
        if (HasFatalFailure()) {
            return;
        }
    }
}

// Runs of any order, place and overlap are listed as a plain loop lists them: as pixels once each and inside of the
// frame, as points all of them.
TEST(PixelLists, EqualAPlainLoopForRandomRuns)
{
    for (std::uint32_t seed = 4000; seed < 6000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(1, 70);
        const int height = random.between(0, 6);
        Runs runs;
        for (int i = random.between(0, 12); i > 0; --i) {
            const int begin = random.between(-20, width + 20);
            runs.push_back({random.between(-2, height + 1), begin, begin + random.between(-5, 60)});
        }
        cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
        KivPointArray expected_points;
        for (const auto& run : runs) {
            for (int x = run.colBegin; x <= run.colEnd; ++x) {
                expected_points.Append(KivPoint{static_cast<double>(x), static_cast<double>(run.row)});
                if (run.row >= 0 && run.row < height && x >= 0 && x < width) {
                    mask.at<unsigned char>(run.row, x) = 255;
                }
            }
        }
        const auto [expected_xs, expected_ys] = arrays_of(pixels_of(mask));

        KivRegion region(width, height, runs);
        KivVarArray xs;
        KivVarArray ys;
        ASSERT_EQ(KIVMV::KivRegionToVarArray(region, &xs, &ys), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(xs, expected_xs));
        ASSERT_TRUE(same_values(ys, expected_ys));
        KivPointArray points;
        ASSERT_EQ(KIVMV::KivRegionToPointArray(region, &points), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(points, expected_points));
        ASSERT_TRUE(same_region(region, KivRegion(width, height, runs)));
    }
}

// Lists with negative coordinates: what is left out of the picture still counts for the frame.
TEST(PixelLists, BecomeTheRegionThatAPlainLoopMarks)
{
    for (std::uint32_t seed = 7000; seed < 9000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        std::vector<Pixel> pixels;
        const int extent = random.between(1, 40);
        for (int i = random.between(1, 100); i > 0; --i) {
            pixels.push_back({random.between(-5, extent), random.between(-5, extent)});
        }
        int largest_x = -5;
        int largest_y = -5;
        for (const auto& pixel : pixels) {
            largest_x = std::max(largest_x, pixel.x);
            largest_y = std::max(largest_y, pixel.y);
        }
        const bool taken = largest_x > 0 && largest_y > 0;
        KivRegion expected(3, 3, {{2, 2, 2}});
        KivRegion from_arrays(expected);
        KivRegion from_points(expected);
        if (taken) {
            cv::Mat mask = cv::Mat::zeros(largest_y + 1, largest_x + 1, CV_8UC1);
            for (const auto& pixel : pixels) {
                if (pixel.x >= 0 && pixel.y >= 0) {
                    mask.at<unsigned char>(pixel.y, pixel.x) = 255;
                }
            }
            expected = region_of(mask);
        }
        auto [xs, ys] = arrays_of(pixels);
        KivPointArray points = points_of(pixels, random);
        const int code = taken ? KIVMV::KIVMV_OK : KIVMV::KIVMV_ERR_PARAM_1;
        ASSERT_EQ(KIVMV::KivVarArrayToRegion(xs, ys, &from_arrays), code);
        ASSERT_TRUE(same_region(from_arrays, expected));
        ASSERT_EQ(KIVMV::KivPointArrayToRegion(points, &from_points), code);
        ASSERT_TRUE(same_region(from_points, expected));
    }
}

// Lists in order, of many runs, with pixels listed twice in a row or left out, and sometimes one out of its place.
TEST(PixelLists, InOrderBecomeTheRegionThatTheyAreOf)
{
    for (std::uint32_t seed = 9000; seed < 9300; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(2, 300);
        const cv::Mat mask = random.mask(width, random.between(2, 60));
        const cv::Mat kept = cropped(mask);
        std::vector<Pixel> pixels;
        for (const auto& pixel : pixels_of(mask)) {
            if (random.one_in(40)) {
                pixels.push_back(random.one_in(2) ? Pixel{pixel.x, -random.between(1, 3)} : Pixel{-1, pixel.y});
            }
            pixels.insert(pixels.end(), random.one_in(30) ? 2 : 1, pixel);
        }
        if (kept.cols < 2 || kept.rows < 2) {
            continue;
        }
        if (random.one_in(4)) {
            const int last = static_cast<int>(pixels.size()) - 1;
            std::swap(pixels[static_cast<std::size_t>(random.between(0, last))],
                      pixels[static_cast<std::size_t>(random.between(0, last))]);
        }
        auto [xs, ys] = arrays_of(pixels);
        KivPointArray points = points_of(pixels, random);
        KivRegion from_arrays;
        KivRegion from_points;
        ASSERT_EQ(KIVMV::KivVarArrayToRegion(xs, ys, &from_arrays), KIVMV::KIVMV_OK);
        ASSERT_EQ(KIVMV::KivPointArrayToRegion(points, &from_points), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_region(from_arrays, region_of(kept)));
        ASSERT_TRUE(same_region(from_points, region_of(kept)));
    }
}

TEST(ContourAndPoints, KeepAllBitsThereAndBack)
{
    for (std::uint32_t seed = 10000; seed < 12000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        KivContour::Points list;
        for (int i = random.between(1, 50); i > 0; --i) {
            const double x = random.any_double();
            list.emplace_back(x, random.any_double());
        }
        KivContour contour(list);
        KivPointArray points = {{1, 2}};
        ASSERT_EQ(KIVMV::KivContourToPointArray(contour, &points), KIVMV::KIVMV_OK);
        ASSERT_EQ(support::bits_of(points), support::bits_of(list));
        KivContour back = {{3, 4}};
        ASSERT_EQ(KIVMV::KivPointArrayToContour(points, &back), KIVMV::KIVMV_OK);
        ASSERT_EQ(support::bits_of(back), support::bits_of(list));
    }
}

TEST(ContourAndArrays, RoundOnceAndAreTheIdentityFromThen)
{
    for (std::uint32_t seed = 13000; seed < 15000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        KivContour::Points list;
        KivContour::Points rounded;
        for (int i = random.between(1, 50); i > 0; --i) {
            // Quarters: many ties. The nearest even int is found without rounding functions.
            const int x_quarters = random.between(-4000, 4000);
            const int y_quarters = random.between(-4000, 4000);
            list.emplace_back(x_quarters / 4.0, y_quarters / 4.0);
            const auto nearest = [](int quarters) {
                const int below = quarters >> 2;
                const int rest = quarters - 4 * below;
                return rest < 2 || (rest == 2 && below % 2 == 0) ? below : below + 1;
            };
            rounded.emplace_back(nearest(x_quarters), nearest(y_quarters));
        }
        KivContour contour(list);
        KivVarArray xs;
        KivVarArray ys;
        ASSERT_EQ(KIVMV::KivContourToVarArray(contour, &xs, &ys), KIVMV::KIVMV_OK);
        KivContour back;
        ASSERT_EQ(KIVMV::KivVarArrayToContour(xs, ys, &back), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(back, KivContour(rounded)));
        KivVarArray xs_again;
        KivVarArray ys_again;
        ASSERT_EQ(KIVMV::KivContourToVarArray(back, &xs_again, &ys_again), KIVMV::KIVMV_OK);
        ASSERT_TRUE(same_values(xs_again, xs));
        ASSERT_TRUE(same_values(ys_again, ys));
    }
}

} // namespace
