// SPDX-License-Identifier: MIT
#include "roi/roi_types.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToRegion(KivROI& roi, KivRegion* out)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }
    const kiv::FramedRuns mask = kiv::mask_of(roi);
    if (!kiv::has_columns(roi, mask)) {
        return KIVMV_ERR_PARAM_1;
    }

    const kiv::RunView runs = mask.runs;
    kiv::create_region(*out, mask.frame, {runs.begin(), runs.end()});
    return KIVMV_OK;
}
