// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"

#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

namespace kiv
{

int pixels_to_region(const PixelList& pixels, KivRegion& region)
{
    const cv::Point_<int> largest = largest_of(pixels);
    if (largest.y < 1 || largest.x < 1) {
        return KIVMV::KIVMV_ERR_PARAM_1;
    }

    const Frame frame = frame_up_to(largest);
    cv::Mat mask = uniform_mask(frame, 0);
    for (const auto& pixel : pixels) {
        if (pixel.x >= 0 && pixel.y >= 0) {
            mask.data[static_cast<std::size_t>(pixel.y) * mask.step[0] + static_cast<std::size_t>(pixel.x)] = 255;
        }
    }
    mask_to_region(mask, frame, region);
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
