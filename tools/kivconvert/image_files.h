// SPDX-License-Identifier: MIT
// Images as files.
#pragma once

#include "kivconvert/output.h"

#include <KivData/KivData.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

class ImageFile;

/// Which annotations of a COCO data set are taken.
struct CocoChoice {
    std::optional<std::int64_t> annotation; ///< the id
    std::string image;                      ///< the id or the name; empty: any
    std::string category;                   ///< the same

    bool is_made() const { return annotation || !image.empty() || !category.empty(); }
};

/// Which part of a file is read: of an image, or of a data set.
struct ImagePart {
    Alpha alpha = Alpha::refused;
    int page = 0; ///< counted from 1; 0: the only one

    /// The file, if it has been opened, so that many of its pages can be read.
    std::shared_ptr<const ImageFile> file = {};

    CocoChoice choice = {};
};

/// For input that is no image, and no data set. @throws InputError if `part` is not the whole of it
void expect_no_part(const ImagePart& part);

// The two halves of it.
void expect_no_image_part(const ImagePart& part);
void expect_no_choice(const CocoChoice& choice);

/// Reads PNG, TIFF, JPEG, BMP and PNM files as one channel of the file's own bit depth. Of a colour image it is the
/// largest of a pixel's red, green and blue, so that a pixel is 0 where all three are; of a palette image the index.
/// Unsigned 32-bit numbers become doubles.
///
/// @throws FileError if the file cannot be read or is not an image, is damaged or larger than expect_possible_frame()
/// allows, or has an alpha channel or several pages while `part` does not say what to take of them
KivImage read_image(const std::string& path, const ImagePart& part = {});

/// The same of a file in memory; `path` is its name in error messages.
KivImage decode_image(std::string_view bytes, const std::string& path, const ImagePart& part = {});

/// An image file in memory, of which any page can be read at the same cost.
class ImageFile
{
public:
    /// @throws FileError
    explicit ImageFile(const std::string& path);

    /// 1 except for TIFF files.
    int pages() const { return static_cast<int>(pages_.size()); }

    /// As read_image(). @throws FileError
    KivImage read(const ImagePart& part) const;

private:
    std::string path_;
    std::string bytes_;
    std::vector<std::uint64_t> pages_; ///< where each begins
};

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

/// Writes an image of one channel of 8, 16 or 32 bits in a format that keeps every pixel. A page shares its pixels.
/// @throws FileError
void write_image(const Output& output, const KivImage& image);

/// @throws FileError unless the name ends in .png.
void expect_png(const std::string& path);

/// Writes a picture of several channels, as encode_png() takes it. @throws FileError
void write_png(const std::string& path, const cv::Mat& pixels);

} // namespace kivconvert
