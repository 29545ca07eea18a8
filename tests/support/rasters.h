// SPDX-License-Identifier: MIT
/// @file
/// Small grey pictures, padded views of them, and comparisons that print what they compared.
#pragma once

#include "support/pixel_runs.h"

#include <KivData/KivData.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <cstddef>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

namespace support
{

/// An 8-bit image of one channel with the given grey values, row by row; all rows are equally long.
inline cv::Mat grey_of(std::initializer_list<std::initializer_list<int>> rows)
{
    const auto width = rows.size() == 0 ? std::size_t{0} : rows.begin()->size();
    cv::Mat grey(static_cast<int>(rows.size()), static_cast<int>(width), CV_8UC1);
    int y = 0;
    for (const auto& row : rows) {
        int x = 0;
        for (const int value : row) {
            grey.at<unsigned char>(y, x++) = static_cast<unsigned char>(value);
        }
        ++y;
    }
    return grey;
}

/// An image inside a larger one, so that its rows are further apart than they are long.
struct Padded {
    cv::Mat whole; ///< the image and its surroundings
    cv::Mat inner; ///< the image, sharing the pixels of `whole`
};

/// A view of a copy of `pixels`, with `left` and `right` pixels beside each row and one row above and below. All bytes
/// around it are `surroundings`.
inline Padded padded(const cv::Mat& pixels, int left, int right, int surroundings)
{
    Padded result;
    result.whole.create(pixels.rows + 2, left + pixels.cols + right, pixels.type());
    result.whole.reshape(1).setTo(cv::Scalar(surroundings));
    result.inner = result.whole(cv::Rect(left, 1, pixels.cols, pixels.rows));
    pixels.copyTo(result.inner);
    return result;
}

/// The maximal runs of the non-zero bytes, looked for byte by byte. Of a mask of several channels the first `cols`
/// bytes of each row count.
inline std::vector<Run> plain_runs(const cv::Mat& mask)
{
    return runs_where(mask.rows, mask.cols,
                      [&mask](int row, int column) { return mask.ptr<unsigned char>(row)[column] != 0; });
}

inline std::string text_of(const KivRegion& region)
{
    std::ostringstream text;
    text << region.Width() << " x " << region.Height() << ':';
    for (const Run& run : region.Runs()) {
        text << " (" << run.row << ", " << run.colBegin << ", " << run.colEnd << ')';
    }
    return text.str();
}

inline std::string text_of(const cv::Mat& pixels)
{
    std::ostringstream text;
    text << pixels.cols << " x " << pixels.rows << ", element type " << pixels.type();
    if (pixels.dims == 2 && pixels.depth() == CV_8U && pixels.total() <= 4096) {
        for (int y = 0; y < pixels.rows; ++y) {
            text << '\n';
            for (int i = 0; i < pixels.cols * pixels.channels(); ++i) {
                text << ' ' << static_cast<int>(pixels.ptr<unsigned char>(y)[i]);
            }
        }
    }
    return text.str();
}

/// Whether the two are equal: frame, runs and their order.
inline testing::AssertionResult same_region(const KivRegion& actual, const KivRegion& expected)
{
    if (actual == expected) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "expected " << text_of(expected) << "\n     got " << text_of(actual);
}

/// Whether an image or a matrix has the size, the element type and the values of `expected`.
inline testing::AssertionResult same_pixels(const KivMatHolder& actual, const cv::Mat& expected)
{
    if (actual == KivMatHolder(expected)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "expected " << text_of(expected) << "\n     got " << text_of(actual.Mat());
}

/// What an image or a matrix holds at a moment, to find out later whether anybody has touched it.
class Snapshot
{
public:
    explicit Snapshot(const KivMatHolder& holder)
        : holder_(holder), header_(holder.Mat()), pixels_(holder.Mat().clone())
    {
    }

    /// Whether the holder still has the same buffer, at the same place and stride, with the same values in it.
    testing::AssertionResult untouched() const
    {
        const cv::Mat& now = holder_.Mat();
        if (now.data != header_.data || now.dims != header_.dims || now.step[0] != header_.step[0] ||
            !same_pixels(holder_, header_)) {
            return testing::AssertionFailure() << "holds something else than before: " << text_of(now);
        }
        return now.empty() ? testing::AssertionSuccess() : same_pixels(holder_, pixels_);
    }

private:
    const KivMatHolder& holder_;
    cv::Mat header_; // keeps the buffer alive, so that a new one cannot come to lie at the same address
    cv::Mat pixels_;
};

} // namespace support
