// SPDX-License-Identifier: MIT
#include "tools/made_images.h"

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>
#include <png.h>
#include <tiffio.h>

namespace tools_tests
{
namespace
{

void append_to_string(png_structp png, png_bytep bytes, std::size_t size)
{
    static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<const char*>(bytes), size);
}

void set_palette(png_structp png, png_infop info, const MadePng& image)
{
    std::vector<png_color> colours;
    for (const auto& [red, green, blue] : image.palette) {
        colours.push_back({red, green, blue});
    }
    if (!colours.empty()) {
        png_set_PLTE(png, info, colours.data(), static_cast<int>(colours.size()));
    }
    if (!image.opacities.empty()) {
        png_set_tRNS(png, info, reinterpret_cast<png_const_bytep>(image.opacities.data()),
                     static_cast<int>(image.opacities.size()), nullptr);
    }
    if (image.transparent_grey) {
        png_color_16 transparent = {};
        transparent.gray = *image.transparent_grey;
        png_set_tRNS(png, info, nullptr, 0, &transparent);
    }
}

void set_tags(TIFF* tiff, const MadeTiff& page)
{
    TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, page.kind);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, page.width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, page.height);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, page.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, page.channels);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, page.format);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, page.compression);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, page.photometric);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, page.orientation);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, page.planar ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    if (page.alpha) {
        const std::uint16_t kind = EXTRASAMPLE_UNASSALPHA;
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &kind);
    }
    if (page.photometric == PHOTOMETRIC_PALETTE) { // dark shades of blue
        const std::vector<std::uint16_t> nothing(std::size_t{1} << page.bits, 0);
        const std::vector<std::uint16_t> little(std::size_t{1} << page.bits, 0x0200);
        TIFFSetField(tiff, TIFFTAG_COLORMAP, nothing.data(), nothing.data(), little.data());
    }
    if (page.tile > 0) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, page.tile);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, page.tile);
    } else {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, page.rows_per_strip);
    }
}

/// The samples of one tile of a page of bytes, with what lies beyond its edges.
std::string tile_of(const MadeTiff& page, int left, int top, int channels, int plane)
{
    std::string tile;
    for (int y = top; y < top + page.tile; ++y) {
        for (int x = left * channels; x < (left + page.tile) * channels; ++x) {
            const int at = (plane * page.height + y) * page.width * channels + x;
            const bool is_inside = x < page.width * channels && y < page.height;
            tile += is_inside ? page.samples[static_cast<std::size_t>(at)] : '\x7f';
        }
    }
    return tile;
}

void write_tiles(TIFF* tiff, const MadeTiff& page)
{
    for (int plane = 0; plane < (page.planar ? page.channels : 1); ++plane) {
        for (int y = 0; y < page.height; y += page.tile) {
            for (int x = 0; x < page.width; x += page.tile) {
                std::string tile = tile_of(page, x, y, page.planar ? 1 : page.channels, plane);
                TIFFWriteTile(tiff, tile.data(), static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), 0,
                              static_cast<std::uint16_t>(plane));
            }
        }
    }
}

void write_rows(TIFF* tiff, const MadeTiff& page)
{
    std::string samples = page.samples;
    const auto size = static_cast<std::size_t>(TIFFScanlineSize(tiff));
    char* row = samples.data();
    for (int plane = 0; plane < (page.planar ? page.channels : 1); ++plane) {
        for (int y = 0; y < page.height; ++y, row += size) {
            TIFFWriteScanline(tiff, row, static_cast<std::uint32_t>(y), static_cast<std::uint16_t>(plane));
        }
    }
}

} // namespace

std::string make_png(const MadePng& image)
{
    std::string bytes;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &bytes, append_to_string, nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width), static_cast<png_uint_32>(image.height), image.bits,
                 image.type, image.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    set_palette(png, info, image);
    png_write_info(png, info);
    std::string samples = image.samples;
    const std::size_t size = samples.size() / static_cast<std::size_t>(image.height);
    std::vector<png_bytep> rows;
    for (std::size_t at = 0; at < samples.size(); at += size) {
        rows.push_back(reinterpret_cast<png_bytep>(samples.data() + at));
    }
    png_write_image(png, rows.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return bytes;
}

void make_tiff(const std::string& path, const std::vector<MadeTiff>& pages)
{
    TIFF* const tiff = TIFFOpen(path.c_str(), "wl"); // tests look for bytes in the file
    for (const MadeTiff& page : pages) {
        set_tags(tiff, page);
        if (page.tile > 0) {
            write_tiles(tiff, page);
        } else {
            write_rows(tiff, page);
        }
        TIFFWriteDirectory(tiff);
    }
    TIFFClose(tiff);
}

std::string make_jpeg(int width, int height, int channels, const std::string& samples, bool progressive)
{
    jpeg_compress_struct jpeg = {};
    jpeg_error_mgr errors = {};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &bytes, &size);
    jpeg.image_width = static_cast<JDIMENSION>(width);
    jpeg.image_height = static_cast<JDIMENSION>(height);
    jpeg.input_components = channels;
    jpeg.in_color_space = channels == 1 ? JCS_GRAYSCALE : channels == 3 ? JCS_RGB : JCS_CMYK;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 100, TRUE);
    if (progressive) {
        jpeg_simple_progression(&jpeg);
    }
    jpeg_start_compress(&jpeg, TRUE);
    std::string copy = samples;
    for (std::size_t at = 0; at < copy.size(); at += static_cast<std::size_t>(width * channels)) {
        JSAMPROW rows[] = {reinterpret_cast<JSAMPROW>(copy.data() + at)};
        jpeg_write_scanlines(&jpeg, rows, 1);
    }
    jpeg_finish_compress(&jpeg);
    std::string made(reinterpret_cast<const char*>(bytes), size);
    jpeg_destroy_compress(&jpeg);
    std::free(bytes);
    return made;
}

std::string with_orientation(const std::string& jpeg, char orientation, bool big_endian)
{
    // A segment of 34 bytes: Exif's mark, then a TIFF header and a directory of one entry.
    const std::string mark("\xff\xe1\0\x22"
                           "Exif\0\0",
                           10);
    const std::string big("MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0", 19);
    const std::string little("II\x2a\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0", 18);
    const std::string behind("\0\0\0\0\0\0\0\0", 8);
    const std::string exif =
        big_endian ? big + orientation + behind.substr(0, 6) : little + orientation + behind.substr(0, 7);
    return jpeg.substr(0, 2) + mark + exif + jpeg.substr(2);
}

} // namespace tools_tests
