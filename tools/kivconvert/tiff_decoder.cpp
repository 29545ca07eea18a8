// SPDX-License-Identifier: MIT
// TIFF files, decoded by libtiff.
#include "kivconvert/errors.h"
#include "kivconvert/image_decoder.h"
#include "kivconvert/image_files.h"
#include "kivconvert/tiff_handle.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fmt/format.h>
#include <iterator>
#include <limits>

namespace kivconvert
{
namespace
{

/// Writes `count` samples of `bits` bits each, `stride` elements of the output apart.
using Unpack = void (*)(const std::uint8_t* from, std::size_t count, int bits, std::uint8_t* to, std::size_t stride);

template <class In, class Out>
void convert_samples(const std::uint8_t* from, std::size_t count, int, std::uint8_t* to, std::size_t stride)
{
    for (std::size_t i = 0; i < count; ++i) {
        In sample;
        std::memcpy(&sample, from + i * sizeof(In), sizeof(In));
        const auto value = static_cast<Out>(sample);
        std::memcpy(to + i * stride * sizeof(Out), &value, sizeof(Out));
    }
}

/// Samples that are no whole bytes, the first one in the highest bits.
template <class Out>
void unpack_bits(const std::uint8_t* from, std::size_t count, int bits, std::uint8_t* to, std::size_t stride)
{
    unsigned pending = 0;
    int available = 0;
    for (std::size_t i = 0; i < count; ++i) {
        for (; available < bits; available += 8) {
            pending = pending << 8U | *from++;
        }
        available -= bits;
        const auto value = static_cast<Out>(pending >> static_cast<unsigned>(available) & ((1U << bits) - 1U));
        std::memcpy(to + i * stride * sizeof(Out), &value, sizeof(Out));
    }
}

struct SampleKind {
    std::uint16_t format; ///< as TIFF numbers them
    int least_bits;
    int most_bits;
    int depth; ///< that holds every value
    Unpack unpack;
};

constexpr SampleKind sample_kinds[] = {
    {SAMPLEFORMAT_UINT, 8, 8, CV_8U, convert_samples<std::uint8_t, std::uint8_t>},
    {SAMPLEFORMAT_UINT, 16, 16, CV_16U, convert_samples<std::uint16_t, std::uint16_t>},
    {SAMPLEFORMAT_UINT, 32, 32, CV_64F, convert_samples<std::uint32_t, double>},
    {SAMPLEFORMAT_UINT, 1, 7, CV_8U, unpack_bits<std::uint8_t>},
    {SAMPLEFORMAT_UINT, 9, 15, CV_16U, unpack_bits<std::uint16_t>},
    {SAMPLEFORMAT_INT, 8, 8, CV_8S, convert_samples<std::int8_t, std::int8_t>},
    {SAMPLEFORMAT_INT, 16, 16, CV_16S, convert_samples<std::int16_t, std::int16_t>},
    {SAMPLEFORMAT_INT, 32, 32, CV_32S, convert_samples<std::int32_t, std::int32_t>},
    {SAMPLEFORMAT_IEEEFP, 32, 32, CV_32F, convert_samples<float, float>},
    {SAMPLEFORMAT_IEEEFP, 64, 64, CV_64F, convert_samples<double, double>},
};

/// The tags that say what the samples are.
struct TiffTags {
    int bits = 1;
    int samples = 1;
    std::uint16_t format = SAMPLEFORMAT_UINT;
    std::uint16_t photometric = PHOTOMETRIC_MINISBLACK;
    std::uint16_t compression = COMPRESSION_NONE;
    bool is_planar = false; ///< the samples of a channel lie together, not those of a pixel
};

TiffTags tags_of(TIFF* tiff)
{
    const auto tag = [tiff](std::uint32_t name) {
        std::uint16_t value = 0;
        TIFFGetFieldDefaulted(tiff, name, &value);
        return value;
    };
    TiffTags tags;
    tags.bits = tag(TIFFTAG_BITSPERSAMPLE);
    tags.samples = tag(TIFFTAG_SAMPLESPERPIXEL);
    tags.format = tag(TIFFTAG_SAMPLEFORMAT);
    if (tags.format == SAMPLEFORMAT_VOID) {
        tags.format = SAMPLEFORMAT_UINT;
    }
    tags.compression = tag(TIFFTAG_COMPRESSION);
    tags.is_planar = tag(TIFFTAG_PLANARCONFIG) == PLANARCONFIG_SEPARATE;
    if (TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &tags.photometric) == 0) {
        tags.photometric = tags.samples < 3 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB;
    }
    return tags;
}

/// The compressions by other libraries and fax machines, whose decoders warn where they make up what is lost.
bool warns_of_losses(const TiffTags& tags)
{
    constexpr int compressions[] = {COMPRESSION_CCITTRLE, COMPRESSION_CCITTRLEW, COMPRESSION_CCITTFAX3,
                                    COMPRESSION_CCITTFAX4, COMPRESSION_JPEG};
    return std::find(std::begin(compressions), std::end(compressions), tags.compression) != std::end(compressions);
}

/// A rectangle of pixels that is decoded at once: a tile, a strip of a plane, or a row.
struct BlockShape {
    int width = 0;
    int height = 0;
    bool is_tile = false;
};

int clamped(std::uint32_t side)
{
    return static_cast<int>(std::min<std::uint32_t>(side, std::numeric_limits<int>::max()));
}

class TiffDecoder final : public ImageDecoder
{
public:
    TiffDecoder(const ImageBytes& file, PagePlace page) : file_(file), tiff_(file, page)
    {
        read_size();
        tags_ = tags_of(tiff_.get());
        choose_colours();
        choose_samples();
        choose_blocks();
        std::uint16_t orientation = ORIENTATION_TOPLEFT;
        TIFFGetFieldDefaulted(tiff_.get(), TIFFTAG_ORIENTATION, &orientation);
        layout_.orientation = orientation;
    }

