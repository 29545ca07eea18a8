// SPDX-License-Identifier: MIT
// Laws of the raster conversions: an image and its region have the same pixels, for every small mask and for large
// random ones, and the runs of a region are the ones that a plain loop over the bytes finds.
#include <KivDataConvert/KivDataConvert.h>

#include "support/pictures.h"
#include "support/rasters.h"

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <algorithm>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Runs = std::vector<Run>;

// How the foreground of a random mask is spread.
enum class Texture { sparse, noise, dense, short_runs, long_runs, full_rows };

struct NamedTexture {
    const char* name;
    Texture texture;
};

constexpr NamedTexture textures[] = {
    {"sparse", Texture::sparse},         {"noise", Texture::noise},         {"dense", Texture::dense},
    {"short runs", Texture::short_runs}, {"long runs", Texture::long_runs}, {"full rows", Texture::full_rows},
};

// Sizes at which an extractor that reads several bytes at once may go wrong.
constexpr int critical_sizes[] = {1,  2,  3,  7,  8,  9,   15,  16,  17,  31,  32,  33,  47,  48,  49,  63,
                                  64, 65, 79, 80, 81, 127, 128, 129, 191, 192, 193, 255, 256, 257, 511, 513};

class Random
{
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    int between(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(engine_); }
    bool one_in(int count) { return between(1, count) == 1; }

    // Each foreground pixel has a value of its own; the extreme ones are frequent.
    unsigned char foreground()
    {
        constexpr unsigned char extremes[] = {1, 127, 128, 255};
        return one_in(2) ? extremes[between(0, 3)] : static_cast<unsigned char>(between(1, 255));
    }

    cv::Mat mask(int width, int height, Texture texture)
    {
        cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
        for (int y = 0; y < height; ++y) {
            bool inside = one_in(2);
            for (int x = 0; x < width; ++x) {
                inside = x == 0 ? inside : next_inside(inside, texture);
                if (inside) {
                    mask.at<unsigned char>(y, x) = foreground();
                }
            }
        }
        return mask;
    }

private:
    bool next_inside(bool inside, Texture texture)
    {
        switch (texture) {
        case Texture::sparse:
            return one_in(40);
        case Texture::noise:
            return one_in(2);
        case Texture::dense:
            return !one_in(40);
        case Texture::short_runs:
            return one_in(4) != inside;
        case Texture::long_runs:
            return one_in(60) != inside;
        case Texture::full_rows:
            break;
        }
        return inside;
    }

    std::mt19937 engine_;
};

// 255 where the mask is not 0.
cv::Mat normalised(const cv::Mat& mask)
{
    cv::Mat result(mask.rows, mask.cols, CV_8UC1);
    for (int y = 0; y < mask.rows; ++y) {
        std::transform(mask.ptr<unsigned char>(y), mask.ptr<unsigned char>(y) + mask.cols, result.ptr<unsigned char>(y),
                       [](unsigned char value) { return static_cast<unsigned char>(value != 0 ? 255 : 0); });
    }
    return result;
}

// Both ways from an image to a region, and both ways back.
void expect_all_agree(const cv::Mat& mask)
{
    KivImage image(mask);
    const support::Snapshot snapshot(image);
    const KivRegion expected(mask.cols, mask.rows, support::plain_runs(mask));

    KivRegion region;
    ASSERT_EQ(KIVMV::KivImageToRegion(image, &region), KIVMV::KIVMV_OK);
    ASSERT_TRUE(support::same_region(region, expected));
    KivRegion binary_region;
    ASSERT_EQ(KIVMV::KivBinImageToRegion(image, &binary_region), KIVMV::KIVMV_OK);
    ASSERT_TRUE(support::same_region(binary_region, expected));
    ASSERT_TRUE(snapshot.untouched());

    KivImage binary_image;
    ASSERT_EQ(KIVMV::KivRegionToBinImage(&binary_image, region), KIVMV::KIVMV_OK);
    if (mask.total() <= 4096) {
        ASSERT_EQ(support::picture_of(binary_image.Mat()), support::picture_of(mask));
    }
    ASSERT_TRUE(support::same_pixels(binary_image, normalised(mask)));

    KivImage grey_image;
    ASSERT_EQ(KIVMV::KivRegionToImage(&grey_image, region, 255, 0, mask.cols, mask.rows), KIVMV::KIVMV_OK);
    ASSERT_EQ(grey_image, binary_image);
    ASSERT_EQ(region, expected);
}

