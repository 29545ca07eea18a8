// SPDX-License-Identifier: MIT
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionToROI(KivRegion& region, KivROI* out)
{
    const kiv::Frame frame = kiv::frame_of(region);
    if (frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::RunArrays runs;
    region.GetRegionRuns(&runs.rows, &runs.col_begins, &runs.col_ends);
    kiv::parameters_of(*out).GenMask(runs.rows, runs.col_begins, runs.col_ends, frame.width, frame.height);
    return KIVMV_OK;
}
