// SPDX-License-Identifier: MIT
// PNG files, encoded by libpng.
#include "kivconvert/image_encoder.h"
#include "kivconvert/png_calls.h"

#include <bit>
#include <fmt/format.h>
#include <new>

namespace kivconvert
{
namespace
{

/// Exceptions cannot pass through libpng.
bool append(std::string& bytes, const png_byte* more, std::size_t count)
{
    try {
        bytes.append(reinterpret_cast<const char*>(more), count);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void write_png_bytes(png_structp png, png_bytep from, std::size_t count)
{
    if (!append(*static_cast<std::string*>(png_get_io_ptr(png)), from, count)) {
        png_error(png, "out of memory");
    }
}

int colour_type_of(const cv::Mat& pixels)
{
    constexpr int types[] = {PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA, PNG_COLOR_TYPE_RGB,
                             PNG_COLOR_TYPE_RGB_ALPHA};
    return types[pixels.channels() - 1];
}

void write_pixels(png_structp png, png_infop info, const cv::Mat& pixels)
{
    const auto bits = static_cast<int>(8 * pixels.elemSize1());
    png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_IHDR(png, info, static_cast<png_uint_32>(pixels.cols), static_cast<png_uint_32>(pixels.rows), bits,
                 colour_type_of(pixels), PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    if (bits == 16 && std::endian::native == std::endian::little) {
        png_set_swap(png); // the file has the higher byte first
    }
    for (int row = 0; row < pixels.rows; ++row) {
        png_write_row(png, pixels.ptr(row));
    }
    png_write_end(png, info);
}

} // namespace

std::string encode_png(const cv::Mat& pixels)
{
    std::string bytes;
    PngComplaint complaint;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &complaint, on_png_error, ignore_png_warning);
    png_infop info = png == nullptr ? nullptr : png_create_info_struct(png);
    const bool done = info != nullptr && all_succeed(png, [&] {
                          png_set_write_fn(png, &bytes, write_png_bytes, nullptr);
                          png_set_compression_level(png, 1); // masks are small anyway
                          write_pixels(png, info, pixels);
                      });
    png_destroy_write_struct(&png, &info);
    if (!done) {
        throw EncodingError(fmt::format("cannot be made a PNG file: {}", complaint.text.data()));
    }
    return bytes;
}

} // namespace kivconvert
