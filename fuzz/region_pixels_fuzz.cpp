// SPDX-License-Identifier: MIT
// The pixel list of a region has each pixel of its frame that a run covers once, in order, and gives those pixels back.
#include "inputs.h"
#include "pixel_grid.h"
#include "target.h"

#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const int width = input.digit() + 1;
    const int height = input.digit();
    KivRegion region(width, height, input.runs());
    const cv::Mat pixels = fuzz::pixels_of(region.Runs(), width, height);

    KivVarArray xs;
    KivVarArray ys;
    EXPECT_EQ(KIVMV::KivRegionToVarArray(region, &xs, &ys), KIVMV::KIVMV_OK);
    KivVarArray expected_xs;
    KivVarArray expected_ys;
    fuzz::PixelSet listed;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (pixels.at<unsigned char>(y, x) != 0) {
                expected_xs.Append(KivVar(x));
                expected_ys.Append(KivVar(y));
                listed.add(x, y);
            }
        }
    }
    EXPECT_TRUE(xs == expected_xs && ys == expected_ys);

    KivRegion again;
    const int code = KIVMV::KivVarArrayToRegion(xs, ys, &again);
    if (xs.Length() == 0) {
        EXPECT_EQ(code, KIVMV::KIVMV_ERR_LENGTH);
    } else if (listed.is_refused()) {
        EXPECT_EQ(code, KIVMV::KIVMV_ERR_PARAM_1);
    } else {
        const cv::Mat mask = listed.mask();
        EXPECT_EQ(code, KIVMV::KIVMV_OK);
        EXPECT_TRUE(support::same_region(again, KivRegion(mask.cols, mask.rows, support::plain_runs(mask))));
    }
    return 0;
}
