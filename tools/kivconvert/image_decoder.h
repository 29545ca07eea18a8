// SPDX-License-Identifier: MIT
// Decoders of image files: a function per format, each of which gives the pixels as the file holds them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <opencv2/core.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace kivconvert
{

/// The bytes of an image file, and the name that error messages give it.
struct ImageBytes {
    std::string_view bytes;
    const std::string& path;
};

/// What a file states about its pixels.
struct ImageLayout {
    int width = 0;
    int height = 0;
    int depth = CV_8U;      ///< of a channel, as OpenCV numbers depths
    int colours = 1;        ///< channels except alpha: 1 for grey values and palette indices, 3 for red, green and blue
    bool has_alpha = false; ///< whether a channel of opacity follows them
    int orientation = 1;    ///< as Exif and TIFF number the eight ways to turn and mirror a picture
    std::vector<cv::Vec3b> palette = {}; ///< red, green and blue of all indices; empty where values are no indices

    int channels() const { return colours + (has_alpha ? 1 : 0); }
    int type() const { return CV_MAKETYPE(depth, channels()); }
};

/// A page that is being decoded, from its first row to its last.
class ImageDecoder
{
public:
    ImageDecoder() = default;
    ImageDecoder(const ImageDecoder&) = delete;
    ImageDecoder& operator=(const ImageDecoder&) = delete;
    virtual ~ImageDecoder() = default;

    const ImageLayout& layout() const { return layout_; }

    /// Decodes the next row into `layout().width` pixels of `layout().type()`, at most `layout().height` times.
    /// @throws FileError if the file is damaged. The call for the last row also finds what is wrong behind it.
    virtual void read_row(std::uint8_t* row) = 0;

protected:
    ImageLayout layout_;
};

/// Where in a file a page is described.
using PagePlace = std::uint64_t;

using ImageDecoderPtr = std::unique_ptr<ImageDecoder>;

// Each of these reads the header. They throw FileError if it is damaged, larger than expect_possible_frame() allows, or
// describes pixels that are not taken.
ImageDecoderPtr decode_png(const ImageBytes& file);
ImageDecoderPtr decode_jpeg(const ImageBytes& file);

ImageDecoderPtr decode_bmp(const ImageBytes& file);
ImageDecoderPtr decode_pnm(const ImageBytes& file);

/// @param page one of pages_of_tiff()
ImageDecoderPtr decode_tiff(const ImageBytes& file, PagePlace page);

/// Reduced copies of a page, and masks of transparency, are no pages. Linear in the pages. @throws FileError
std::vector<PagePlace> pages_of_tiff(const ImageBytes& file);

/// The complaint of a decoding library about the file.
[[noreturn]] void fail_decoding(const ImageBytes& file, const char* format, const char* complaint);

} // namespace kivconvert
