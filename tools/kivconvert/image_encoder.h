// SPDX-License-Identifier: MIT
// Encoders of image files: a function per format.
#pragma once

#include <memory>
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

/// A TIFF file in memory that gets one page after the other.
class TiffPages
{
public:
    TiffPages();
    TiffPages(const TiffPages&) = delete;
    TiffPages& operator=(const TiffPages&) = delete;
    ~TiffPages();

    /// @param pixels as encode_tiff() takes them; pages may differ in size and depth
    void add(const cv::Mat& pixels);

    /// How many bytes there are up to now.
    std::size_t size() const;

    /// The bytes of the file. To be called once, after the last page.
    std::string take();

private:
    class File;
    std::unique_ptr<File> file_;
};

// Of 8-bit pixels of one channel.
std::string encode_bmp(const cv::Mat& pixels);
std::string encode_pgm(const cv::Mat& pixels);

} // namespace kivconvert
