// SPDX-License-Identifier: MIT
#include "algebra/region_operation.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionSub(KivRegion& a, KivRegion& b, KivRegion* out)
{
    return kiv::combine_regions(a, b, *out, kiv::difference);
}
