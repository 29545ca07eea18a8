// SPDX-License-Identifier: MIT
// Filling what was traced gives the traced mask back, by images and by regions; both trace alike.
#include "inputs.h"
#include "target.h"

#include "support/coordinates.h"
#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const cv::Mat pixels = fuzz::FuzzedBytes(bytes, size).picture();
    KivImage image(pixels);
    KivContourArray contours;
    EXPECT_EQ(KIVMV::KivBinImageToContourArray(image, &contours), KIVMV::KIVMV_OK);

    KivRegion region(pixels.cols, pixels.rows, support::plain_runs(pixels));
    KivContourArray contours_of_region;
    EXPECT_EQ(KIVMV::KivRegionToContourArray(region, &contours_of_region), KIVMV::KIVMV_OK);
    EXPECT_TRUE(support::same_values(contours_of_region, contours));

    if (contours.Length() > 0 && pixels.cols > 1 && pixels.rows > 1) {
        KivImage filled;
        EXPECT_EQ(KIVMV::KivContourArrayToBinImage(&filled, contours, pixels.cols, pixels.rows), KIVMV::KIVMV_OK);
        EXPECT_TRUE(support::same_pixels(filled, pixels != 0));
        KivRegion again;
        EXPECT_EQ(KIVMV::KivContourArrayToRegion(contours, pixels.cols, pixels.rows, &again), KIVMV::KIVMV_OK);
        EXPECT_TRUE(support::same_region(again, region));
    }
    return 0;
}
