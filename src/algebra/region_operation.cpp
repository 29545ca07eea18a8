// SPDX-License-Identifier: MIT
#include "algebra/region_operation.h"

#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

namespace kiv
{

int combine_regions(KivRegion& a, KivRegion& b, KivRegion& out, const SetOperation& operation)
{
    const FramedRuns parts_of_a = parts_of(a);
    const FramedRuns parts_of_b = parts_of(b);
    const bool a_is_empty = parts_of_a.frame.width < 1;
    const bool b_is_empty = parts_of_b.frame.width < 1;
    if (a_is_empty && b_is_empty) {
        out = KivRegion();
        return KIVMV::KIVMV_ERR_PARAM_1;
    }
    if (a_is_empty) {
        out = b;
        return KIVMV::KIVMV_OK;
    }
    if (b_is_empty) {
        out = a;
        return KIVMV::KIVMV_OK;
    }

    RunList runs = combine(parts_of_a.runs, parts_of_b.runs, operation);
    create_region(out, result_frame(operation.frame, parts_of_a.frame, parts_of_b.frame), std::move(runs));
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
