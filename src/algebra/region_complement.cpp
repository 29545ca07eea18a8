// SPDX-License-Identifier: MIT
#include "algebra/complement.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionNot(KivRegion& a, KivRegion* out)
{
    kiv::RegionParts parts(a);
    if (parts.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    const kiv::RunList runs = kiv::complement(parts.runs.list(), parts.frame, kiv::LastRowOfComplement::left_out);
    kiv::create_region(*out, parts.frame, runs);
    return KIVMV_OK;
}
