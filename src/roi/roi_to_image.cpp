// SPDX-License-Identifier: MIT
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToBinImage(KivImage* image, KivROI& roi)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }

    IKivROIPara& parameters = kiv::parameters_of(roi);
    kiv::RunArrays arrays;
    auto& [rows, col_begins, col_ends] = arrays;
    kiv::Frame frame;
    parameters.GetMask(&rows, &col_begins, &col_ends, &frame.width, &frame.height);
    kiv::matrix_of(*image) = parameters.ToMAT(rows, col_begins, col_ends, frame.width, frame.height);
    return KIVMV_OK;
}
