// SPDX-License-Identifier: MIT
// Images of more than 2^31 bytes, where a pixel's place no longer fits into an int.
#include "huge/memory.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <opencv2/core.hpp>

#include <malloc.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace
{

constexpr int width = 65536;
constexpr int height = 32800;
constexpr auto bytes_of_mask = std::int64_t{width} * height;
static_assert(bytes_of_mask > std::numeric_limits<std::int32_t>::max());

/// An image, and the copy that some functions make of it.
constexpr std::int64_t bytes_needed = 2 * bytes_of_mask;

/// Runs at the corners, on both sides of byte 2^31, and through a whole row.
std::vector<Run> runs_far_and_near()
{
    return {{0, 0, 0},
            {0, width - 2, width - 1},
            {16384, 5, 9},
            {32767, width - 1, width - 1},
            {32768, 0, 3},
            {32768, 70, 70},
            {height - 2, 0, width - 1},
            {height - 1, 0, 63},
            {height - 1, width - 1, width - 1}};
}

/// Lets every mask but the first two lie where one lay before: most of the time goes into the system's fresh pages.
void keep_freed_memory()
{
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1); // never
}

} // namespace

TEST(HugeImage, IsPaintedAndRead)
{
    if (!huge::available(bytes_needed)) {
        GTEST_SKIP() << "needs " << bytes_needed / 1'000'000 << " MB of memory";
    }
    keep_freed_memory();

    KivRegion region(width, height, runs_far_and_near());
    KivImage image;
    ASSERT_EQ(KIVMV::KivRegionToBinImage(&image, region), KIVMV::KIVMV_OK);
    ASSERT_EQ(image.Width(), width);
    ASSERT_EQ(image.Height(), height);
    const cv::Mat& pixels = image.Mat();
    EXPECT_EQ(pixels.at<uchar>(height - 1, width - 1), 255);
    EXPECT_EQ(pixels.at<uchar>(height - 1, width - 2), 0);
    EXPECT_EQ(pixels.at<uchar>(32767, width - 1), 255);
    EXPECT_EQ(pixels.at<uchar>(32768, 4), 0);

    KivRegion from_binary;
    ASSERT_EQ(KIVMV::KivBinImageToRegion(image, &from_binary), KIVMV::KIVMV_OK);
    EXPECT_TRUE(from_binary == region);
    KivRegion from_any;
    ASSERT_EQ(KIVMV::KivImageToRegion(image, &from_any), KIVMV::KIVMV_OK);
    EXPECT_TRUE(from_any == region);
    KivROI roi;
    ASSERT_EQ(KIVMV::KivBinImageToROI(image, &roi), KIVMV::KIVMV_OK);
    EXPECT_TRUE(roi.Parameters().MaskRuns() == region.Runs());

    KivVarArray xs;
    KivVarArray ys;
    KivRegion corners(width, height, {{0, 1, 2}, {height - 1, width - 2, width - 1}});
    ASSERT_EQ(KIVMV::KivRegionToVarArray(corners, &xs, &ys), KIVMV::KIVMV_OK);
    EXPECT_TRUE(xs == (KivVarArray{1, 2, width - 2, width - 1}));
    EXPECT_TRUE(ys == (KivVarArray{0, 0, height - 1, height - 1}));
    KivRegion from_arrays;
    ASSERT_EQ(KIVMV::KivVarArrayToRegion(xs, ys, &from_arrays), KIVMV::KIVMV_OK);
    EXPECT_TRUE(from_arrays == corners);
}
