// SPDX-License-Identifier: MIT
// The runs of the foreground in rows of pixels. The pixels become words of 64 bits, and the places where neighbouring
// bits differ are where runs begin and end. A word of bytes without such a place costs one comparison.
#pragma once

#include "byte_words.h"
#include "common/fetch_ahead.h"
#include "run_room.h"

#include <KivRLC/KivRun.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kivrlc
{

/// Where the runs of a row go, between two of its words.
struct RowEnd {
    Run* next;   ///< where the next run goes; the run that is not at its end yet is there already
    bool inside; ///< whether there is such a run: the last pixel is foreground
};

/// Adds the runs of a word whose first pixel is column x.
inline RowEnd with_word(std::uint64_t bits, int row, int x, RowEnd at)
{
    std::uint64_t changes = bits ^ (bits << 1 | std::uint64_t{at.inside});
    const auto taken_column = [&changes, x] {
        const int column = x + std::countr_zero(changes);
        changes &= changes - 1;
        return column;
    };
    while (changes != 0) {
        if (at.inside) {
            at.next->colEnd = taken_column() - 1;
            ++at.next;
            at.inside = false;
            if (changes == 0) {
                break;
            }
        }
        at.next->row = row;
        at.next->colBegin = taken_column();
        at.inside = true;
    }
    return at;
}

/// A row of bytes, whose foreground is what is not 0. Words says how they are read.
template <class Words>
struct ByteRow {
    const std::uint8_t* bytes;

    /// Asks for what comes some way behind the word whose first pixel is column x.
    void fetch_ahead(int x) const { kivcommon::fetch_ahead(bytes + x, word_pixels); }

    /// Whether the word whose first pixel is column x is nothing but foreground, or nothing but background.
    bool is_all(bool foreground, int x) const
    {
        return foreground ? Words::is_foreground(bytes + x) : Words::is_background(bytes + x);
    }

    /// The bits of the word whose first pixel is column x.
    std::uint64_t word(int x) const { return Words::foreground_bits(bytes + x); }

    /// The bits of less than a word; those behind the last pixel are background.
    std::uint64_t word(int x, int count) const
    {
        std::uint8_t padded[word_pixels] = {};
        std::memcpy(padded, bytes + x, static_cast<std::size_t>(count));
        return Words::foreground_bits(padded);
    }
};

/// A word has at most 32 runs beside the one that reaches into it; that one and the first one behind the word take two
/// places more.
inline constexpr std::size_t word_runs = word_pixels / 2 + 2;

/// The first column from x on, word by word, with a word that is not all foreground, or all background; where no word
/// is left, the first column behind all words.
template <class Pixels>
int first_mixed_word(const Pixels& pixels, bool foreground, int x, int columns)
{
    while (columns - x >= word_pixels) {
        pixels.fetch_ahead(x);
        if (!pixels.is_all(foreground, x)) {
            break;
        }
        x += word_pixels;
    }
    return x;
}

/// Appends the maximal runs of the foreground of `rows` rows of `columns` pixels, which row_at(0) and so on are. Rows
/// come from top to bottom, the runs of one from left to right. Runs is a vector of runs; if it finds no memory, it is
/// left as it was.
template <class RowAt, class Runs>
void append_rows(const RowAt& row_at, int columns, int rows, Runs& runs)
{
    RunRoom<Runs> room(runs, 2 * word_runs);
    RowEnd at{room.begin(), false};
    for (int row = 0; row < rows; ++row) {
        const auto make_room = [&] {
            at.next = room.with_room(at.next, word_runs, [&] {
                return Progress{static_cast<std::size_t>(row) + 1, static_cast<std::size_t>(rows)};
            });
        };
        const auto pixels = row_at(row);
        int x = 0;
        while ((x = first_mixed_word(pixels, at.inside, x, columns)) <= columns - word_pixels) {
            at = with_word(pixels.word(x), row, x, at);
            make_room();
            x += word_pixels;
        }
        if (x < columns) {
            at = with_word(pixels.word(x, columns - x), row, x, at);
        }
        if (at.inside) {
            at.next->colEnd = columns - 1;
            at = {at.next + 1, false};
        }
        make_room();
    }
    room.keep(at.next);
}

/// The same of bytes, the first of which is at `bytes` and each other row `stride` bytes behind the one above.
template <class Words = NativeWords, class Runs>
void append_byte_runs(const std::uint8_t* bytes, std::ptrdiff_t stride, int columns, int rows, Runs& runs)
{
    append_rows([bytes, stride](int row) { return ByteRow<Words>{bytes + row * stride}; }, columns, rows, runs);
}

} // namespace kivrlc
