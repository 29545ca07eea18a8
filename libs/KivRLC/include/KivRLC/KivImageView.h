// SPDX-License-Identifier: MIT
/// @file
/// KivImageView: pixels that stand somewhere in memory. This header needs no OpenCV.
#pragma once

#include <cstddef>

/// An image of one channel in somebody's memory: of cv::Mat, of NumPy, of a camera. It owns nothing.
///
/// Pixel (x, y) stands x * sizeof(Pixel) bytes behind the beginning of row y, which stands y * stride bytes behind
/// `pixels`. The stride may be any number of bytes, also negative or no multiple of a pixel's.
///
/// @tparam Pixel std::uint8_t, std::uint16_t, std::int32_t or float; const if the image is only read
template <class Pixel>
struct KivImageView {
    Pixel* pixels;         ///< pixel (0, 0)
    int width;             ///< columns
    int height;            ///< rows
    std::ptrdiff_t stride; ///< bytes from a row to the next one
};