std::string label(std::uint32_t seed, int width, int height, const NamedTexture& texture)
{
    std::ostringstream text;
    text << "seed " << seed << ", " << width << " x " << height << ", " << texture.name;
    return text.str();
}

TEST(RasterRoundTrip, IsTheIdentityForAllMasksOfFourByFour)
{
    constexpr unsigned char values[] = {255, 1, 128, 2, 127, 254, 16};
    for (unsigned bits = 0; bits < 65536; ++bits) {
        SCOPED_TRACE(bits);
        cv::Mat mask(4, 4, CV_8UC1);
        for (unsigned i = 0; i < 16; ++i) {
            mask.data[i] = (bits >> i & 1U) != 0 ? values[i % std::size(values)] : 0;
        }
        expect_all_agree(mask);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(RasterRoundTrip, IsTheIdentityForOneForegroundOrOneBackgroundPixelAnywhereInARow)
{
    for (int width = 1; width <= 140; ++width) {
        for (int at = 0; at < width; ++at) {
            for (const int background : {0, 1}) {
                SCOPED_TRACE("width " + std::to_string(width) + ", pixel " + std::to_string(at) +
                             (background == 0 ? " foreground" : " background"));
                cv::Mat mask(1, width, CV_8UC1, cv::Scalar(background));
                mask.data[at] = static_cast<unsigned char>(1 - background);
                expect_all_agree(mask);
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

TEST(RasterRoundTrip, IsTheIdentityForOneRunOfAnyPlaceAndLength)
{
    constexpr int width = 133;
    for (int begin = 0; begin < width; ++begin) {
        for (int end = begin; end < width; ++end) {
            SCOPED_TRACE("run from " + std::to_string(begin) + " to " + std::to_string(end));
            cv::Mat mask = cv::Mat::zeros(1, width, CV_8UC1);
            std::fill(mask.data + begin, mask.data + end + 1, static_cast<unsigned char>(128));
            expect_all_agree(mask);
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

TEST(RasterRoundTrip, IsTheIdentityForRandomMasksOfCriticalWidths)
{
    std::uint32_t seed = 1000;
    for (const int width : critical_sizes) {
        for (const int height : {1, 2, 5}) {
            for (const NamedTexture& texture : textures) {
                SCOPED_TRACE(label(seed, width, height, texture));
                expect_all_agree(Random(seed++).mask(width, height, texture.texture));
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

TEST(RasterRoundTrip, IsTheIdentityForRandomMasksOfCriticalHeights)
{
    std::uint32_t seed = 4000;
    for (const int height : critical_sizes) {
        for (const int width : {1, 2, 16}) {
            for (const NamedTexture& texture : textures) {
                SCOPED_TRACE(label(seed, width, height, texture));
                expect_all_agree(Random(seed++).mask(width, height, texture.texture));
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

// What lies between the rows is foreground as often as background, so that a run that strays over the end of a row
// shows.
TEST(RasterRoundTrip, IsTheIdentityForPaddedMasks)
{
    std::uint32_t seed = 7000;
    for (const int width : critical_sizes) {
        for (const NamedTexture& texture : textures) {
            for (const int surroundings : {0, 255}) {
                SCOPED_TRACE(label(seed, width, 3, texture) + ", surroundings " + std::to_string(surroundings));
                Random random(seed++);
                const int left = random.between(0, 70);
                const int right = random.between(left == 0 ? 1 : 0, 70);
                const cv::Mat mask = random.mask(width, 3, texture.texture);
                const support::Padded padded = support::padded(mask, left, right, surroundings);
                const cv::Mat whole_before = padded.whole.clone();
                expect_all_agree(padded.inner);
                ASSERT_TRUE(support::same_pixels(KivImage(padded.whole), whole_before));
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

TEST(RasterRoundTrip, IsTheIdentityForLargeRandomMasks)
{
    std::uint32_t seed = 9000;
    for (const auto& [width, height] :
         {std::pair{1920, 108}, std::pair{640, 480}, std::pair{4099, 33}, std::pair{70001, 1}, std::pair{1, 7001}}) {
        for (const NamedTexture& texture : textures) {
            SCOPED_TRACE(label(seed, width, height, texture));
            expect_all_agree(Random(seed++).mask(width, height, texture.texture));
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

// Of several channels the first bytes of each row count, however far apart the rows are.
TEST(RasterExtraction, EqualsAPlainLoopForSeveralChannels)
{
    std::uint32_t seed = 12000;
    for (const int channels : {2, 4, 5}) {
        for (const int width : critical_sizes) {
            for (const bool with_padding : {false, true}) {
                SCOPED_TRACE("seed " + std::to_string(seed) + ", " + std::to_string(channels) + " channels, width " +
                             std::to_string(width) + (with_padding ? ", padded" : ""));
                Random random(seed++);
                cv::Mat pixels = random.mask(width * channels, 4, Texture::short_runs).reshape(channels);
                if (with_padding) {
                    pixels = support::padded(pixels, random.between(0, 9), random.between(1, 9), 255).inner;
                }
                KivImage image(pixels);
                const support::Snapshot snapshot(image);
                KivRegion region;
                ASSERT_EQ(KIVMV::KivImageToRegion(image, &region), KIVMV::KIVMV_OK);
                ASSERT_TRUE(support::same_region(region, KivRegion(width, 4, support::plain_runs(pixels))));
                ASSERT_TRUE(snapshot.untouched());
            }
        }
    }
}

// Runs of any order, place and overlap are painted like a plain loop over their columns paints them.
TEST(RasterPainting, EqualsAPlainLoopForRandomRuns)
{
    for (std::uint32_t seed = 15000; seed < 15600; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(1, 70);
        const int height = random.between(1, 6);
        const int foreground = random.between(0, 255);
        const int background = random.between(0, 255);
        Runs runs;
        for (int i = random.between(0, 12); i > 0; --i) {
            const int begin = random.between(-20, width + 20);
            runs.push_back({random.between(-2, height + 1), begin, begin + random.between(-5, 60)});
        }
        cv::Mat expected(height, width, CV_8UC1, cv::Scalar(background));
        for (const auto& run : runs) {
            for (int x = run.colBegin; x <= run.colEnd; ++x) {
                if (run.row >= 0 && run.row < height && x >= 0 && x < width) {
                    expected.at<unsigned char>(run.row, x) = static_cast<unsigned char>(foreground);
                }
            }
        }

        KivRegion region(random.between(1, 100), random.between(0, 100), runs);
        KivImage image;
        ASSERT_EQ(KIVMV::KivRegionToImage(&image, region, foreground, background, width, height), KIVMV::KIVMV_OK);
        ASSERT_TRUE(support::same_pixels(image, expected));

        KivRegion framed(width, height, runs);
        KivImage binary_image;
        ASSERT_EQ(KIVMV::KivRegionToBinImage(&binary_image, framed), KIVMV::KIVMV_OK);
        KivImage grey_image;
        ASSERT_EQ(KIVMV::KivRegionToImage(&grey_image, framed, 255, 0, width, height), KIVMV::KIVMV_OK);
        ASSERT_EQ(binary_image, grey_image);
    }
}

// The maximal runs of what was painted cover what the runs had covered, each row from left to right.
TEST(RasterPainting, ComesBackAsMaximalRuns)
{
    for (std::uint32_t seed = 18000; seed < 18300; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const int width = random.between(1, 150);
        const int height = random.between(1, 5);
        Runs runs;
        for (int i = random.between(0, 20); i > 0; --i) {
            const int begin = random.between(-5, width);
            runs.push_back({random.between(-1, height), begin, begin + random.between(-1, 20)});
        }
        KivRegion region(width, height, runs);
        KivImage image;
        ASSERT_EQ(KIVMV::KivRegionToBinImage(&image, region), KIVMV::KIVMV_OK);
        KivRegion maximal;
        ASSERT_EQ(KIVMV::KivBinImageToRegion(image, &maximal), KIVMV::KIVMV_OK);
        for (std::size_t i = 1; i < maximal.Runs().size(); ++i) {
            const auto& left = maximal.Runs()[i - 1];
            const auto& right = maximal.Runs()[i];
            ASSERT_TRUE(left.row < right.row || (left.row == right.row && left.colEnd + 1 < right.colBegin))
                << "runs " << i - 1 << " and " << i << " of " << support::text_of(maximal);
        }
        KivImage again;
        ASSERT_EQ(KIVMV::KivRegionToBinImage(&again, maximal), KIVMV::KIVMV_OK);
        ASSERT_EQ(again, image);
    }
}

} // namespace
