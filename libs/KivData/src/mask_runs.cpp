// SPDX-License-Identifier: MIT
#include "mask_runs.h"

#include "argument_checks.h"

#include <algorithm>
#include <cstring>

void kivdata::paint_runs(const std::vector<Run>& runs, cv::Mat& mask)
{
    for (const Run& run : runs) {
        const int begin = std::max(run.colBegin, 0);
        const int end = std::min(run.colEnd, mask.cols - 1);
        if (run.row >= 0 && run.row < mask.rows && begin <= end) {
            std::memset(mask.ptr(run.row) + begin, 255, static_cast<std::size_t>(end - begin) + 1);
        }
    }
}

cv::Mat kivdata::mask_of_runs(const std::vector<Run>& runs, int width, int height)
{
    check_frame(width, height);
    cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
    paint_runs(runs, mask);
    return mask;
}

std::vector<Run> kivdata::runs_of_mask(const cv::Mat& mask)
{
    std::vector<Run> runs;
    KivRLC::AppendRuns(mask, runs);
    return runs;
}
