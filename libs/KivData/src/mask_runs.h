// SPDX-License-Identifier: MIT
// Runs painted into a mask, and the runs of a mask.
#pragma once

#include <KivRLC/KivRLC.h>

#include <opencv2/core.hpp>

#include <vector>

namespace kivdata
{

/// Makes a mask 255 where a run lies and 0 elsewhere; what lies outside is cut off.
void paint_runs(const std::vector<Run>& runs, cv::Mat& mask);

/// A new mask of height x width pixels, 255 where a run lies and 0 elsewhere; what lies outside is cut off.
cv::Mat mask_of_runs(const std::vector<Run>& runs, int width, int height);

/// The runs of the mask's non-zero bytes, in the order of KivRLC::FindContours().
std::vector<Run> runs_of_mask(const cv::Mat& mask);

} // namespace kivdata
