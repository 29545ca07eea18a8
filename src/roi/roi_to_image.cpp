// SPDX-License-Identifier: MIT
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToBinImage(KivImage* image, KivROI& roi)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }

    IKivROIPara& parameters = kiv::parameters_of(roi);
    kiv::MaskParts parts(parameters);
    auto& [rows, col_begins, col_ends] = parts.runs;
    kiv::matrix_of(*image) = parameters.ToMAT(rows, col_begins, col_ends, parts.frame.width, parts.frame.height);
    return KIVMV_OK;
}
