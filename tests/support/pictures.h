// SPDX-License-Identifier: MIT
/// @file
/// Masks as text, one character for each pixel: '#' is foreground, '.' background.
#pragma once

#include <KivRLC/KivRLC.h>

#include <opencv2/core.hpp>

#include <cstddef>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

namespace support
{

/// A mask of 255 and 0 from its rows. Throws std::invalid_argument for rows of unequal length or other characters.
inline cv::Mat mask_of(std::initializer_list<const char*> rows)
{
    const std::size_t width = rows.size() > 0 ? std::string(*rows.begin()).size() : 0;
    cv::Mat mask(static_cast<int>(rows.size()), static_cast<int>(width), CV_8UC1, cv::Scalar(0));
    int y = 0;
    for (const std::string row : rows) {
        if (row.size() != width || row.find_first_not_of("#.") != std::string::npos) {
            throw std::invalid_argument("mask_of: row \"" + row + "\"");
        }
        for (std::size_t x = 0; x < width; ++x) {
            mask.at<uchar>(y, static_cast<int>(x)) = row[x] == '#' ? 255 : 0;
        }
        ++y;
    }
    return mask;
}

/// The rows of a one-channel 8-bit mask, each ended by a line feed; any non-zero byte is foreground.
inline std::string picture_of(const cv::Mat& mask)
{
    std::string picture;
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            picture += mask.at<uchar>(y, x) != 0 ? '#' : '.';
        }
        picture += '\n';
    }
    return picture;
}

/// The picture of a mask of width x height pixels with the given runs, all of which must lie in it.
inline std::string picture_of(const std::vector<Run>& runs, int width, int height)
{
    cv::Mat mask(height, width, CV_8UC1, cv::Scalar(0));
    for (const Run& run : runs) {
        mask.row(run.row).colRange(run.colBegin, run.colEnd + 1).setTo(255);
    }
    return picture_of(mask);
}

} // namespace support
