// SPDX-License-Identifier: MIT
#include "algebra/complement.h"
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROINot(KivROI& a, KivROI* out)
{
    if (!kiv::has_mask(a)) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::MaskReader reader;
    const kiv::MaskParts mask = reader.read(a);
    kiv::generate_mask(*out, mask.frame, kiv::complement(mask.runs, mask.frame, kiv::LastRowOfComplement::like_any));
    return KIVMV_OK;
}
