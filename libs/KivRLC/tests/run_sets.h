// SPDX-License-Identifier: MIT
/// @file
/// Run sets in tests: printed, made at random, and made from bitmaps that are looked at pixel by pixel.
#pragma once

#include <KivRLC/KivRunSet.h>

#include <opencv2/core.hpp>

#include <cstdint>
#include <ostream>
#include <random>
#include <vector>

// Found by GoogleTest, by argument-dependent lookup.
inline void PrintTo(const KivRunSet& set, std::ostream* out)
{
    *out << "{";
    for (const Run& run : set.Runs()) {
        *out << " (row " << run.row << ": " << run.colBegin << " to " << run.colEnd << ")";
    }
    *out << " }";
}

namespace run_sets
{

/// The runs in a vector.
inline std::vector<Run> runs_of(const KivRunSet& set)
{
    return {set.Runs().begin(), set.Runs().end()};
}

/// The set of the non-zero pixels of a mask, looked for pixel by pixel; pixel (0, 0) lies at (left, top).
inline KivRunSet set_of(const cv::Mat& mask, int left = 0, int top = 0)
{
    std::vector<Run> pixels;
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            if (mask.at<uchar>(y, x) != 0) {
                pixels.push_back({top + y, left + x, left + x});
            }
        }
    }
    return KivRunSet(pixels);
}

/// The pixels of a set as a mask of the given size whose pixel (0, 0) lies at (left, top), pixel by pixel.
inline cv::Mat mask_of(const KivRunSet& set, int width, int height, int left = 0, int top = 0)
{
    cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
    for (const Run& run : set.Runs()) {
        for (int x = run.colBegin; x <= run.colEnd; ++x) {
            if (run.row >= top && run.row < top + height && x >= left && x < left + width) {
                mask.at<uchar>(run.row - top, x - left) = 255;
            }
        }
    }
    return mask;
}

/// A mask whose bit y * width + x of `bits` is pixel (x, y).
inline cv::Mat mask_of_bits(unsigned bits, int width, int height)
{
    cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
    for (int i = 0; i < width * height; ++i) {
        mask.at<uchar>(i / width, i % width) = (bits >> i & 1) != 0 ? 255 : 0;
    }
    return mask;
}

/// A mask of stretches of foreground and background about `mean_length` long; some of its rows are empty or full.
inline cv::Mat random_mask(int width, int height, int mean_length, std::mt19937& random)
{
    cv::Mat mask = cv::Mat::zeros(height, width, CV_8UC1);
    std::bernoulli_distribution changes(1.0 / mean_length);
    std::uniform_int_distribution<int> kind_of_row(0, 9);
    for (int y = 0; y < height; ++y) {
        const int kind = kind_of_row(random);
        bool inside = kind == 0;
        for (int x = 0; x < width; ++x) {
            inside = inside != (kind > 1 && changes(random));
            mask.at<uchar>(y, x) = inside ? 255 : 0;
        }
    }
    return mask;
}

/// The same of 1 to 200 columns and rows, with a size and a mean length that the seed decides.
inline cv::Mat random_mask_of(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> side(1, 200);
    const int width = side(random);
    const int height = side(random);
    return random_mask(width, height, 1 + static_cast<int>(seed % 20), random);
}

/// The COCO counts of a mask: lengths of background and foreground by turns, column by column.
inline std::vector<std::int64_t> coco_counts_of(const cv::Mat& mask)
{
    std::vector<std::int64_t> counts{0};
    bool belongs = false;
    for (int x = 0; x < mask.cols; ++x) {
        for (int y = 0; y < mask.rows; ++y) {
            if ((mask.at<uchar>(y, x) != 0) != belongs) {
                belongs = !belongs;
                counts.push_back(0);
            }
            ++counts.back();
        }
    }
    return counts;
}

/// The set of the pixels from `least` to `greatest`, one by one.
template <class Pixel>
KivRunSet range_of(const cv::Mat& image, double least, double greatest)
{
    cv::Mat mask = cv::Mat::zeros(image.size(), CV_8UC1);
    for (int y = 0; y < image.rows; ++y) {
        for (int x = 0; x < image.cols; ++x) {
            const double value = image.at<Pixel>(y, x);
            mask.at<uchar>(y, x) = least <= value && value <= greatest ? 255 : 0;
        }
    }
    return set_of(mask);
}

} // namespace run_sets
