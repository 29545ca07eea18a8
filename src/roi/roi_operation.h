// SPDX-License-Identifier: MIT
// The union, the intersection and the difference of ROIs: one function, and a table of the rules in which they differ.
#pragma once

#include "algebra/set_operations.h"

#include <KivData/KivData.h>
#include <KivDataConvert/KivDataConvert.h>

namespace kiv
{

/// The result if an operand has no runs to combine.
enum class Substitute { default_roi, a, b };

struct RoiOperation {
    SetOperation on_runs;
    Substitute without_a;    // the result if A is of the empty type or its mask has no runs
    Substitute without_b;    // the same for B
    int code_for_empty_type; // the result code if one operand is of the empty type
};

inline constexpr RoiOperation union_of_rois = {
    .on_runs = roi_union,
    .without_a = Substitute::b,
    .without_b = Substitute::a,
    .code_for_empty_type = KIVMV::KIVMV_OK,
};

inline constexpr RoiOperation intersection_of_rois = {
    .on_runs = roi_intersection,
    .without_a = Substitute::default_roi,
    .without_b = Substitute::default_roi,
    .code_for_empty_type = KIVMV::KIVMV_ERR_PARAM_2,
};

inline constexpr RoiOperation difference_of_rois = {
    .on_runs = difference,
    .without_a = Substitute::default_roi,
    .without_b = Substitute::a,
    .code_for_empty_type = KIVMV::KIVMV_OK,
};

/// Combines two ROIs and returns the result code. `out` is written once, after both operands have been read, so it may
/// be one of them.
int combine_rois(KivROI& a, KivROI& b, KivROI& out, const RoiOperation& operation);

} // namespace kiv
