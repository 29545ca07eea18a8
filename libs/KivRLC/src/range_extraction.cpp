// SPDX-License-Identifier: MIT
// Runs from ranges of values, 64 pixels at a time: which of them are in the range becomes one 64-bit word, and where
// neighbouring bits differ runs begin and end. The comparisons are written so that compilers vectorise them.
#include "image_rows.h"
#include "run_set_access.h"

#include <KivRLC/KivRunImages.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace
{

constexpr int pixels_in_word = 64;

/// 64 bytes that are 0 or 255 as bits.
using ByteFlags = std::array<std::uint8_t, pixels_in_word>;

std::uint64_t bits_of(const ByteFlags& flags)
{
    std::uint64_t bits = 0;
#if defined(__SSE2__)
    for (std::size_t i = 0; i < flags.size(); i += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(&flags[i]));
        bits |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(bytes))} << i;
    }
#else
    for (std::size_t i = 0; i < flags.size(); ++i) {
        bits |= std::uint64_t{flags[i] & 1U} << i;
    }
#endif
    return bits;
}

/// The range of values from `least` to `greatest`.
template <class Pixel>
struct ValueRange {
    Pixel least;
    Pixel greatest;

    std::uint64_t bits(const unsigned char* bytes) const
    {
        std::array<Pixel, pixels_in_word> pixels;
        std::memcpy(pixels.data(), bytes, sizeof(pixels));
        ByteFlags flags;
        for (std::size_t i = 0; i < flags.size(); ++i) {
            const int inside = static_cast<int>(least <= pixels[i]) & static_cast<int>(pixels[i] <= greatest);
            flags[i] = static_cast<std::uint8_t>(-inside);
        }
        return bits_of(flags);
    }

    /// The same of fewer pixels.
    std::uint64_t bits(const unsigned char* bytes, int count) const
    {
        std::array<unsigned char, pixels_in_word * sizeof(Pixel)> padded{};
        std::memcpy(padded.data(), bytes, static_cast<std::size_t>(count) * sizeof(Pixel));
        return bits(padded.data()) & ((std::uint64_t{1} << count) - 1);
    }
};

/// Appends the runs of one row.
class RowAppender
{
public:
    RowAppender(int row, kivrlc::RunBuffer& runs) : row_(row), runs_(runs) {}

    /// The bits of the pixels from `first` on.
    void append(std::uint64_t bits, int first)
    {
        std::uint64_t changes = bits ^ (bits << 1 | static_cast<std::uint64_t>(inside_));
        for (; changes != 0; changes &= changes - 1) {
            change(first + std::countr_zero(changes));
        }
    }

    void end(int width)
    {
        if (inside_) {
            change(width);
        }
    }

private:
    void change(int column)
    {
        if (inside_) {
            runs_.push_back({row_, begin_, column - 1});
        }
        begin_ = column;
        inside_ = !inside_;
    }

    int row_;
    kivrlc::RunBuffer& runs_;
    bool inside_ = false;
    int begin_ = 0;
};

template <class Pixel>
KivRunSet set_in_range(const KivImageView<const Pixel>& image, ValueRange<Pixel> range)
{
    kivrlc::check_image(image);
    kivrlc::RunBuffer runs;
    for (int y = 0; y < image.height; ++y) {
        RowAppender row(y, runs);
        const int left_over = image.width % pixels_in_word;
        int x = 0;
        for (; x < image.width - left_over; x += pixels_in_word) {
            row.append(range.bits(kivrlc::bytes_of(image, x, y)), x);
        }
        if (left_over > 0) {
            row.append(range.bits(kivrlc::bytes_of(image, x, y), left_over), x);
        }
        row.end(image.width);
    }
    return kivrlc::set_of_canonical(std::move(runs));
}

} // namespace

KivRunSet KivRuns::FromMask(const KivImageView<const std::uint8_t>& mask)
{
    return FromRange(mask, 1, std::numeric_limits<std::uint8_t>::max());
}

KivRunSet KivRuns::FromRange(const KivImageView<const std::uint8_t>& image, std::uint8_t least, std::uint8_t greatest)
{
    return set_in_range(image, ValueRange<std::uint8_t>{least, greatest});
}

KivRunSet KivRuns::FromRange(const KivImageView<const std::uint16_t>& image, std::uint16_t least,
                             std::uint16_t greatest)
{
    return set_in_range(image, ValueRange<std::uint16_t>{least, greatest});
}

KivRunSet KivRuns::FromRange(const KivImageView<const float>& image, float least, float greatest)
{
    return set_in_range(image, ValueRange<float>{least, greatest});
}
