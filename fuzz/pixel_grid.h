// SPDX-License-Identifier: MIT
// Sets of pixels as small masks, filled pixel by pixel.
#pragma once

#include <KivRLC/KivRLC.h>

#include <opencv2/core.hpp>

#include <algorithm>
#include <vector>

namespace fuzz
{

inline constexpr int grid_side = 32;

/// A grid of grid_side x grid_side pixels, to be cut to what is needed.
inline cv::Mat empty_grid()
{
    return cv::Mat::zeros(grid_side, grid_side, CV_8UC1);
}

/// The pixels of the runs in a frame of width x height pixels, both at most grid_side, each asked for on its own.
inline cv::Mat pixels_of(const std::vector<Run>& runs, int width, int height)
{
    cv::Mat grid = empty_grid();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool covered = std::any_of(runs.begin(), runs.end(), [=](const Run& run) {
                return run.row == y && run.colBegin <= x && x <= run.colEnd;
            });
            grid.at<unsigned char>(y, x) = covered ? 255 : 0;
        }
    }
    return grid(cv::Rect(0, 0, width, height)).clone();
}

/// What the pixels of a list give that nobody has clipped: those of the grid, and the largest column and row.
struct PixelSet {
    cv::Mat grid = empty_grid();
    int last_column = -grid_side;
    int last_row = -grid_side;

    void add(int x, int y)
    {
        last_column = std::max(last_column, x);
        last_row = std::max(last_row, y);
        if (x >= 0 && y >= 0) {
            grid.at<unsigned char>(y, x) = 255;
        }
    }

    /// Lists that lie wholly in row 0 or in column 0, or before them, are rejected.
    bool is_refused() const { return last_column < 1 || last_row < 1; }

    /// Up to the largest column and row.
    cv::Mat mask() const { return grid(cv::Rect(0, 0, last_column + 1, last_row + 1)); }
};

} // namespace fuzz
