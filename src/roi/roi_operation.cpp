// SPDX-License-Identifier: MIT
#include "roi/roi_operation.h"

#include "roi/roi_types.h"
#include "seam/data_types.h"

namespace kiv
{
namespace
{

void write_substitute(Substitute choice, const KivROI& a, const KivROI& b, KivROI& out)
{
    if (choice == Substitute::default_roi) {
        out = KivROI();
    } else {
        out = choice == Substitute::a ? a : b;
    }
}

} // namespace

int combine_rois(KivROI& a, KivROI& b, KivROI& out, const RoiOperation& operation)
{
    const RoiKind kind_of_a = kind_of(a);
    const RoiKind kind_of_b = kind_of(b);
    if (kind_of_a == RoiKind::open_curve || (kind_of_a == RoiKind::empty && kind_of_b == RoiKind::empty)) {
        return KIVMV::KIVMV_ERR_PARAM_1;
    }
    if (kind_of_b == RoiKind::open_curve) {
        return KIVMV::KIVMV_ERR_PARAM_2;
    }
    if (kind_of_a == RoiKind::empty) {
        write_substitute(operation.without_a, a, b, out);
        return operation.code_for_empty_type;
    }
    if (kind_of_b == RoiKind::empty) {
        write_substitute(operation.without_b, a, b, out);
        return operation.code_for_empty_type;
    }

    const FramedRuns mask_of_a = mask_of(a);
    if (mask_of_a.runs.view().empty()) {
        write_substitute(operation.without_a, a, b, out);
        return KIVMV::KIVMV_OK;
    }
    const FramedRuns mask_of_b = mask_of(b);
    if (mask_of_b.runs.view().empty()) {
        write_substitute(operation.without_b, a, b, out);
        return KIVMV::KIVMV_OK;
    }

    RunList runs = combine(mask_of_a.runs, mask_of_b.runs, operation.on_runs);
    become_mask(out, result_frame(operation.on_runs.frame, mask_of_a.frame, mask_of_b.frame), std::move(runs));
    return KIVMV::KIVMV_OK;
}

} // namespace kiv
