// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "roi/roi_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToContourArray(KivROI& roi, KivContourArray* out)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }

    int width = 0;
    int height = 0;
    kiv::parameters_of(roi).GetMask(out, &width, &height);
    return KIVMV_OK;
}
