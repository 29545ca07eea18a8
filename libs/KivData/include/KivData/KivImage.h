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

    int Width() const noexcept { return Mat().cols; }  ///< Columns in pixels; 0 for an image that holds none.
    int Height() const noexcept { return Mat().rows; } ///< Rows in pixels; 0 for an image that holds none.

    /// The element depth as OpenCV numbers it: 0 is 8-bit unsigned, 2 is 16-bit unsigned, 5 is float, …
    int BitDepth() const noexcept { return Mat().depth(); }

    /// Number of channels; 1 for grey and binary images and for an image that holds no pixels.
    int Channels() const noexcept { return Mat().channels(); }

    unsigned char* ImageData() noexcept { return Mat().data; }             ///< The pixels, row by row; null if none.
    const unsigned char* ImageData() const noexcept { return Mat().data; } ///< The pixels, row by row; null if none.
};
