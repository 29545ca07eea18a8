// SPDX-License-Identifier: MIT
#include "algebra/complement.h"
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROINot(KivROI& a, KivROI* out)
{
    if (!kiv::has_mask(a)) {
        return KIVMV_ERR_PARAM_1;
    }

    const KivROI operand(a);
    kiv::MaskParts mask(kiv::parameters_of(operand));
    const kiv::RunList runs = kiv::complement(mask.runs.list(), mask.frame, kiv::LastRowOfComplement::like_any);
    kiv::generate_mask(*out, mask.frame, runs);
    return KIVMV_OK;
}
