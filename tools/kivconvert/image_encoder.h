// SPDX-License-Identifier: MIT
// Encoders of image files: a function per format.
#pragma once

#include <opencv2/core.hpp>
#include <stdexcept>
#include <string>

namespace kivconvert
{

struct EncodingError : std::runtime_error {
    using runtime_error::runtime_error;
};

// Each of these gives the bytes of a file, and throws EncodingError if the encoding library fails.

/// @param pixels 8-bit or 16-bit, of one channel (grey), two (grey, opacity), three (red, green, blue) or four
std::string encode_png(const cv::Mat& pixels);

/// @param pixels of one channel, CV_8U, CV_16U or CV_32S; the latter are written as unsigned numbers
std::string encode_tiff(const cv::Mat& pixels);

// Of 8-bit pixels of one channel.
std::string encode_bmp(const cv::Mat& pixels);
std::string encode_pgm(const cv::Mat& pixels);

} // namespace kivconvert
