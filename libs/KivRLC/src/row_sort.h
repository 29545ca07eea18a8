// SPDX-License-Identifier: MIT
// Stable sorts of runs. Rows are sorted by radix in base 256, from their lowest byte to the highest. A byte that all of
// them share needs no pass, so ordinary rows take two. Few runs are inserted instead, as a pass
// has a cost of its own.
#pragma once

#include "run_neighbours.h"

#include <KivRLC/KivRun.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace kivrlc
{

constexpr std::size_t few_to_sort = 32;

/// A stable sort of few runs, which takes no memory.
template <class Before>
void sort_few(Run* begin, Run* end, Before comes_before)
{
    for (Run* at = begin; at != end; ++at) {
        std::rotate(std::upper_bound(begin, at, *at, comes_before), at, at + 1);
    }
}

/// The row with its sign bit flipped: unsigned keys in the order of the signed rows.
inline std::uint32_t row_key(const Run& run)
{
    return static_cast<std::uint32_t>(run.row) ^ 0x80000000U;
}

/// One stable pass over the byte of the keys at `shift`, from `runs` into `sorted`, which is as long.
template <class Runs>
void sort_by_key_byte(const Runs& runs, int shift, Runs& sorted)
{
    const auto byte_of = [shift](const Run& run) { return (row_key(run) >> shift) & 0xFFU; };
    std::array<std::size_t, 257> starts{};
    for (const Run& run : runs) {
        ++starts[byte_of(run) + 1];
    }
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    for (const Run& run : runs) {
        sorted[starts[byte_of(run)]++] = run;
    }
}

/// Sorts a vector of runs by row; runs of one row keep their order. Linear.
template <class Runs>
void sort_by_row(Runs& runs)
{
    if (runs.size() < few_to_sort) {
        sort_few(runs.data(), runs.data() + runs.size(), [](const Run& a, const Run& b) { return a.row < b.row; });
        return;
    }
    std::uint32_t differing_bits = 0;
    for (const Run& run : runs) {
        differing_bits |= row_key(run) ^ row_key(runs.front());
    }
    Runs sorted(runs.size());
    for (int shift = 0; shift < 32; shift += 8) {
        if (((differing_bits >> shift) & 0xFFU) != 0) {
            sort_by_key_byte(runs, shift, sorted);
            runs.swap(sorted);
        }
    }
}

/// The same, and each row by first column.
template <class Runs>
void sort_by_row_and_column(Runs& runs)
{
    if (runs.size() < few_to_sort) {
        sort_few(runs.data(), runs.data() + runs.size(),
                 [](const Run& a, const Run& b) { return a.row != b.row ? a.row < b.row : a.colBegin < b.colBegin; });
        return;
    }
    sort_by_row(runs);
    const Run* const end = runs.data() + runs.size();
    for (Run* row = runs.data(); row != end;) {
        Run* const next_row = row + (end_of_row(row, end) - row);
        const auto begins_before = [](const Run& a, const Run& b) { return a.colBegin < b.colBegin; };
        if (!std::is_sorted(row, next_row, begins_before)) { // a sort asks for memory, even for one run
            std::stable_sort(row, next_row, begins_before);
        }
        row = next_row;
    }
}

} // namespace kivrlc
