// SPDX-License-Identifier: MIT
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionToROI(KivRegion& region, KivROI* out)
{
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    const kiv::RunView runs = parts.runs;
    kiv::become_mask(*out, parts.frame, {runs.begin(), runs.end()});
    return KIVMV_OK;
}
