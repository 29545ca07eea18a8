// SPDX-License-Identifier: MIT
// PNG files, decoded by libpng.
#include "kivconvert/image_decoder.h"
#include "kivconvert/image_files.h"
#include "kivconvert/png_calls.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <new>
#include <png.h>

namespace kivconvert
{
namespace
{

void read_png_bytes(png_structp png, png_bytep to, std::size_t count)
{
    auto& rest = *static_cast<std::string_view*>(png_get_io_ptr(png));
    if (count > rest.size()) {
        png_error(png, "its end is missing");
    }
    std::memcpy(to, rest.data(), count);
    rest.remove_prefix(count);
}

/// libpng's two objects.
struct PngHandle {
    png_structp png = nullptr;
    png_infop info = nullptr;

    PngHandle() = default;
    PngHandle(const PngHandle&) = delete;
    PngHandle& operator=(const PngHandle&) = delete;
    ~PngHandle() { png_destroy_read_struct(&png, &info, nullptr); }
};

class PngDecoder final : public ImageDecoder
{
public:
    explicit PngDecoder(const ImageBytes& file) : file_(file), rest_(file.bytes)
    {
        handle_.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &complaint_, on_png_error, ignore_png_warning);
        handle_.info = handle_.png == nullptr ? nullptr : png_create_info_struct(handle_.png);
        if (handle_.info == nullptr) {
            throw std::bad_alloc();
        }
        read_header();
    }

    void read_row(std::uint8_t* row) override
    {
        std::uint8_t* const samples = indices_.empty() ? row : indices_.data();
        if (is_interlaced_) {
            read_interlaced(samples);
        } else {
            guarded([this, samples] { png_read_row(handle_.png, samples, nullptr); });
        }
        if (!indices_.empty()) {
            add_opacity(row);
        }
        if (++row_ == layout_.height) {
            guarded([this] { png_read_end(handle_.png, nullptr); });
        }
    }

private:
    template <class Calls>
    void guarded(const Calls& calls)
    {
        if (!all_succeed(handle_.png, calls)) {
            fail_decoding(file_, "PNG", complaint_.text.data());
        }
    }

    void read_header()
    {
        guarded([this] {
            png_set_read_fn(handle_.png, &rest_, read_png_bytes);
            png_set_user_limits(handle_.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX); // reported below in our words
            png_set_crc_action(handle_.png, PNG_CRC_ERROR_QUIT, PNG_CRC_ERROR_QUIT);
            png_read_info(handle_.png, handle_.info);
        });
        layout_.width = static_cast<int>(png_get_image_width(handle_.png, handle_.info));
        layout_.height = static_cast<int>(png_get_image_height(handle_.png, handle_.info));
        expect_possible_frame(file_.path, layout_.width, layout_.height);
        is_packed_ = png_get_bit_depth(handle_.png, handle_.info) < 8;
        is_interlaced_ = png_get_interlace_type(handle_.png, handle_.info) != PNG_INTERLACE_NONE;
        if (png_get_color_type(handle_.png, handle_.info) == PNG_COLOR_TYPE_PALETTE) {
            read_palette();
        }
        choose_samples();
        expect_possible_size();
    }

    /// Nothing is compressed to less than a 1032nd, so that a small file cannot claim much memory.
    void expect_possible_size() const
    {
        constexpr std::size_t best_ratio = 1032;
        const int bits = png_get_bit_depth(handle_.png, handle_.info) * png_get_channels(handle_.png, handle_.info);
        const std::size_t packed_bits = is_packed_ ? 1 : static_cast<std::size_t>(bits);
        const std::size_t pixels = static_cast<std::size_t>(layout_.width) * static_cast<std::size_t>(layout_.height);
        if (pixels / 8 * packed_bits / best_ratio > file_.bytes.size()) {
            fail_decoding(file_, "PNG", "pixels are missing");
        }
    }

    void choose_samples()
    {
        guarded([this] {
            png_set_packing(handle_.png);
            if (layout_.palette.empty()) {
                png_set_expand_gray_1_2_4_to_8(handle_.png);
                png_set_tRNS_to_alpha(handle_.png);
            }
            if (std::endian::native == std::endian::little) {
                png_set_swap(handle_.png);
            }
            png_set_interlace_handling(handle_.png);
            png_read_update_info(handle_.png, handle_.info);
        });
        const int type = png_get_color_type(handle_.png, handle_.info);
        layout_.depth = png_get_bit_depth(handle_.png, handle_.info) == 16 ? CV_16U : CV_8U;
        layout_.colours = layout_.palette.empty() && (type & PNG_COLOR_MASK_COLOR) != 0 ? 3 : 1;
        layout_.has_alpha = (type & PNG_COLOR_MASK_ALPHA) != 0 || !indices_.empty();
    }

    /// Indices are kept as they are. Where some of them are transparent, their opacity becomes a channel.
    void read_palette()
    {
        png_colorp colours = nullptr;
        int count = 0;
        png_get_PLTE(handle_.png, handle_.info, &colours, &count);
        layout_.palette.resize(opacities_.size());
        std::transform(colours, colours + count, layout_.palette.begin(),
                       [](const png_color& colour) { return cv::Vec3b(colour.red, colour.green, colour.blue); });
        png_bytep opacities = nullptr;
        if (png_get_tRNS(handle_.png, handle_.info, &opacities, &count, nullptr) != 0) {
            opacities_.fill(255);
            std::copy(opacities, opacities + count, opacities_.begin());
            indices_.resize(static_cast<std::size_t>(layout_.width));
        }
    }

    void add_opacity(std::uint8_t* row) const
    {
        for (const std::uint8_t index : indices_) {
            *row++ = index;
            *row++ = opacities_[index];
        }
    }

    /// The rows of an interlaced file are whole after the last one of its passes.
    void read_interlaced(std::uint8_t* row)
    {
        const std::size_t size = png_get_rowbytes(handle_.png, handle_.info);
        if (row_ == 0) {
            whole_.resize(size * static_cast<std::size_t>(layout_.height));
            rows_.resize(static_cast<std::size_t>(layout_.height));
            for (std::size_t i = 0; i < rows_.size(); ++i) {
                rows_[i] = whole_.data() + i * size;
            }
            guarded([this] { png_read_image(handle_.png, rows_.data()); });
        }
        std::memcpy(row, rows_[static_cast<std::size_t>(row_)], size);
    }

    ImageBytes file_;
    std::string_view rest_;
    PngComplaint complaint_;
    PngHandle handle_;
    bool is_interlaced_ = false;
    bool is_packed_ = false; ///< whether the file has several pixels in a byte
    int row_ = 0;
    std::array<std::uint8_t, 256> opacities_ = {};
    std::vector<std::uint8_t> indices_;
    std::vector<std::uint8_t> whole_;
    std::vector<png_bytep> rows_;
};

} // namespace

ImageDecoderPtr decode_png(const ImageBytes& file)
{
    return std::make_unique<PngDecoder>(file);
}

} // namespace kivconvert
