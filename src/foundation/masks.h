// SPDX-License-Identifier: MIT
// Masks made of runs and of pixels, and the extractor, which turns a mask into runs.
#pragma once

#include "foundation/pixels.h"
#include "foundation/runs.h"

#include <opencv2/core.hpp>

namespace kiv
{

/// A new mask of 8-bit pixels, `foreground` under the runs and `background` elsewhere. Runs are clipped to the mask;
/// each costs what its visible part costs.
cv::Mat painted_mask(Frame frame, RunView runs, int foreground = 255, int background = 0);

/// A new mask, 255 at the pixels without a negative coordinate, which must lie in the frame, and 0 elsewhere.
cv::Mat painted_mask(Frame frame, const PixelLists& pixels);

/// Rejects frames that no mask can have, with the exception that making the mask raises. No memory is taken for a mask
/// that can be made.
void require_mask_frame(Frame frame);

/// The runs of the mask's non-zero bytes, as the extractor orders them.
RunList extract_runs(cv::Mat& mask);

} // namespace kiv
