// SPDX-License-Identifier: MIT
#include "algebra/complement.h"
#include "roi/roi_types.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROINot(KivROI& a, KivROI* out)
{
    if (!kiv::has_mask(a)) {
        return KIVMV_ERR_PARAM_1;
    }

    const kiv::FramedRuns mask = kiv::mask_of(a);
    kiv::become_mask(*out, mask.frame, kiv::complement(mask.runs, mask.frame, kiv::LastRowOfComplement::like_any));
    return KIVMV_OK;
}
