// SPDX-License-Identifier: MIT
// Images as files.
#pragma once

#include <KivData/KivData.h>

#include <string>
#include <string_view>

namespace kivconvert
{

/// Images, and the frames of run files, may have 2^20 columns, 2^20 rows and 2^30 pixels.
inline constexpr int max_frame_side = 1 << 20;

/// @throws FileError if a frame is larger; `path` is the file concerned.
void expect_possible_frame(const std::string& path, int width, int height);

/// What to do with a channel of opacity.
enum class Alpha {
    refused, ///< refuse the image, unless all of it is opaque
    taken,   ///< take that channel alone
    ignored, ///< take the other channels
};

/// Which part of an image file is read.
struct ImagePart {
    Alpha alpha = Alpha::refused;
    int page = 0; ///< counted from 1; 0: the only one
};

/// For input that is no image. @throws InputError if `part` is not the whole of it
void expect_no_part(const ImagePart& part);

/// Reads PNG, TIFF, JPEG, BMP and PNM files as one channel of the file's own bit depth. Of a colour image it is the
/// largest of a pixel's red, green and blue, so that a pixel is 0 where all three are; of a palette image the index.
/// Unsigned 32-bit numbers become doubles.
///
/// @throws FileError if the file cannot be read or is not an image, is damaged or larger than expect_possible_frame()
/// allows, or has an alpha channel or several pages while `part` does not say what to take of them
KivImage read_image(const std::string& path, const ImagePart& part = {});

/// The same of a file in memory; `path` is its name in error messages.
KivImage decode_image(std::string_view bytes, const std::string& path, const ImagePart& part = {});

/// How many pages an image file has: 1 except for TIFF files. @throws FileError
int count_pages(const std::string& path);

/// A picture in colour or grey, as a PNG file would hold it.
struct PngPicture {
    std::string bytes;
    int width = 0;
    int height = 0;
};

/// Reads an image as people see it: with the colours of its palette, and its opacity; with 8 bits per channel.
/// @throws FileError
PngPicture read_as_png(const std::string& path);

/// @throws FileError unless the extension is that of a format that keeps every pixel: .png, .bmp, .pgm or .tif.
void expect_lossless_image(const std::string& path);

/// @param depth CV_8U, CV_16U or CV_32S
/// @throws FileError unless the extension is that of a format that keeps every pixel of such a depth
void expect_image_of_depth(const std::string& path, int depth);

/// Writes an image of one channel of 8, 16 or 32 bits in a format that keeps every pixel. @throws FileError
void write_image(const std::string& path, const KivImage& image);

/// @throws FileError unless the name ends in .png.
void expect_png(const std::string& path);

/// Writes a picture of several channels, as encode_png() takes it. @throws FileError
void write_png(const std::string& path, const cv::Mat& pixels);

} // namespace kivconvert
