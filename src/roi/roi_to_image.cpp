// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "roi/roi_types.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToBinImage(KivImage* image, KivROI& roi)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::matrix_of(*image) = kiv::painted_mask_of(roi);
    return KIVMV_OK;
}
