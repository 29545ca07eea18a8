// SPDX-License-Identifier: MIT
#include "foundation/masks.h"
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToRegion(KivROI& roi, KivRegion* out)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }
    IKivROIPara& parameters = kiv::parameters_of(roi);
    kiv::RunArrays arrays;
    auto& [rows, col_begins, col_ends] = arrays;
    kiv::Frame frame;
    auto& [width, height] = frame;
    parameters.GetMask(&rows, &col_begins, &col_ends, &width, &height);
    cv::Mat mask = parameters.ToMAT(rows, col_begins, col_ends, width, height);
    if (mask.cols < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    // The mask is traced, so that one that cannot be is an error here as everywhere; the region gets the ROI's own
    // runs.
    kiv::extract_runs(mask);
    out->CreateRegion(width, height, rows, col_begins, col_ends);
    return KIVMV_OK;
}
