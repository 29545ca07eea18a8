// SPDX-License-Identifier: MIT
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionToContourArray(KivRegion& region, KivContourArray* contours)
{
    const kiv::RegionParts parts(region);
    if (parts.empty()) {
        return KIVMV_ERR_PARAM_1;
    }
    cv::Mat mask = kiv::painted_mask(parts.frame, parts.runs);
    // GCOVR_EXCL_START: a guard that the check above leaves nothing to
    if (mask.cols < 1) {
        return KIVMV_ERR_PARAM_1;
    }
    // GCOVR_EXCL_STOP

    IKivROIPara tracer;
    int width = 0;
    int height = 0;
    tracer.MatToMask(mask, contours, &width, &height);
    return KIVMV_OK;
}
