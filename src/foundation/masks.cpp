// SPDX-License-Identifier: MIT
#include "foundation/masks.h"

#include "seam/data_types.h"

#include <KivRLC/KivRLC.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kiv
{
namespace
{

/// More bytes than a process can address on the machines that there are.
constexpr std::int64_t too_many_bytes = std::int64_t{1} << 47;

/// A new, uninitialised matrix of 8-bit pixels.
cv::Mat unset_mask(Frame frame)
{
    const int sizes[] = {frame.height, frame.width};
    cv::Mat mask;
    mask.create(2, sizes, CV_8UC1);
    return mask;
}

} // namespace

cv::Mat painted_mask(Frame frame, RunView runs, int foreground, int background)
{
    cv::Mat mask = unset_mask(frame);
    if (!mask.empty()) {
        paint(runs, mask, foreground, background);
    }
    return mask;
}

cv::Mat painted_mask(Frame frame, const PixelLists& pixels)
{
    cv::Mat mask = painted_mask(frame, RunView());
    for (std::size_t i = 0; i < pixels.columns.size(); ++i) {
        if (pixels.columns[i] >= 0 && pixels.rows[i] >= 0) {
            mask.ptr(pixels.rows[i])[pixels.columns[i]] = 255;
        }
    }
    return mask;
}

void require_mask_frame(Frame frame)
{
    if (frame.width < 0 || frame.height < 0 || std::int64_t{frame.width} * frame.height >= too_many_bytes) {
        unset_mask(frame);
    }
}

RunList extract_runs(cv::Mat& mask)
{
    [[maybe_unused]] KivRLC extractor;
    std::vector<cv::Point_<int>> outline;
    std::vector<int> outline_lengths;
    std::vector<cv::Vec<int, 4>> hierarchy;
    std::vector<int> row_starts;
    RunList runs;
    KivRLC::FindContours(mask, 1, &outline, &outline_lengths, &hierarchy, nullptr, &runs, &row_starts, true, -1, -1, 1,
                         false);
    return runs;
}

} // namespace kiv
