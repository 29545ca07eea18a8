// SPDX-License-Identifier: MIT
// BMP files without compression. No library in wide use decodes them alone.
#include "kivconvert/errors.h"
#include "kivconvert/image_decoder.h"
#include "kivconvert/image_files.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <fmt/format.h>

namespace kivconvert
{
namespace
{

constexpr std::size_t file_header_size = 14;
constexpr std::uint32_t core_header_size = 12;
constexpr std::uint32_t info_header_size = 40;

enum Compression : std::uint32_t { none = 0, bit_fields = 3, alpha_bit_fields = 6 };

/// A channel's bits in a pixel.
struct BitField {
    std::uint32_t mask = 0;

    /// The channel's value, spread over 0 to 255.
    std::uint8_t value(std::uint32_t pixel) const
    {
        const int shift = std::countr_zero(mask);
        return static_cast<std::uint8_t>(std::uint64_t{(pixel & mask) >> shift} * 255 / (mask >> shift));
    }
};

class BmpDecoder final : public ImageDecoder
{
public:
    explicit BmpDecoder(const ImageBytes& file) : file_(file)
    {
        read_header();
        if (bits_ <= 8) {
            read_palette();
        } else {
            read_fields();
        }
        stride_ = (static_cast<std::size_t>(layout_.width) * static_cast<std::size_t>(bits_) + 31) / 32 * 4;
        begin_ = number(10, 4);
        expect(begin_ + stride_ * static_cast<std::size_t>(layout_.height) <= file_.bytes.size(), "pixels are missing");
    }

    void read_row(std::uint8_t* row) override
    {
        const int stored = is_upside_down_ ? layout_.height - 1 - row_ : row_;
        const std::size_t begin = begin_ + stride_ * static_cast<std::size_t>(stored);
        const auto pixel_bits = static_cast<std::size_t>(bits_);
        for (std::size_t x = 0; x < static_cast<std::size_t>(layout_.width); ++x) {
            if (bits_ <= 8) {
                const std::size_t bit = x * pixel_bits;
                *row++ = static_cast<std::uint8_t>(number(begin + bit / 8, 1) >> (8 - pixel_bits - bit % 8) &
                                                   ((1U << pixel_bits) - 1));
                continue;
            }
            const std::uint32_t pixel = number(begin + x * pixel_bits / 8, pixel_bits / 8);
            for (int channel = 0; channel < layout_.channels(); ++channel) {
                *row++ = fields_[static_cast<std::size_t>(channel)].value(pixel);
            }
        }
        ++row_;
    }

private:
    void expect(bool condition, const char* complaint) const
    {
        if (!condition) {
            fail_decoding(file_, "BMP", complaint);
        }
    }

    /// A number of up to four bytes, the lowest one first; 0 beyond the end of the file.
    std::uint32_t number(std::size_t at, std::size_t bytes) const
    {
        std::uint32_t value = 0;
        for (std::size_t i = bytes; i-- > 0;) {
            const auto byte = at + i < file_.bytes.size() ? static_cast<unsigned char>(file_.bytes[at + i]) : 0U;
            value = value << 8U | byte;
        }
        return value;
    }

    void read_header()
    {
        header_size_ = number(file_header_size, 4);
        const bool is_core = header_size_ == core_header_size;
        expect(is_core || header_size_ >= info_header_size, "its header is too short");
        const std::size_t side = is_core ? 2 : 4;
        layout_.width = static_cast<std::int32_t>(number(18, side));
        const auto height = static_cast<std::int32_t>(number(18 + side, side));
        expect(layout_.width > 0 && height != 0 && height > -max_frame_side - 2, "it has no pixels");
        is_upside_down_ = height > 0;
        layout_.height = std::abs(height);
        expect_possible_frame(file_.path, layout_.width, layout_.height);
        bits_ = static_cast<int>(number(20 + 2 * side, 2));
        compression_ = is_core ? Compression::none : number(30, 4);
        constexpr int depths[] = {1, 2, 4, 8, 16, 24, 32};
        const bool is_known = std::find(std::begin(depths), std::end(depths), bits_) != std::end(depths);
        const bool has_fields = compression_ == bit_fields || compression_ == alpha_bit_fields;
        if (!is_known || !(compression_ == none || (has_fields && bits_ > 8))) {
            throw FileError(file_.path, "is a compressed BMP file, or one of an unknown kind");
        }
    }

    void read_palette()
    {
        const std::size_t entry_size = header_size_ == core_header_size ? 3 : 4;
        const std::size_t begin = file_header_size + header_size_;
        layout_.palette.resize(256);
        for (std::size_t i = 0; i < std::size_t{1} << static_cast<unsigned>(bits_); ++i) {
            const std::uint32_t colour = number(begin + i * entry_size, 3);
            layout_.palette[i] = {static_cast<uchar>(colour >> 16U), static_cast<uchar>(colour >> 8U),
                                  static_cast<uchar>(colour)};
        }
    }

    /// Bit fields follow the shortest header and are part of longer ones: the place is the same.
    void read_fields()
    {
        layout_.colours = 3;
        fields_ = bits_ == 16 ? std::array<BitField, 4>{{{0x7c00}, {0x3e0}, {0x1f}, {}}}
                              : std::array<BitField, 4>{{{0xff0000}, {0xff00}, {0xff}, {}}};
        if (compression_ != none) {
            for (std::size_t i = 0; i < fields_.size(); ++i) {
                fields_[i].mask = number(file_header_size + info_header_size + 4 * i, 4);
            }
            if (header_size_ == info_header_size && compression_ == bit_fields) {
                fields_[3].mask = 0;
            }
        }
        layout_.has_alpha = fields_[3].mask != 0;
        expect(fields_[0].mask != 0 && fields_[1].mask != 0 && fields_[2].mask != 0, "a colour has no bits");
    }

    ImageBytes file_;
    std::uint32_t header_size_ = 0;
    int bits_ = 0;
    std::uint32_t compression_ = none;
    bool is_upside_down_ = true;
    std::array<BitField, 4> fields_ = {};
    std::size_t stride_ = 0;
    std::size_t begin_ = 0;
    int row_ = 0;
};

} // namespace

ImageDecoderPtr decode_bmp(const ImageBytes& file)
{
    return std::make_unique<BmpDecoder>(file);
}

} // namespace kivconvert
