// SPDX-License-Identifier: MIT
#include "foundation/masks.h"

#include <KivRLC/KivRLC.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace kiv
{

cv::Mat unset_mask(Frame frame)
{
    const int sizes[] = {frame.height, frame.width};
    cv::Mat mask;
    mask.create(2, sizes, CV_8UC1);
    return mask;
}

cv::Mat uniform_mask(Frame frame, int value)
{
    cv::Mat mask = unset_mask(frame);
    mask = cv::Scalar(value);
    return mask;
}

void paint_runs(RunView runs, unsigned char value, cv::Mat& mask)
{
    for_each_visible(runs, {mask.cols, mask.rows}, [value, &mask](int row, int first, int last) {
        uchar* pixels = mask.data + static_cast<std::size_t>(row) * mask.step[0];
        std::memset(pixels + first, value, length_of(first, last));
    });
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
