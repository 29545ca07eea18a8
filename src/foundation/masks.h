// SPDX-License-Identifier: MIT
// The two paths between masks and runs: runs painted into a mask, and the runs of a mask made a region.
#pragma once

#include "foundation/runs.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

namespace kiv
{

/// A new 8-bit single-channel matrix whose bytes are all `value`.
cv::Mat uniform_mask(Frame frame, int value);

/// Sets the mask's bytes under the runs to `value`. Runs are clipped to the mask; each costs what its visible part
/// costs.
void paint_runs(RunView runs, unsigned char value, cv::Mat& mask);

/// The runs of the mask's non-zero bytes, as the extractor orders them.
RunList extract_runs(cv::Mat& mask);

/// Makes `region` the foreground of `mask` in the given frame.
void mask_to_region(cv::Mat& mask, Frame frame, KivRegion& region);

} // namespace kiv
