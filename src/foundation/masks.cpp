// SPDX-License-Identifier: MIT
#include "foundation/masks.h"

#include <KivRLC/KivRLC.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

namespace kiv
{
namespace
{

constexpr int bytes_at_once = 1 << 16;

} // namespace

cv::Mat unset_mask(Frame frame)
{
    const int sizes[] = {frame.height, frame.width};
    cv::Mat mask;
    mask.create(2, sizes, CV_8UC1);
    return mask;
}

void paint(cv::Mat& mask, RunView runs, int foreground, int background)
{
    if (mask.empty()) {
        return;
    }
    // Rows are cleared shortly before the first run on them is painted, so that they are in the cache then.
    // bench/kiv/raster.cpp measures it.
    const int rows_at_once = std::max(bytes_at_once / mask.cols, 1);
    int cleared = 0; // rows from the top on
    const auto row_at = [&mask](int row) { return mask.data + static_cast<std::size_t>(row) * mask.step[0]; };
    const auto clear_rows = [&](int count) {
        std::memset(row_at(cleared), background, static_cast<std::size_t>(count) * mask.step[0]);
        cleared += count;
    };
    for_each_visible(runs, {mask.cols, mask.rows}, [&](int row, int first, int last) {
        if (row >= cleared) {
            clear_rows(row - cleared + std::min(rows_at_once, mask.rows - row));
        }
        std::memset(row_at(row) + first, foreground, length_of(first, last));
    });
    clear_rows(mask.rows - cleared);
}

cv::Mat painted_mask(Frame frame, RunView runs, int foreground, int background)
{
    cv::Mat mask = unset_mask(frame);
    paint(mask, runs, foreground, background);
    return mask;
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
