// SPDX-License-Identifier: MIT
#include "algebra/complement.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionNot(KivRegion& a, KivRegion* out)
{
    const kiv::FramedRuns parts = kiv::parts_of(a);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::create_region(*out, parts.frame, kiv::complement(parts.runs, parts.frame, kiv::LastRowOfComplement::left_out));
    return KIVMV_OK;
}