    void read_row(std::uint8_t* row) override
    {
        if (row_ % block_.height == 0) {
            read_band();
        }
        std::memcpy(row, band_.ptr(row_ % block_.height), static_cast<std::size_t>(band_.cols) * band_.elemSize());
        ++row_;
    }

private:
    [[noreturn]] void refuse(const std::string& what) const { throw FileError(file_.path, what); }

    void read_size()
    {
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        TIFFGetField(tiff_.get(), TIFFTAG_IMAGEWIDTH, &width);
        TIFFGetField(tiff_.get(), TIFFTAG_IMAGELENGTH, &height);
        layout_.width = clamped(width);
        layout_.height = clamped(height);
        expect_possible_frame(file_.path, layout_.width, layout_.height);
        if (width == 0 || height == 0) {
            fail_decoding(file_, "TIFF", "no pixels");
        }
    }

    void choose_colours()
    {
        if (tags_.photometric == PHOTOMETRIC_YCBCR && tags_.compression == COMPRESSION_JPEG) {
            TIFFSetField(tiff_.get(), TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
            tags_.photometric = PHOTOMETRIC_RGB;
        }
        switch (tags_.photometric) {
        case PHOTOMETRIC_MINISBLACK:
        case PHOTOMETRIC_MINISWHITE:
        case PHOTOMETRIC_MASK:
            break;
        case PHOTOMETRIC_PALETTE:
            read_palette();
            break;
        case PHOTOMETRIC_RGB:
            layout_.colours = 3;
            break;
        default:
            refuse("has colours that are neither grey nor RGB nor those of a palette");
        }
        if (tags_.samples != layout_.colours && tags_.samples != layout_.colours + 1) {
            refuse(fmt::format("has {} channels; {} are taken, with or without alpha", tags_.samples, layout_.colours));
        }
        layout_.has_alpha = tags_.samples > layout_.colours;
    }

    void read_palette()
    {
        std::uint16_t* red = nullptr;
        std::uint16_t* green = nullptr;
        std::uint16_t* blue = nullptr;
        if (tags_.bits > 8 || TIFFGetField(tiff_.get(), TIFFTAG_COLORMAP, &red, &green, &blue) == 0) {
            refuse("is a palette image without a palette, or one of more than 256 colours");
        }
        layout_.palette.resize(256);
        for (std::size_t i = 0; i < std::size_t{1} << tags_.bits; ++i) {
            layout_.palette[i] = {static_cast<uchar>(red[i] >> 8U), static_cast<uchar>(green[i] >> 8U),
                                  static_cast<uchar>(blue[i] >> 8U)};
        }
    }

    void choose_samples()
    {
        const auto* const kind =
            std::find_if(std::begin(sample_kinds), std::end(sample_kinds), [this](const SampleKind& candidate) {
                return candidate.format == tags_.format && candidate.least_bits <= tags_.bits &&
                       tags_.bits <= candidate.most_bits;
            });
        if (kind == std::end(sample_kinds)) {
            refuse(fmt::format("has numbers of {} bits of a kind that is not taken", tags_.bits));
        }
        if (tags_.samples > 1 && kind->depth != CV_8U && kind->depth != CV_16U) {
            refuse("has several channels of numbers that are not 8-bit or 16-bit; one channel of them is taken");
        }
        if (is_inverted() && (tags_.samples > 1 || (kind->depth != CV_8U && kind->depth != CV_16U))) {
            refuse("has 0 for white in a way that is not taken");
        }
        layout_.depth = kind->depth;
        unpack_ = kind->unpack;
    }

    bool is_inverted() const { return tags_.photometric == PHOTOMETRIC_MINISWHITE; }

    void choose_blocks()
    {
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        block_.is_tile = TIFFIsTiled(tiff_.get()) != 0;
        if (block_.is_tile) {
            TIFFGetField(tiff_.get(), TIFFTAG_TILEWIDTH, &width);
            TIFFGetField(tiff_.get(), TIFFTAG_TILELENGTH, &height);
        } else {
            width = static_cast<std::uint32_t>(layout_.width);
            TIFFGetFieldDefaulted(tiff_.get(), TIFFTAG_ROWSPERSTRIP, &height);
            height = tags_.is_planar ? std::min(height, static_cast<std::uint32_t>(layout_.height)) : 1;
        }
        block_.width = clamped(width);
        block_.height = clamped(height);
        const auto area = [](int columns, int rows) { return static_cast<std::int64_t>(columns) * rows; };
        constexpr std::int64_t usual_tile = 1 << 24;
        if (width == 0 || height == 0 ||
            area(block_.width, block_.height) > std::max(area(layout_.width, layout_.height), usual_tile)) {
            fail_decoding(file_, "TIFF", "tiles or strips of an impossible size");
        }
    }

    /// The next row, all rows of the next strips, or of the next row of tiles.
    void read_band()
    {
        const int rows = std::min(block_.height, layout_.height - row_);
        band_.create(rows, layout_.width, layout_.type());
        tiff_.forget_complaints();
        for (int plane = 0; plane < (tags_.is_planar ? tags_.samples : 1); ++plane) {
            for (int column = 0; column < layout_.width; column += block_.width) {
                read_block(rows, column, plane);
            }
        }
        if (warns_of_losses(tags_) && tiff_.has_warned()) {
            tiff_.fail();
        }
        spread_values();
    }

    void read_block(int rows, int column, int plane)
    {
        const auto samples = static_cast<std::size_t>(tags_.is_planar ? 1 : tags_.samples);
        const std::size_t row_size = (static_cast<std::size_t>(block_.width) * samples * bits() + 7) / 8;
        samples_.resize(row_size * static_cast<std::size_t>(block_.height));
        if (decode_block(column, plane) < static_cast<tmsize_t>(row_size * static_cast<std::size_t>(rows))) {
            tiff_.fail();
        }
        const auto width = static_cast<std::size_t>(std::min(block_.width, layout_.width - column));
        const std::size_t stride = tags_.is_planar ? static_cast<std::size_t>(tags_.samples) : 1;
        for (int row = 0; row < rows; ++row) {
            std::uint8_t* const to = band_.ptr(row, column) + static_cast<std::size_t>(plane) * band_.elemSize1();
            unpack_(samples_.data() + static_cast<std::size_t>(row) * row_size, width * samples, tags_.bits, to,
                    stride);
        }
    }

    /// @return how many bytes of samples there are now, or -1
    tmsize_t decode_block(int column, int plane)
    {
        TIFF* const tiff = tiff_.get();
        const auto x = static_cast<std::uint32_t>(column);
        const auto y = static_cast<std::uint32_t>(row_);
        const auto sample = static_cast<std::uint16_t>(plane);
        const auto size = static_cast<tmsize_t>(samples_.size());
        if (block_.is_tile) {
            return TIFFReadEncodedTile(tiff, TIFFComputeTile(tiff, x, y, 0, sample), samples_.data(), size);
        }
        if (tags_.is_planar) {
            return TIFFReadEncodedStrip(tiff, TIFFComputeStrip(tiff, y, sample), samples_.data(), size);
        }
        const bool fits = TIFFScanlineSize(tiff) == size;
        return fits && TIFFReadScanline(tiff, samples_.data(), y) >= 0 ? size : -1;
    }

    std::size_t bits() const { return static_cast<std::size_t>(tags_.bits); }

    /// Grey values and colours of fewer than 8 bits are spread over 0 to 255, and 0 is made black.
    void spread_values()
    {
        const double largest = std::ldexp(1.0, tags_.bits) - 1.0;
        const double scale = layout_.palette.empty() && bits() < 8 ? 255.0 / largest : 1.0;
        if (is_inverted()) {
            band_.convertTo(band_, -1, -scale, scale * largest);
        } else if (scale > 1.0) {
            band_.convertTo(band_, -1, scale);
        }
    }

    ImageBytes file_;
    TiffHandle tiff_;
    TiffTags tags_;
    BlockShape block_;
    Unpack unpack_ = nullptr;
    int row_ = 0;
    cv::Mat band_;
    std::vector<std::uint8_t> samples_;
};

} // namespace

std::vector<PagePlace> pages_of_tiff(const ImageBytes& file)
{
    return TiffHandle(file).pages();
}

ImageDecoderPtr decode_tiff(const ImageBytes& file, PagePlace page)
{
    return std::make_unique<TiffDecoder>(file, page);
}

} // namespace kivconvert
