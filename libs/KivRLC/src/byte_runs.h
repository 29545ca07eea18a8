// SPDX-License-Identifier: MIT
// The runs of non-zero bytes in rows of bytes. The bytes become words of 64 bits, and the places where neighbouring
// bits differ are where runs begin and end. A word without such a place costs one comparison.
#pragma once

#include "byte_words.h"
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

/// The bits of less than a word; those behind the last byte are background.
template <class Words>
std::uint64_t foreground_bits(const std::uint8_t* bytes, int count)
{
    std::uint8_t padded[word_pixels] = {};
    std::memcpy(padded, bytes, static_cast<std::size_t>(count));
    return Words::foreground_bits(padded);
}

/// Appends the runs of one row from `next` on, and returns where the runs after them go.
template <class Words, class Runs>
Run* append_row(const std::uint8_t* bytes, int row, int columns, RunRoom<Runs>& room, Run* next)
{
    RowEnd at{next, false};
    int x = 0;
    for (; columns - x >= word_pixels; x += word_pixels) {
        if (at.inside ? Words::is_foreground(bytes + x) : Words::is_background(bytes + x)) {
            continue;
        }
        at = with_word(Words::foreground_bits(bytes + x), row, x, at);
        at.next = room.with_room(at.next);
    }
    if (x < columns) {
        at = with_word(foreground_bits<Words>(bytes + x, columns - x), row, x, at);
    }
    if (at.inside) {
        at.next->colEnd = columns - 1;
        ++at.next;
    }
    return room.with_room(at.next);
}

/// Appends the maximal runs of the non-zero bytes of `rows` rows of `columns` bytes, the first of which is at `bytes`
/// and each other one `stride` bytes behind the one above. Rows come from top to bottom, the runs of one from left to
/// right. Words says how bytes are read, Runs is a vector of runs; if it finds no memory, it is left as it was.
template <class Words = NativeWords, class Runs>
void append_byte_runs(const std::uint8_t* bytes, std::ptrdiff_t stride, int columns, int rows, Runs& runs)
{
    RunRoom<Runs> room(runs);
    Run* next = room.begin();
    for (int row = 0; row < rows; ++row) {
        next = append_row<Words>(bytes + row * stride, row, columns, room, next);
    }
    room.keep(next);
}

} // namespace kivrlc
