// SPDX-License-Identifier: MIT
// The two paths between masks and runs: runs painted into a mask, and the runs of a mask made a region.
#pragma once

#include "foundation/runs.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <algorithm>

namespace kiv
{

/// A new 8-bit single-channel matrix whose bytes are not set. What is not touched of it costs no memory.
cv::Mat unset_mask(Frame frame);

/// Calls `visit` with row, first and last column of the part of each run that lies in the frame, where there is one.
template <class Visit>
void for_each_visible(RunView runs, Frame frame, Visit visit)
{
    for (const auto& [row, begin, end] : runs) {
        const int first = std::max(begin, 0);
        const int last = std::min(end, frame.width - 1);
        if (row >= 0 && row < frame.height && first <= last) {
            visit(row, first, last);
        }
    }
}

/// Sets the bytes of an unpadded mask to `foreground` under the runs and to `background` elsewhere. Runs are clipped to
/// the mask; each costs what its visible part costs.
void paint(cv::Mat& mask, RunView runs, int foreground = 255, int background = 0);

/// A new mask, painted.
cv::Mat painted_mask(Frame frame, RunView runs, int foreground = 255, int background = 0);

/// The runs of the mask's non-zero bytes, as the extractor orders them.
RunList extract_runs(cv::Mat& mask);

/// Makes `region` the foreground of `mask` in the given frame.
void mask_to_region(cv::Mat& mask, Frame frame, KivRegion& region);

} // namespace kiv
