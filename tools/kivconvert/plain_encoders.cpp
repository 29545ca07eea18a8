// SPDX-License-Identifier: MIT
// The two formats that are a header and the pixels: BMP and PGM.
#include "kivconvert/image_encoder.h"

#include <cstdint>
#include <fmt/format.h>

namespace kivconvert
{
namespace
{

constexpr std::size_t bmp_headers_size = 14 + 40;
constexpr std::uint32_t greys = 256;

/// The lowest byte comes first.
void append_number(std::string& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(value >> (8 * i) & 0xffU);
    }
}

void append_row(std::string& bytes, const cv::Mat& pixels, int row)
{
    bytes.append(reinterpret_cast<const char*>(pixels.ptr(row)), static_cast<std::size_t>(pixels.cols));
}

/// The headers, and a palette of all greys.
std::string bmp_header(const cv::Mat& pixels, std::size_t pixel_bytes)
{
    const std::size_t begin = bmp_headers_size + std::size_t{4} * greys;
    std::string bytes = "BM";
    append_number(bytes, static_cast<std::uint32_t>(begin + pixel_bytes), 4);
    append_number(bytes, 0, 4);
    append_number(bytes, static_cast<std::uint32_t>(begin), 4);
    append_number(bytes, 40, 4); // the size of what follows up to the palette
    append_number(bytes, static_cast<std::uint32_t>(pixels.cols), 4);
    append_number(bytes, static_cast<std::uint32_t>(pixels.rows), 4);
    append_number(bytes, 1, 2); // planes
    append_number(bytes, 8, 2); // bits of a pixel
    append_number(bytes, 0, 4); // no compression
    append_number(bytes, static_cast<std::uint32_t>(pixel_bytes), 4);
    append_number(bytes, 0, 4); // no resolution
    append_number(bytes, 0, 4);
    append_number(bytes, greys, 4);
    append_number(bytes, 0, 4); // all of them matter
    for (std::uint32_t grey = 0; grey < greys; ++grey) {
        append_number(bytes, grey << 16U | grey << 8U | grey, 4);
    }
    return bytes;
}

} // namespace

std::string encode_bmp(const cv::Mat& pixels)
{
    const std::size_t row_size = (static_cast<std::size_t>(pixels.cols) + 3) / 4 * 4;
    const std::size_t pixel_bytes = row_size * static_cast<std::size_t>(pixels.rows);
    std::string bytes = bmp_header(pixels, pixel_bytes);
    bytes.reserve(bytes.size() + pixel_bytes);
    for (int row = pixels.rows; row-- > 0;) {
        append_row(bytes, pixels, row);
        bytes.append(row_size - static_cast<std::size_t>(pixels.cols), '\0');
    }
    return bytes;
}

std::string encode_pgm(const cv::Mat& pixels)
{
    std::string bytes = fmt::format("P5\n{} {}\n255\n", pixels.cols, pixels.rows);
    bytes.reserve(bytes.size() + pixels.total());
    for (int row = 0; row < pixels.rows; ++row) {
        append_row(bytes, pixels, row);
    }
    return bytes;
}

} // namespace kivconvert
