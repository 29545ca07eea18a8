// SPDX-License-Identifier: MIT
// The sweep over two sets that all set operations are. They differ in a truth table, for which the sweep is compiled.
//
// Rows that one set has alone are copied or left out. Of a row that both have, what is quickest depends on how many
// runs there are: one and one, few, or so many that the row is better combined 64 pixels at a time (word_row.h).
#pragma once

#include "few_runs.h"
#include "run_neighbours.h"
#include "run_room.h"
#include "word_row.h"

#include <KivRLC/KivRunBuffer.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kivrlc
{

/// How many runs a row may write beyond those that it makes.
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

/// The first run that does not lie above a row, where rows are moved down by `lower`.
inline const Run* end_above(const Run* run, const Run* end, std::int64_t row, std::int64_t lower)
{
    do {
        ++run;
    } while (run != end && run->row + lower < row);
    return run;
}

/// Copies runs, if they are kept, moved down by some rows.
template <bool kept>
Run* copy_lower(const Run* run, const Run* end, std::int64_t lower, Run* out)
{
    if constexpr (kept) {
        out = std::transform(run, end, out, [lower](const Run& it) {
            return Run{static_cast<int>(it.row + lower), it.colBegin, it.colEnd};
        });
    }
    return out;
}

/// Appends what the truth table says of two sets, the second of which is moved down by `lower` rows. If there is no
/// memory for it, `runs` are left as they were.
template <TruthTable table, class Runs>
void sweep(KivRunView as, KivRunView bs, Runs& runs, std::int64_t lower = 0)
{
    // Room for few runs at first: what becomes of these tells how many there will be.
    const std::size_t most = as.size() + bs.size();
    RunRoom<Runs> room(runs, std::min(most, most / 16 + 64) + sweep_slack);
    Run* out = room.begin();
    const Run* a = as.begin();
    const Run* b = bs.begin();
    const auto room_for = [&](std::ptrdiff_t more) {
        return room.with_room(out, static_cast<std::size_t>(more) + sweep_slack, [&] {
            return Progress{static_cast<std::size_t>((a - as.begin()) + (b - bs.begin())), most};
        });
    };
    while (a != as.end() && b != bs.end()) {
        const std::int64_t row_of_b = b->row + lower;
        if (a->row < row_of_b) {
            const Run* const end = end_above(a, as.end(), row_of_b, 0);
            out = copy_lower<table.only_a>(a, end, 0, table.only_a ? room_for(end - a) : out);
            a = end;
        } else if (row_of_b < a->row) {
            const Run* const end = end_above(b, bs.end(), a->row, lower);
            out = copy_lower<table.only_b>(b, end, lower, table.only_b ? room_for(end - b) : out);
            b = end;
        } else if (is_alone(a, as.end()) && is_alone(b, bs.end())) {
            out = combine_two<table>(*a++, *b++, room_for(2));
        } else {
            const RowRuns of_a{a, end_of_row(a, as.end())};
            const RowRuns of_b{b, end_of_row(b, bs.end())};
            out = combine_row<table>(of_a, of_b, room_for((of_a.end - a) + (of_b.end - b)));
            a = of_a.end;
            b = of_b.end;
        }
    }
    out = room_for((table.only_a ? as.end() - a : 0) + (table.only_b ? bs.end() - b : 0));
    out = copy_lower<table.only_a>(a, as.end(), 0, out);
    room.keep(copy_lower<table.only_b>(b, bs.end(), lower, out));
}

/// The same, as runs.
template <TruthTable table>
RunBuffer swept(KivRunView as, KivRunView bs, std::int64_t lower = 0)
{
    RunBuffer runs;
    sweep<table>(as, bs, runs, lower);
    return runs;
}

} // namespace kivrlc
