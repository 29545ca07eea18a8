// SPDX-License-Identifier: MIT
// PBM, PGM and PPM files, as text and as bytes. The library for them ends the program when a file is malformed.
#include "kivconvert/errors.h"
#include "kivconvert/image_decoder.h"
#include "kivconvert/image_files.h"

#include <algorithm>
#include <cstring>
#include <fmt/format.h>
#include <limits>

namespace kivconvert
{
namespace
{

constexpr std::string_view white_space = " \t\n\v\f\r";

class PnmDecoder final : public ImageDecoder
{
public:
    explicit PnmDecoder(const ImageBytes& file) : file_(file), rest_(file.bytes.substr(2))
    {
        const char kind = file.bytes[1];
        is_text_ = kind <= '3';
        is_bitmap_ = kind == '1' || kind == '4';
        layout_.colours = kind == '3' || kind == '6' ? 3 : 1;
        layout_.width = static_cast<int>(read_number());
        layout_.height = static_cast<int>(read_number());
        expect(layout_.width > 0 && layout_.height > 0, "it has no pixels");
        expect_possible_frame(file_.path, layout_.width, layout_.height);
        const std::uint32_t largest = is_bitmap_ ? 1 : read_number();
        expect(largest >= 1 && largest <= std::numeric_limits<std::uint16_t>::max(), "its largest value is impossible");
        layout_.depth = largest > std::numeric_limits<std::uint8_t>::max() ? CV_16U : CV_8U;
        take(1);
        expect(rest_.size() >= least_size() * static_cast<std::size_t>(layout_.height), "pixels are missing");
    }

    void read_row(std::uint8_t* row) override
    {
        if (is_text_) {
            read_text(row);
        } else if (is_bitmap_) {
            read_bits(row);
        } else {
            read_bytes(row);
        }
        if (++row_ == layout_.height && rest_.find_first_not_of(white_space) != rest_.npos) {
            throw FileError(file_.path, "goes on behind its pixels; files of several images are not taken");
        }
    }

private:
    void expect(bool condition, const char* complaint) const
    {
        if (!condition) {
            fail_decoding(file_, "PNM", complaint);
        }
    }

    /// Of a row, in bytes.
    std::size_t least_size() const
    {
        const std::size_t deep = layout_.depth == CV_16U && !is_text_ ? 2 : 1;
        return is_bitmap_ && !is_text_ ? (samples() + 7) / 8 : samples() * deep;
    }

    std::size_t samples() const { return static_cast<std::size_t>(layout_.width * layout_.colours); }

    /// White space, and comments to the ends of their lines.
    void skip_space()
    {
        while (!rest_.empty() && (rest_.front() == '#' || white_space.find(rest_.front()) != rest_.npos)) {
            const std::size_t size = rest_.front() == '#' ? rest_.find('\n') : 1;
            rest_.remove_prefix(std::min(size, rest_.size()));
        }
    }

    int digit() const { return rest_.empty() || rest_[0] < '0' || rest_[0] > '9' ? -1 : rest_[0] - '0'; }

    /// A number that begins behind white space; large ones become some large number.
    std::uint32_t read_number()
    {
        constexpr std::uint32_t large = 100'000'000;
        skip_space();
        expect(digit() >= 0, "a number is missing");
        std::uint32_t value = 0;
        for (; digit() >= 0; rest_.remove_prefix(1)) {
            value = std::min(value, large) * 10 + static_cast<std::uint32_t>(digit());
        }
        return value;
    }

    /// The digits of bitmaps need no space between them.
    std::uint32_t read_bit()
    {
        skip_space();
        expect(digit() == 0 || digit() == 1, "a pixel is neither 0 nor 1");
        const bool is_black = digit() == 1;
        rest_.remove_prefix(1);
        return is_black ? 0 : 255;
    }

    void read_text(std::uint8_t* row)
    {
        const std::uint32_t most = layout_.depth == CV_8U ? 255 : 65535;
        for (std::size_t i = 0; i < samples(); ++i) {
            const std::uint32_t value = is_bitmap_ ? read_bit() : read_number();
            expect(value <= most, "a value is too large");
            if (layout_.depth == CV_8U) {
                row[i] = static_cast<std::uint8_t>(value);
            } else {
                reinterpret_cast<std::uint16_t*>(row)[i] = static_cast<std::uint16_t>(value);
            }
        }
    }

    std::string_view take(std::size_t size)
    {
        expect(size <= rest_.size(), "pixels are missing");
        const std::string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }

    /// 1 is black.
    void read_bits(std::uint8_t* row)
    {
        const std::string_view bytes = take((samples() + 7) / 8);
        for (std::size_t i = 0; i < samples(); ++i) {
            const bool is_black = (static_cast<unsigned char>(bytes[i / 8]) >> (7 - i % 8) & 1U) != 0;
            row[i] = is_black ? 0 : 255;
        }
    }

    /// Values of two bytes have the higher one first.
    void read_bytes(std::uint8_t* row)
    {
        if (layout_.depth == CV_8U) {
            std::memcpy(row, take(samples()).data(), samples());
            return;
        }
        const std::string_view bytes = take(2 * samples());
        const auto byte = [bytes](std::size_t at) -> unsigned { return static_cast<unsigned char>(bytes[at]); };
        for (std::size_t i = 0; i < samples(); ++i) {
            reinterpret_cast<std::uint16_t*>(row)[i] = static_cast<std::uint16_t>(byte(2 * i) << 8U | byte(2 * i + 1));
        }
    }

    ImageBytes file_;
    std::string_view rest_;
    bool is_text_ = false;
    bool is_bitmap_ = false;
    int row_ = 0;
};

} // namespace

ImageDecoderPtr decode_pnm(const ImageBytes& file)
{
    return std::make_unique<PnmDecoder>(file);
}

} // namespace kivconvert
