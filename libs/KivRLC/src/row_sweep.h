// SPDX-License-Identifier: MIT
// The sweep over two sets that all set operations are. They differ in a truth table, for which the sweep is compiled.
//
// Rows that one set has alone are copied or left out. Of a row that both have, what is quickest depends on how many
// runs there are: one and one, few, or so many that the row is better combined 64 pixels at a time (word_row.h).
#pragma once

#include "few_runs.h"
#include "run_neighbours.h"
#include "word_row.h"

#include <KivRLC/KivRunBuffer.h>

#include <algorithm>
#include <limits>

namespace kivrlc
{

/// How many runs a sweep may write beyond those that it makes.
inline constexpr std::size_t sweep_slack = WordWriter::slack;

/// Whether there are so many runs for their width that words are quicker.
inline bool is_dense(RowRuns a, RowRuns b)
{
    constexpr std::int64_t pixels_a_run = 24;
    const std::int64_t width =
        std::int64_t{std::max(a.end[-1].colEnd, b.end[-1].colEnd)} - std::min(a.begin->colBegin, b.begin->colBegin);
    return width < pixels_a_run * ((a.end - a.begin) + (b.end - b.begin));
}

template <TruthTable table>
Run* combine_row(RowRuns a, RowRuns b, Run* out)
{
    const std::ptrdiff_t runs = (a.end - a.begin) + (b.end - b.begin);
    return runs > 8 && is_dense(a, b) ? combine_words<table>(a, b, out) : combine_few<table>(a, b, out);
}

/// Whether a run, none of which stand before it on its row, is the only one there.
inline bool is_alone(const Run* run, const Run* end)
{
    return run + 1 == end || run[1].row != run->row;
}

/// Copies the runs above a row, if they are kept, moved down by some rows.
template <bool kept>
Run* copy_above(const Run*& run, const Run* end, std::int64_t row, std::int64_t lower, Run* out)
{
    do {
        if constexpr (kept) {
            *out++ = {static_cast<int>(run->row + lower), run->colBegin, run->colEnd};
        }
        ++run;
    } while (run != end && run->row + lower < row);
    return out;
}

/// Combines two sets, the second of which is moved down by `lower` rows. `out` has room for the runs of both and
/// sweep_slack more. Returns the end of the result.
template <TruthTable table>
Run* sweep(KivRunView as, KivRunView bs, Run* out, std::int64_t lower = 0)
{
    constexpr std::int64_t below_all = std::numeric_limits<std::int64_t>::max();
    const Run* a = as.begin();
    const Run* b = bs.begin();
    while (a != as.end() && b != bs.end()) {
        const std::int64_t row_of_b = b->row + lower;
        if (a->row < row_of_b) {
            out = copy_above<table.only_a>(a, as.end(), row_of_b, 0, out);
        } else if (row_of_b < a->row) {
            out = copy_above<table.only_b>(b, bs.end(), a->row, lower, out);
        } else if (is_alone(a, as.end()) && is_alone(b, bs.end())) {
            out = combine_two<table>(*a++, *b++, out);
        } else {
            const RowRuns of_a{a, end_of_row(a, as.end())};
            const RowRuns of_b{b, end_of_row(b, bs.end())};
            out = combine_row<table>(of_a, of_b, out);
            a = of_a.end;
            b = of_b.end;
        }
    }
    if constexpr (table.only_a) {
        out = std::copy(a, as.end(), out);
    }
    if constexpr (table.only_b) {
        out = b == bs.end() ? out : copy_above<true>(b, bs.end(), below_all, lower, out);
    }
    return out;
}

/// The same, as runs.
template <TruthTable table>
RunBuffer swept(KivRunView as, KivRunView bs, std::int64_t lower = 0)
{
    RunBuffer runs(as.size() + bs.size() + sweep_slack);
    const Run* const end = sweep<table>(as, bs, runs.data(), lower);
    runs.resize(static_cast<std::size_t>(end - runs.data()));
    return runs;
}

} // namespace kivrlc
