// SPDX-License-Identifier: MIT
#include "foundation/masks.h"
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToRegion(KivROI& roi, KivRegion* out)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }
    kiv::PaintedMask mask(roi);
    if (mask.pixels.cols < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    // The mask is traced, so that one that cannot be is an error here as everywhere; the region gets the ROI's own
    // runs.
    kiv::extract_runs(mask.pixels);
    auto& [rows, col_begins, col_ends] = mask.runs;
    out->CreateRegion(mask.frame.width, mask.frame.height, rows, col_begins, col_ends);
    return KIVMV_OK;
}
