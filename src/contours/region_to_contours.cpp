// SPDX-License-Identifier: MIT
#include "foundation/data_types.h"
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionToContourArray(KivRegion& region, KivContourArray* contours)
{
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }
    cv::Mat mask = kiv::painted_mask(parts.frame, parts.runs);
    int width = 0;
    int height = 0;
    IKivROIPara::MatToMask(mask, contours, &width, &height);
    return KIVMV_OK;
}
