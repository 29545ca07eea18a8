// SPDX-License-Identifier: MIT
// TIFF files, encoded by libtiff.
#include "kivconvert/image_encoder.h"
#include "kivconvert/tiff_handle.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

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
    return TIFFFlushData(tiff) != 0;
}

} // namespace

/// A file in memory that libtiff writes, and reads in to find the last page.
class TiffPages::File
{
public:
    File()
    {
        const auto size = [](thandle_t self) -> toff_t { return of(self).bytes_.size(); };
        const auto close = [](thandle_t) { return 0; };
        tiff_ = TIFFClientOpen("", "wm", this, read, write, seek, close, size, nullptr, nullptr);
        if (tiff_ == nullptr) {
            throw std::bad_alloc();
        }
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { close(); }

    void add(const cv::Mat& pixels)
    {
        set_tags(tiff_, pixels);
        if (!write_rows(tiff_, pixels) || TIFFWriteDirectory(tiff_) == 0) {
            throw EncodingError("cannot be made a TIFF file");
        }
    }

    void close()
    {
        if (TIFF* const open = std::exchange(tiff_, nullptr)) {
            TIFFClose(open);
        }
    }

    std::string& bytes() { return bytes_; }

private:
    static File& of(thandle_t self) { return *static_cast<File*>(self); }

    static tmsize_t write(thandle_t self, void* from, tmsize_t count)
    {
        File& file = of(self);
        const auto size = static_cast<std::size_t>(count);
        try { // exceptions cannot pass through libtiff
            file.bytes_.resize(std::max(file.bytes_.size(), file.at_ + size));
        } catch (const std::exception&) {
            return -1;
        }
        std::memcpy(file.bytes_.data() + file.at_, from, size);
        file.at_ += size;
        return count;
    }

    static tmsize_t read(thandle_t self, void* to, tmsize_t count)
    {
        File& file = of(self);
        const std::size_t size = file.bytes_.copy(static_cast<char*>(to), static_cast<std::size_t>(count),
                                                  std::min(file.at_, file.bytes_.size()));
        file.at_ += size;
        return static_cast<tmsize_t>(size);
    }

    static toff_t seek(thandle_t self, toff_t offset, int from)
    {
        File& file = of(self);
        const std::size_t base = from == SEEK_CUR ? file.at_ : from == SEEK_END ? file.bytes_.size() : 0;
        return file.at_ = base + static_cast<std::size_t>(offset);
    }

    std::string bytes_;
    std::size_t at_ = 0;
    TIFF* tiff_ = nullptr;
};

TiffPages::TiffPages()
{
    silence_libtiff();
    file_ = std::make_unique<File>();
}

TiffPages::~TiffPages() = default;

void TiffPages::add(const cv::Mat& pixels)
{
    file_->add(pixels);
}

std::size_t TiffPages::size() const
{
    return file_->bytes().size();
}

std::string TiffPages::take()
{
    file_->close();
    return std::move(file_->bytes());
}

std::string encode_tiff(const cv::Mat& pixels)
{
    TiffPages pages;
    pages.add(pixels);
    return pages.take();
}

} // namespace kivconvert
