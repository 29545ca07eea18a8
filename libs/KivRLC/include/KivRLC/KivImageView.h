// SPDX-License-Identifier: MIT
/// @file
/// KivImageView: a view of pixels in memory. This header needs no OpenCV.
#pragma once

#include <cstddef>

/// A view of a one-channel image whose memory something else owns: a cv::Mat, a NumPy array, a camera.
///
/// Pixel (x, y) is x * sizeof(Pixel) bytes after the beginning of row y, which is y * stride bytes after `pixels`. The
/// stride may be any number of bytes, also negative or no multiple of a pixel's.
///
/// @tparam Pixel std::uint8_t, std::uint16_t, std::int32_t or float; const if the image is only read
template <class Pixel>
struct KivImageView {
    Pixel* pixels;         ///< pixel (0, 0)
    int width;             ///< columns
    int height;            ///< rows
    std::ptrdiff_t stride; ///< bytes from a row to the next one
};
