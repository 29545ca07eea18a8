// SPDX-License-Identifier: MIT
// Runs from ranges of values. Pixels of one byte are read like mask bytes. 64 others at a time become bytes that say
// which of them are in the range, by comparisons that compilers vectorise.
#include "byte_runs.h"
#include "image_rows.h"
#include "run_set_access.h"

#include <KivRLC/KivRunImages.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

namespace
{

using kivrlc::word_pixels;

/// A row of pixels, whose foreground are the values from `least` to `greatest`.
template <class Pixel>
struct RangeRow {
    const unsigned char* bytes;
    Pixel least;
    Pixel greatest;

    void fetch_ahead(int x) const { kivcommon::fetch_ahead(bytes_from(x), word_pixels * sizeof(Pixel)); }

    bool is_all(bool foreground, int x) const
    {
        if constexpr (is_of_bytes) {
            return foreground ? Words::is_background(bytes + x, beyond()) : Words::is_foreground(bytes + x, beyond());
        } else {
            return false; // finding out costs as much as the word does
        }
    }

    /// Of integers by one comparison, since all values less than `least` wrap round to large ones.
    bool inside(Pixel value) const
    {
        if constexpr (std::is_integral_v<Pixel>) {
            return static_cast<Pixel>(value - least) <= static_cast<Pixel>(greatest - least);
        } else {
            return (static_cast<int>(least <= value) & static_cast<int>(value <= greatest)) != 0;
        }
    }

    std::uint64_t word(int x) const
    {
        if constexpr (is_of_bytes) {
            return ~Words::foreground_bits(bytes + x, beyond());
        } else {
            Pixel pixels[word_pixels];
            std::memcpy(pixels, bytes_from(x), sizeof(pixels));
            std::uint8_t flags[word_pixels];
            for (int i = 0; i < word_pixels; ++i) {
                flags[i] = static_cast<std::uint8_t>(inside(pixels[i]));
            }
            return Words::foreground_bits(flags);
        }
    }

    std::uint64_t word(int x, int count) const
    {
        unsigned char padded[word_pixels * sizeof(Pixel)] = {};
        std::memcpy(padded, bytes_from(x), static_cast<std::size_t>(count) * sizeof(Pixel));
        return RangeRow{padded, least, greatest}.word(0) & ((std::uint64_t{1} << count) - 1);
    }

private:
    const unsigned char* bytes_from(int x) const { return bytes + x * static_cast<std::ptrdiff_t>(sizeof(Pixel)); }

    using Words = kivrlc::NativeWords;
    static constexpr bool is_of_bytes = sizeof(Pixel) == 1;

    auto beyond() const { return Words::BytesBeyond{least, static_cast<std::uint8_t>(greatest - least)}; }
};

template <class Pixel>
KivRunSet set_in_range(const KivImageView<const Pixel>& image, Pixel least, Pixel greatest)
{
    kivrlc::check_image(image);
    if (!(least <= greatest)) {
        return {};
    }
    kivrlc::RunBuffer runs;
    kivrlc::append_rows(
        [&](int row) {
            return RangeRow<Pixel>{kivrlc::bytes_of(image, 0, row), least, greatest};
        },
        image.width, image.height, runs);
    return kivrlc::set_of_canonical(std::move(runs));
}

} // namespace

KivRunSet KivRuns::FromMask(const KivImageView<const std::uint8_t>& mask)
{
    kivrlc::check_image(mask);
    kivrlc::RunBuffer runs;
    kivrlc::append_byte_runs(mask.pixels, mask.stride, mask.width, mask.height, runs);
    return kivrlc::set_of_canonical(std::move(runs));
}

KivRunSet KivRuns::FromRange(const KivImageView<const std::uint8_t>& image, std::uint8_t least, std::uint8_t greatest)
{
    return set_in_range(image, least, greatest);
}

KivRunSet KivRuns::FromRange(const KivImageView<const std::uint16_t>& image, std::uint16_t least,
                             std::uint16_t greatest)
{
    return set_in_range(image, least, greatest);
}

KivRunSet KivRuns::FromRange(const KivImageView<const float>& image, float least, float greatest)
{
    return set_in_range(image, least, greatest);
}
