// SPDX-License-Identifier: MIT
#include "algebra/region_operation.h"

#include <KivDataConvert/KivDataConvert.h>

namespace kiv
{

int combine_regions(KivRegion& a, KivRegion& b, KivRegion& out, const SetOperation& operation)
{
    RegionParts parts_of_a(a);
    RegionParts parts_of_b(b);
    if (parts_of_a.empty() && parts_of_b.empty()) {
        out = KivRegion();
        return KIVMV::KIVMV_ERR_PARAM_1;
    }
    if (parts_of_a.empty()) {
        out = b;
        return KIVMV::KIVMV_OK;
    }
    if (parts_of_b.empty()) {
        out = a;
        return KIVMV::KIVMV_OK;
    }

    const RunList runs = combine(parts_of_a.runs.list(), parts_of_b.runs.list(), operation);
    create_region(out, result_frame(operation.frame, parts_of_a.frame, parts_of_b.frame), runs);
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
