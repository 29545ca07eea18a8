// SPDX-License-Identifier: MIT
// What the union, the intersection and the difference of ROIs have in common, and a table of what they have not.
#pragma once

#include "algebra/set_operations.h"

#include <KivData/KivData.h>
#include <KivDataConvert/KivDataConvert.h>

namespace kiv
{

enum class StandIn { default_roi, a, b };

struct RoiOperation {
    SetOperation on_runs;
    StandIn without_a;       // the result when A is of the empty type or its mask has no runs
    StandIn without_b;       // the same of B
    int code_for_empty_type; // the result code when one operand is of the empty type
};

inline constexpr RoiOperation union_of_rois = {
    .on_runs = roi_union,
    .without_a = StandIn::b,
    .without_b = StandIn::a,
    .code_for_empty_type = KIVMV::KIVMV_OK,
};

inline constexpr RoiOperation intersection_of_rois = {
    .on_runs = roi_intersection,
    .without_a = StandIn::default_roi,
    .without_b = StandIn::default_roi,
    .code_for_empty_type = KIVMV::KIVMV_ERR_PARAM_2,
};

inline constexpr RoiOperation difference_of_rois = {
    .on_runs = difference,
    .without_a = StandIn::default_roi,
    .without_b = StandIn::a,
    .code_for_empty_type = KIVMV::KIVMV_OK,
};

/// Reads both operands whole, then writes `out` once, which may therefore be one of them. Returns the result code.
int combine_rois(KivROI& a, KivROI& b, KivROI& out, const RoiOperation& operation);

} // namespace kiv
