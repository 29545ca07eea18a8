// SPDX-License-Identifier: MIT
#include "mask_runs.h"

#include "argument_checks.h"

#include <KivRLC/KivRunMat.h>

#include <cstdint>

cv::Mat kivdata::mask_of_runs(const std::vector<Run>& runs, int width, int height)
{
    check_frame(width, height);
    cv::Mat mask(height, width, CV_8UC1);
    paint_runs(runs, mask);
    return mask;
}

void kivdata::paint_runs(const std::vector<Run>& runs, cv::Mat& mask)
{
    KivRuns::PaintMask(runs, KivRuns::ViewOf<std::uint8_t>(mask), 255, 0);
}

std::vector<Run> kivdata::runs_of_mask(const cv::Mat& mask)
{
    std::vector<Run> runs;
    KivRLC::AppendRuns(mask, runs);
    return runs;
}
