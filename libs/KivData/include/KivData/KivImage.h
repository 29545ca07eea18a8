// SPDX-License-Identifier: MIT
/// @file
/// KivImage: a grey, binary or colour image.
#pragma once

#include <KivData/KivMatHolder.h>

/// An image: a two-dimensional cv::Mat whose size, depth and channel count are the image's.
class KIVDATA_API KivImage : public KivMatHolder
{
public:
    using KivMatHolder::KivMatHolder;

    int Width() const noexcept { return Mat().cols; }  ///< Columns of the matrix; 0 without one.
    int Height() const noexcept { return Mat().rows; } ///< Rows of the matrix; 0 without one.

    /// The element depth as OpenCV numbers it: 0 is 8-bit unsigned, 2 is 16-bit unsigned, 5 is float, …
    int BitDepth() const noexcept { return Mat().depth(); }

    /// Channels of the matrix, 1 for grey and binary images; 1 without one.
    int Channels() const noexcept { return Mat().channels(); }

    unsigned char* ImageData() noexcept { return Mat().data; }             ///< The pixels, row by row; null if none.
    const unsigned char* ImageData() const noexcept { return Mat().data; } ///< The pixels, row by row; null if none.
};
