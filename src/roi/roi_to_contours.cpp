// SPDX-License-Identifier: MIT
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToContourArray(KivROI& roi, KivContourArray* out)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::Frame frame;
    kiv::parameters_of(roi).GetMask(out, &frame.width, &frame.height);
    return KIVMV_OK;
}
