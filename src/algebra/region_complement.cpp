// SPDX-License-Identifier: MIT
#include "algebra/complement.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionNot(KivRegion& a, KivRegion* out)
{
    const kiv::RegionParts parts(a);
    if (parts.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::create_region(*out, parts.frame, kiv::complement(parts.runs, parts.frame, kiv::LastRowOfComplement::left_out));
    return KIVMV_OK;
}
