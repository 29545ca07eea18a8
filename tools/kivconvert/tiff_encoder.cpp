// SPDX-License-Identifier: MIT
// TIFF files, encoded by libtiff.
#include "kivconvert/image_encoder.h"
#include "kivconvert/tiff_handle.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

namespace kivconvert
{
namespace
{

/// A file in memory that libtiff writes.
struct TiffOutput {
    std::string bytes;
    std::size_t at = 0;
};

TiffOutput& output_of(thandle_t handle)
{
    return *static_cast<TiffOutput*>(handle);
}

tmsize_t write_tiff_bytes(thandle_t handle, void* from, tmsize_t count)
{
    TiffOutput& output = output_of(handle);
    const auto size = static_cast<std::size_t>(count);
    try { // exceptions cannot pass through libtiff
        output.bytes.resize(std::max(output.bytes.size(), output.at + size));
    } catch (const std::exception&) {
        return -1;
    }
    std::memcpy(output.bytes.data() + output.at, from, size);
    output.at += size;
    return count;
}

tmsize_t read_no_bytes(thandle_t, void*, tmsize_t)
{
    return 0;
}

toff_t seek_output(thandle_t handle, toff_t offset, int from)
{
    TiffOutput& output = output_of(handle);
    const std::size_t base = from == SEEK_CUR ? output.at : from == SEEK_END ? output.bytes.size() : 0;
    return output.at = base + static_cast<std::size_t>(offset);
}

void set_tags(TIFF* tiff, const cv::Mat& pixels)
{
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(pixels.cols));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(pixels.rows));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, static_cast<int>(8 * pixels.elemSize1()));
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
}

bool write_rows(TIFF* tiff, const cv::Mat& pixels)
{
    std::vector<std::uint8_t> copy(static_cast<std::size_t>(pixels.cols) *
                                   pixels.elemSize()); // libtiff may change what it writes
    for (int row = 0; row < pixels.rows; ++row) {
        std::copy_n(pixels.ptr(row), copy.size(), copy.begin());
        if (TIFFWriteScanline(tiff, copy.data(), static_cast<std::uint32_t>(row)) < 0) {
            return false;
        }
    }
    return TIFFFlush(tiff) != 0;
}

} // namespace

std::string encode_tiff(const cv::Mat& pixels)
{
    silence_libtiff();
    TiffOutput output;
    const auto size = [](thandle_t handle) -> toff_t { return output_of(handle).bytes.size(); };
    const auto close = [](thandle_t) { return 0; };
    TIFF* const tiff =
        TIFFClientOpen("", "wm", &output, read_no_bytes, write_tiff_bytes, seek_output, close, size, nullptr, nullptr);
    if (tiff == nullptr) {
        throw std::bad_alloc();
    }
    set_tags(tiff, pixels);
    const bool done = write_rows(tiff, pixels);
    TIFFClose(tiff);
    if (!done) {
        throw EncodingError("cannot be made a TIFF file");
    }
    return output.bytes;
}

} // namespace kivconvert
