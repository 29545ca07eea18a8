// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivContourToRegion(KivContour& contour, KivRegion* region)
{
    const kiv::PixelList polygon = kiv::pixels_of(contour, kiv::truncate);
    if (polygon.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    const kiv::Frame frame = kiv::frame_up_to(kiv::largest_of(polygon));
    cv::Mat mask = kiv::uniform_mask(frame, 0);
    kiv::fill_polygon(mask, polygon, 255);
    kiv::mask_to_region(mask, frame, *region);
    return KIVMV_OK;
}
