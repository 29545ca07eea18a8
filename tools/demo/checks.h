// SPDX-License-Identifier: MIT
// The checks of the steps, and their reports.
#pragma once

#include "demo/inspection.h"

#include <vector>

namespace demo
{

/// For a conversion there and back, which must change nothing.
void judge_equality(Report& report, bool equal);

/// For a set operation: the reported region must have the pixels of the mask. If they differ only in the last rows of
/// the given operands, the check passes and reports it.
void judge_pixels(Report& report, const cv::Mat& expected, const std::vector<const KivRegion*>& operands = {});

/// Makes the mask 0 in the last row that the region has pixels in.
void clear_last_row_of(const KivRegion& region, cv::Mat& mask);

} // namespace demo
