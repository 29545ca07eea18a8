// SPDX-License-Identifier: MIT
// Images as files.
#pragma once

#include <KivData/KivData.h>

#include <string>

namespace kivconvert
{

/// Images, and the frames of run files, may have 2^20 columns, 2^20 rows and 2^30 pixels: what OpenCV reads.
inline constexpr int max_frame_side = 1 << 20;

/// @throws FileError if a frame is larger; `path` is the file concerned.
void expect_possible_frame(const std::string& path, int width, int height);

/// Reads any image that OpenCV decodes, as one grey channel of the file's own bit depth.
///
/// @throws FileError if the file cannot be read or is not an image.
KivImage read_grey_image(const std::string& path);

/// A picture in colour or grey, as a PNG file would hold it.
struct PngPicture {
    std::string bytes;
    int width = 0;
    int height = 0;
};

/// Reads any image that OpenCV decodes, with 8 bits per channel. @throws FileError
PngPicture read_as_png(const std::string& path);

/// @throws FileError unless the extension is that of a format that keeps every pixel: .png, .bmp, .pgm or .tif.
void expect_lossless_image(const std::string& path);

/// Writes an image in a format that keeps every pixel. @throws FileError
void write_image(const std::string& path, const KivImage& image);

} // namespace kivconvert
