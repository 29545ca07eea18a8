// SPDX-License-Identifier: MIT
// Rows of many short runs, combined 64 pixels at a time and without a branch for each run.
#pragma once

#include "truth_table.h"

#include <KivRLC/KivRun.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace kivrlc
{

/// The runs of one row.
struct RowRuns {
    const Run* begin;
    const Run* end;
};

/// Reads the runs of a row as bits, a block of words at a time.
///
/// A run is a difference of powers of two: that of the pixel behind its end, less that of its first one. So a word is
/// what stops in it less what begins in it, less one if a run reaches into it from the left, which one does, or seems
/// to, if the last pixel of the word before is set: a run that ends there stops at the first pixel of this word.
class WordBlock
{
public:
    static constexpr std::int64_t words = 64;
    static constexpr std::int64_t pixels = 64 * words;

    explicit WordBlock(RowRuns runs) : runs_(runs) {}

    /// Reads `count` words, the first of which begins at pixel `first`, where the words before ended.
    void read(std::int64_t first, std::int64_t count)
    {
        std::fill_n(begins_.begin(), count, 0);
        std::fill_n(stops_.begin(), count, 0);
        const std::int64_t last = first + 64 * count - 1;
        if (cut_ && runs_.begin->colEnd < last) {
            set(stops_, runs_.begin++->colEnd + 1 - first);
            cut_ = false;
        }
        for (; runs_.begin != runs_.end && runs_.begin->colEnd < last; ++runs_.begin) {
            set(begins_, runs_.begin->colBegin - first);
            set(stops_, runs_.begin->colEnd + 1 - first);
        }
        if (!cut_ && runs_.begin != runs_.end && runs_.begin->colBegin <= last) {
            set(begins_, runs_.begin->colBegin - first);
            cut_ = true;
        }
    }

    /// The next word, which is number i.
    std::uint64_t word(std::int64_t i)
    {
        const auto at = static_cast<std::size_t>(i);
        last_ = stops_[at] - begins_[at] - (last_ >> 63);
        return last_;
    }

private:
    using Bits = std::array<std::uint64_t, words>;

    static void set(Bits& bits, std::int64_t pixel)
    {
        bits[static_cast<std::size_t>(pixel >> 6)] |= std::uint64_t{1} << (pixel & 63);
    }

    RowRuns runs_;
    bool cut_ = false; // the first of the runs left began in a block before
    std::uint64_t last_ = 0;
    Bits begins_;
    Bits stops_;
};

/// Writes the runs of a row from words of bits. May write, but not count, `slack` runs more.
class WordWriter
{
public:
    static constexpr std::size_t slack = 4;

    WordWriter(int row, Run* out) : row_(row), out_(out), ends_(out) {}

    void write(std::uint64_t word, std::int64_t first)
    {
        const std::uint64_t before = word << 1 | last_;
        std::uint64_t begins = word & ~before;
        std::uint64_t stops = before & ~word;
        last_ = word >> 63;
        while (begins != 0) {
            begins = write_begins(begins, first);
        }
        while (stops != 0) {
            stops = write_ends(stops, first - 1);
        }
    }

    Run* end() const { return out_; }

private:
    std::uint64_t write_begins(std::uint64_t bits, std::int64_t first)
    {
        for (int i = 0; i < 2; ++i) {
            out_->row = row_;
            out_->colBegin = static_cast<int>(first + std::countr_zero(bits));
            out_ += bits != 0;
            bits &= bits - 1;
        }
        return bits;
    }

    std::uint64_t write_ends(std::uint64_t bits, std::int64_t first)
    {
        for (int i = 0; i < 2; ++i) {
            ends_->colEnd = static_cast<int>(first + std::countr_zero(bits));
            ends_ += bits != 0;
            bits &= bits - 1;
        }
        return bits;
    }

    int row_;
    Run* out_;  // the next run to begin
    Run* ends_; // the next run to end
    std::uint64_t last_ = 0;
};

template <TruthTable table>
Run* combine_words(RowRuns a, RowRuns b, Run* out)
{
    std::int64_t first = std::min(a.begin->colBegin, b.begin->colBegin);
    const std::int64_t stop = std::int64_t{std::max(a.end[-1].colEnd, b.end[-1].colEnd)} + 2;
    WordWriter writer(a.begin->row, out);
    WordBlock block_a(a);
    WordBlock block_b(b);
    for (; first < stop; first += WordBlock::pixels) {
        const std::int64_t words = std::min(WordBlock::words, (stop - first + 63) / 64);
        block_a.read(first, words);
        block_b.read(first, words);
        for (std::int64_t i = 0; i < words; ++i) {
            const std::uint64_t word_a = block_a.word(i);
            writer.write(table(word_a, block_b.word(i)), first + 64 * i);
        }
    }
    return writer.end();
}

} // namespace kivrlc
