// SPDX-License-Identifier: MIT
#include <KivRLC/KivRLC.h>

#include "byte_runs.h"

#include <cstdint>
#include <stdexcept>
#include <type_traits>

static_assert(sizeof(Run) == 3 * sizeof(std::int32_t) && std::is_trivially_copyable_v<Run>);

void KivRLC::FindContours(cv::Mat& mask, char /*mode*/, std::vector<cv::Point_<int>>* /*outline*/,
                          std::vector<int>* /*outlineLengths*/, std::vector<cv::Vec<int, 4>>* /*hierarchy*/,
                          std::vector<int>* /*labels*/, std::vector<Run>* runs, std::vector<int>* /*rowStarts*/,
                          bool /*external*/, int /*first*/, int /*second*/, int /*third*/, bool /*merge*/)
{
    if (runs == nullptr) {
        throw std::invalid_argument("KivRLC::FindContours: runs must not be null");
    }
    AppendRuns(mask, *runs);
}

void KivRLC::AppendRuns(const cv::Mat& mask, std::vector<Run>& runs)
{
    CV_Assert(mask.dims <= 2);
    kivrlc::append_byte_runs(mask.data, static_cast<std::ptrdiff_t>(mask.step[0]), mask.cols, mask.rows, runs);
}
