// SPDX-License-Identifier: MIT
// Pixels are put in the order of their columns by counting sorts over 16 bits each, the lower ones first: two of them
// where the set is wider than that, one otherwise, with no more counters than there are columns.
#include "run_transpose.h"
#include "common/checked_count.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace
{

using kivrlc::RunBuffer;

constexpr unsigned sorted_bits = 16;
constexpr std::uint32_t sorted_values = 1U << sorted_bits;

RunBuffer transposed_pixels(const KivRunSet& set)
{
    RunBuffer pixels(kivcommon::checked_count<Run>(set.Area()));
    auto out = pixels.begin();
    for (const Run& run : set.Runs()) {
        for (std::int64_t x = run.colBegin; x <= run.colEnd; ++x) {
            *out++ = {static_cast<int>(x), run.row, run.row};
        }
    }
    return pixels;
}

/// Sorts by 16 bits of row - first, keeping the order of those that are alike. `last` is the greatest row - first.
RunBuffer sorted_by_digit(const RunBuffer& pixels, int first, std::uint32_t last, unsigned shift)
{
    const auto digit = [first, shift](const Run& pixel) {
        return (static_cast<std::uint32_t>(pixel.row) - static_cast<std::uint32_t>(first)) >> shift &
               (sorted_values - 1);
    };
    std::vector<std::size_t> places(std::min(last >> shift, sorted_values - 1) + std::size_t{2});
    for (const Run& pixel : pixels) {
        ++places[digit(pixel) + 1];
    }
    for (std::size_t i = 1; i < places.size(); ++i) {
        places[i] += places[i - 1];
    }
    RunBuffer sorted(pixels.size());
    for (const Run& pixel : pixels) {
        sorted[places[digit(pixel)]++] = pixel;
    }
    return sorted;
}

} // namespace

kivrlc::RunBuffer kivrlc::pixels_by_column(const KivRunSet& set)
{
    RunBuffer pixels = transposed_pixels(set);
    if (pixels.empty()) {
        return pixels;
    }
    const auto [least, greatest] =
        std::minmax_element(pixels.begin(), pixels.end(), [](const Run& a, const Run& b) { return a.row < b.row; });
    const int first = least->row;
    const std::uint32_t last = static_cast<std::uint32_t>(greatest->row) - static_cast<std::uint32_t>(first);
    pixels = sorted_by_digit(pixels, first, last, 0);
    return last < sorted_values ? std::move(pixels) : sorted_by_digit(pixels, first, last, sorted_bits);
}
