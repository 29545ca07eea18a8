// SPDX-License-Identifier: MIT
#include "bit_rows.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

namespace
{

/// Whether there is an odd number of bits up to each place, it included.
std::uint64_t parities(std::uint64_t bits)
{
    for (int distance = 1; distance < kivrlc::word_pixels; distance *= 2) {
        bits ^= bits << distance;
    }
    return bits;
}

/// The bits of each quarter of a word, counted. Compilers do this to several words at once.
std::uint64_t bit_sums(std::uint64_t bits)
{
    bits -= bits >> 1 & 0x5555555555555555;
    bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
    bits = (bits + (bits >> 4)) & 0x0f0f0f0f0f0f0f0f;
    return (bits & 0x00ff00ff00ff00ff) + (bits >> 8 & 0x00ff00ff00ff00ff);
}

} // namespace

std::int64_t kivrlc::BitRows::touching_pairs(RowRuns above, RowRuns row)
{
    const std::int64_t first = first_column(above, row);
    const std::int64_t last = last_column(above, row);
    if (above.begin != drawn_ || first < first_ || last >= first_ + most_columns - margin) {
        start(first - margin);
        draw(above, last);
    }
    drawn_ = row.begin;
    return draw(row, last);
}

void kivrlc::BitRows::start(std::int64_t first)
{
    if (drawn_ == nullptr) {
        std::fill(std::begin(marks_), std::end(marks_), std::uint8_t{0});
    }
    std::fill(std::begin(begins_), std::end(begins_), 0);
    std::fill(std::begin(reached_), std::end(reached_), 0);
    inside_[0] = 0;
    first_ = first;
}

std::int64_t kivrlc::BitRows::draw(RowRuns row, std::int64_t last)
{
    std::for_each(row.begin, row.end, [marks = marks_, first = first_](const Run& run) {
        marks[run.colBegin - first] = 1;
        marks[run.colEnd - first + 1] = 1;
    });
    const auto words = static_cast<std::size_t>(last + 1 - first_) / word_pixels + 1;
    for (std::size_t i = 0; i < words; ++i) {
        // From a place where a run begins to the one behind its end, an odd number of places is marked.
        const std::uint64_t changes = NativeWords::foreground_bits(marks_ + i * word_pixels);
        inside_[i + 1] = parities(changes) ^ -(inside_[i] >> 63);
        std::memset(marks_ + i * word_pixels, 0, word_pixels);
    }
    std::uint64_t pairs = 0;
    for (std::size_t i = 0; i < words; ++i) {
        const std::uint64_t inside = inside_[i + 1];
        const std::uint64_t behind = inside << 1 | inside_[i] >> 63; // columns next to the right
        const std::uint64_t begins = inside & ~behind;
        const std::uint64_t reached = inside | (behind & by_corners_);
        pairs += bit_sums((begins & reached_[i]) | (begins_[i] & reached));
        begins_[i] = begins;
        reached_[i] = reached;
    }
    constexpr std::uint64_t add_up = 0x0001000100010001; // in the uppermost 16 bits
    return static_cast<std::int64_t>(pairs * add_up >> 48);
}
