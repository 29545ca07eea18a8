// SPDX-License-Identifier: MIT
// Small image files of every kind, made by the libraries for their formats.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tools_tests
{

/// A PNG file. `samples` are its rows, packed as PNG packs them.
struct MadePng {
    int width = 0;
    int height = 0;
    int bits = 8;
    int type = 0; ///< as png.h numbers colour types
    std::string samples;
    std::vector<std::array<std::uint8_t, 3>> palette = {};
    std::string opacities = {};                      ///< of the palette's first indices
    std::optional<std::uint16_t> transparent_grey{}; ///< the one grey value that is transparent
    bool interlaced = false;
};
std::string make_png(const MadePng& image);

/// A page of a TIFF file. `samples` are its rows as TIFF packs them; of planar pages, one plane after the other. Tiles
/// are squares, and their pages have a whole number of them.
struct MadeTiff {
    int width = 0;
    int height = 0;
    std::string samples;
    int bits = 8;
    int channels = 1;
    int photometric = 1; ///< as tiff.h numbers them: 0 for white, 0 for black, RGB, palette ...
    int format = 1;      ///< 1 for unsigned, 2 for signed numbers, 3 for floats
    int compression = 1;
    int rows_per_strip = 1;
    int tile = 0; ///< the side of the tiles; 0 for strips
    bool planar = false;
    bool alpha = false;
    int orientation = 1;
    unsigned kind = 0; ///< 1 for a reduced copy of another page
};
void make_tiff(const std::string& path, const std::vector<MadeTiff>& pages);

/// A JPEG file of `channels` 8-bit samples a pixel: grey, RGB, or the four of ink.
std::string make_jpeg(int width, int height, int channels, const std::string& samples, bool progressive = false);

/// The JPEG file with Exif data that hold an orientation and nothing else.
std::string with_orientation(const std::string& jpeg, char orientation, bool big_endian);

} // namespace tools_tests
