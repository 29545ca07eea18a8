// SPDX-License-Identifier: MIT
#include "roi/roi_operation.h"

#include "roi/mask_parts.h"

namespace kiv
{
namespace
{

void write_stand_in(StandIn choice, const KivROI& a, const KivROI& b, KivROI& out)
{
    if (choice == StandIn::default_roi) {
        out = KivROI();
    } else {
        out = choice == StandIn::a ? a : b;
    }
}

} // namespace

int combine_rois(KivROI& a, KivROI& b, KivROI& out, const RoiOperation& operation)
{
    if (is_open_curve(a) || (is_empty(a) && is_empty(b))) {
        return KIVMV::KIVMV_ERR_PARAM_1;
    }
    if (is_open_curve(b)) {
        return KIVMV::KIVMV_ERR_PARAM_2;
    }
    if (is_empty(a)) {
        write_stand_in(operation.without_a, a, b, out);
        return operation.code_for_empty_type;
    }
    if (is_empty(b)) {
        write_stand_in(operation.without_b, a, b, out);
        return operation.code_for_empty_type;
    }

    MaskReader reader;
    const MaskParts mask_of_a = reader.read(a);
    if (mask_of_a.runs.empty()) {
        write_stand_in(operation.without_a, a, b, out);
        return KIVMV::KIVMV_OK;
    }
    const MaskParts mask_of_b = reader.read(b);
    if (mask_of_b.runs.empty()) {
        write_stand_in(operation.without_b, a, b, out);
        return KIVMV::KIVMV_OK;
    }

    RunList runs = combine(mask_of_a.runs, mask_of_b.runs, operation.on_runs);
    generate_mask(out, result_frame(operation.on_runs.frame, mask_of_a.frame, mask_of_b.frame), std::move(runs));
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
