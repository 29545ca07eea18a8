// SPDX-License-Identifier: MIT
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionToContourArray(KivRegion& region, KivContourArray* contours)
{
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }
    kiv::trace(parts, contours);
    return KIVMV_OK;
}
