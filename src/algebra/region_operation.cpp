// SPDX-License-Identifier: MIT
#include "algebra/region_operation.h"

#include <KivDataConvert/KivDataConvert.h>

namespace kiv
{

int combine_regions(KivRegion& a, KivRegion& b, KivRegion& out, const SetOperation& operation)
{
    const RegionParts parts_of_a(a);
    const RegionParts parts_of_b(b);
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

    RunList runs = combine(parts_of_a.runs, parts_of_b.runs, operation);
    create_region(out, result_frame(operation.frame, parts_of_a.frame, parts_of_b.frame), std::move(runs));
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
