// SPDX-License-Identifier: MIT
#include "foundation/masks.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionToPointArray(KivRegion& region, KivPointArray* points)
{
    points->Clear();
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::require_mask_frame({0, parts.frame.height}); // only a negative height is an error
    kiv::append_pixels(*points, parts.runs);
    return KIVMV_OK;
}
