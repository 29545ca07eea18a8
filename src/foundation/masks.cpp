// SPDX-License-Identifier: MIT
#include "foundation/masks.h"

#include <KivRLC/KivRLC.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

namespace kiv
{

cv::Mat uniform_mask(Frame frame, int value)
{
    const int sizes[] = {frame.height, frame.width};
    cv::Mat mask;
    mask.create(2, sizes, CV_8UC1);
    mask = cv::Scalar(value);
    return mask;
}

void paint_runs(RunView runs, unsigned char value, cv::Mat& mask)
{
    for (const auto& [row, begin, end] : runs) {
        const int first = std::max(begin, 0);
        const int last = std::min(end, mask.cols - 1);
        if (row >= 0 && row < mask.rows && first <= last) {
            uchar* pixels = mask.data + static_cast<std::size_t>(row) * mask.step[0];
            std::memset(pixels + first, value, static_cast<std::size_t>(last - first) + 1);
        }
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

void mask_to_region(cv::Mat& mask, Frame frame, KivRegion& region)
{
    create_region(region, frame, extract_runs(mask));
}

} // namespace kiv
