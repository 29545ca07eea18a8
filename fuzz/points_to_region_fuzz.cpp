// SPDX-License-Identifier: MIT
// Points become the pixels that their truncated coordinates name. Coordinates are at most 20: the frame costs memory.
#include "inputs.h"
#include "pixel_grid.h"
#include "target.h"

#include "support/rasters.h"

#include <KivDataConvert/KivDataConvert.h>

#include <cmath>

namespace
{

double coordinate(fuzz::FuzzedBytes& input)
{
    const double value = input.fine_coordinate();
    return value > 20.0 ? -value : value;
}

int truncated(double value)
{
    return std::isnan(value) ? 0 : value < -10.0 ? -10 : static_cast<int>(value); // all that is left out is alike
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    KivPointArray points;
    fuzz::PixelSet pixels;
    while (!input.at_end()) {
        const double x = coordinate(input);
        const double y = coordinate(input);
        points.Append(KivPoint{x, y});
        pixels.add(truncated(x), truncated(y));
    }

    const KivRegion before(3, 3, {{0, 0, 0}});
    KivRegion region(before);
    const int code = KIVMV::KivPointArrayToRegion(points, &region);
    if (pixels.is_refused()) {
        EXPECT_EQ(code, KIVMV::KIVMV_ERR_PARAM_1);
        EXPECT_TRUE(support::same_region(region, before));
    } else {
        const cv::Mat mask = pixels.mask();
        EXPECT_EQ(code, KIVMV::KIVMV_OK);
        EXPECT_TRUE(support::same_region(region, KivRegion(mask.cols, mask.rows, support::plain_runs(mask))));
    }
    return 0;
}
