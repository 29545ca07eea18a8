// SPDX-License-Identifier: MIT
#include "mask_contours.h"

#include "argument_checks.h"
#include "mask_runs.h"

#include <KivRLC/KivRunMat.h>

#include <cstdint>
#include <stdexcept>

namespace
{

// More bytes than a process can address on the machines that there are.
constexpr std::int64_t too_many_pixels = std::int64_t{1} << 47;

} // namespace

KivContourArray kivdata::trace_contours(const cv::Mat& mask)
{
    if (mask.dims > 2 || mask.channels() != 1) {
        throw std::invalid_argument("MatToMask: the mask must have two dimensions and one channel");
    }
    if (mask.empty()) {
        return KivContourArray();
    }
    kivdata::check_traced_frame(mask.cols, mask.rows); // before the runs are found
    const KivRunSet foreground = KivRuns::FromMask(mask.depth() == CV_8U ? mask : mask != 0);
    return KivContourArray::BordersOf(foreground.Runs(), mask.cols, mask.rows);
}

KivContourArray kivdata::trace_contours(KivRunView runs, int width, int height)
{
    if (std::int64_t{width} * height >= too_many_pixels) {
        CV_Error(cv::Error::StsNoMem, "GetMask: no mask can have the frame");
    }
    return KivContourArray::BordersOf(runs, width, height);
}

cv::Mat kivdata::fill_contours(const KivContourArray& contours, int width, int height)
{
    check_frame(width, height);
    cv::Mat mask(height, width, CV_8UC1); // first: of a frame that is too large for it no runs are made
    paint_runs(contours.FilledRuns(width, height), mask);
    return mask;
}
