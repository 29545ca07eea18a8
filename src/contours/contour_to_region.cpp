// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

#include <utility>

int KIVMV::KivContourToRegion(KivContour& contour, KivRegion* region)
{
    kiv::PixelList polygon = kiv::pixels_of(contour, kiv::truncate);
    if (polygon.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    const kiv::Frame frame = kiv::frame_up_to(kiv::largest_of(polygon));
    cv::Mat mask = kiv::painted_mask(frame, {});
    kiv::fill_polygon(mask, std::move(polygon), 255);
    kiv::mask_to_region(mask, frame, *region);
    return KIVMV_OK;
}
