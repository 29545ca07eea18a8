// SPDX-License-Identifier: MIT
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToBinImage(KivImage* image, KivROI& roi)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::matrix_of(*image) = kiv::PaintedMask(roi).pixels;
    return KIVMV_OK;
}
