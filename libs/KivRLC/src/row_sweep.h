// SPDX-License-Identifier: MIT
// The sweep over two sets that all set operations are. They differ in a truth table, for which the sweep is compiled.
//
// Rows that one set has alone are copied or left out. Rows of one run each, of which shapes have many, are combined
// without a loop.
#pragma once

#include "combine_row.h"
#include "run_neighbours.h"
#include "run_room.h"

#include <KivRLC/KivRunBuffer.h>
#include <KivRLC/KivRunLists.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kivrlc
{

/// What is known of lists before they are swept.
enum class Trust {
    canonical, // they are those of sets
    none,      // that is checked on the way, which costs less than to read them for it
};

/// Whether a run, none of which stand before it on its row, is the only one there.
inline bool is_alone(const Run* run, const Run* end)
{
    return run + 1 == end || run[1].row > run->row;
}

/// As many runs as a row may have whose end is not looked for before it is combined.
constexpr std::ptrdiff_t most_of_short_row = 24;

/// Whether a row has so few runs, and others follow; where rows do not ascend, whether it ends after so few at the
/// latest.
inline bool is_short_and_followed(const Run* run, const Run* end)
{
    return end - run > most_of_short_row && run[most_of_short_row].row > run->row;
}

/// The first run of the next row.
inline const Run* behind(FollowedRow row)
{
    while (row.left()) {
        ++row.begin;
    }
    return row.begin;
}

/// The first run of the next row. `canonical` becomes false if the runs up to there cannot be those of a set.
template <Trust trust>
[[gnu::always_inline]] inline const Run* end_of_row(const Run* run, const Run* end, bool& canonical)
{
    if constexpr (trust == Trust::canonical) {
        return end_of_row(run, end);
    }
    const int row = run->row;
    std::int64_t apart = run->colBegin; // the first column that does not touch the run before
    do {
        canonical &= (run->colBegin >= apart) & (run->colBegin <= run->colEnd);
        apart = std::int64_t{run->colEnd} + 2;
        ++run;
    } while (run != end && run->row == row);
    canonical &= run == end || run->row > row;
    return run;
}

/// The first run that does not lie above a row, where rows are moved down by `lower`.
template <Trust trust>
const Run* end_above(const Run* run, const Run* end, std::int64_t row, std::int64_t lower, bool& canonical)
{
    do {
        run = trust == Trust::canonical ? run + 1 : end_of_row<trust>(run, end, canonical);
    } while (run != end && run->row + lower < row);
    return run;
}

/// How far two lists have been combined.
struct Place {
    const Run* a;
    const Run* b;
    Run* out;
    bool canonical;
};

/// Combines a row of one run each, and the next ones for as long as these are such rows, too; `rows` at the most, where
/// both lists have as many runs left. Not inlined, as then it takes less time to combine rows of more runs.
template <TruthTable table, Trust trust>
[[gnu::noinline]] Place combine_single_runs(const Run* a, const Run* b, std::ptrdiff_t rows, std::int64_t lower,
                                            Run* out)
{
    bool canonical = true;
    do {
        canonical &= trust == Trust::canonical || (a->colBegin <= a->colEnd && b->colBegin <= b->colEnd);
        out = combine_two<table>(*a++, *b++, out);
    } while (--rows > 1 && a->row == b->row + lower && a[1].row > a->row && b[1].row > b->row);
    return {a, b, out, canonical};
}

constexpr std::ptrdiff_t most_rows_at_once = 64;

/// Combines rows whose ends are known. Not inlined, as what it keeps in registers would slow the others down.
template <TruthTable table>
[[gnu::noinline]] Run* combine_long(RowRuns a, RowRuns b, Run* out)
{
    return combine_row<table>(a, b, out);
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

/// Appends what the truth table says of two sets, the second of which is moved down by `lower` rows. If the lists turn
/// out not to be those of sets, which is the result, or if there is no memory, `runs` are left as they were.
template <TruthTable table, Trust trust = Trust::canonical, class Runs>
bool sweep(KivRunView as, KivRunView bs, Runs& runs, std::int64_t lower = 0)
{
    // Room for few runs at first: what becomes of these tells how many there will be.
    const std::size_t most = as.size() + bs.size();
    RunRoom<Runs> room(runs, std::min(most, most / 16 + 64) + row_slack);
    Run* out = room.begin();
    const Run* a = as.begin();
    const Run* b = bs.begin();
    bool canonical = true;
    const auto room_for = [&](std::ptrdiff_t more) {
        return room.with_room(out, static_cast<std::size_t>(more) + row_slack, [&] {
            return Progress{static_cast<std::size_t>((a - as.begin()) + (b - bs.begin())), most};
        });
    };
    while (canonical && a != as.end() && b != bs.end()) {
        const std::int64_t row_of_b = b->row + lower;
        if (a->row < row_of_b) {
            const Run* const end = end_above<trust>(a, as.end(), row_of_b, 0, canonical);
            out = copy_lower<table.only_a>(a, end, 0, table.only_a ? room_for(end - a) : out);
            a = end;
        } else if (row_of_b < a->row) {
            const Run* const end = end_above<trust>(b, bs.end(), a->row, lower, canonical);
            out = copy_lower<table.only_b>(b, end, lower, table.only_b ? room_for(end - b) : out);
            b = end;
        } else if (is_alone(a, as.end()) && is_alone(b, bs.end())) {
            const std::ptrdiff_t rows = std::min({as.end() - a, bs.end() - b, most_rows_at_once});
            const Place done = combine_single_runs<table, trust>(a, b, rows, lower, room_for(2 * rows));
            a = done.a;
            b = done.b;
            out = done.out;
            canonical &= done.canonical;
        } else if (is_short_and_followed(a, as.end()) && is_short_and_followed(b, bs.end())) {
            FollowedRow of_a{a};
            FollowedRow of_b{b};
            out = combine_row<table>(of_a, of_b, room_for(2 * most_of_short_row));
            a = trust == Trust::canonical ? behind(of_a) : end_of_row<trust>(a, as.end(), canonical);
            b = trust == Trust::canonical ? behind(of_b) : end_of_row<trust>(b, bs.end(), canonical);
        } else {
            const RowRuns of_a{a, end_of_row<trust>(a, as.end(), canonical)};
            const RowRuns of_b{b, end_of_row<trust>(b, bs.end(), canonical)};
            out = combine_long<table>(of_a, of_b, room_for((of_a.end - a) + (of_b.end - b)));
            a = of_a.end;
            b = of_b.end;
        }
    }
    const KivRunView rest_of_a(a, static_cast<std::size_t>(as.end() - a));
    const KivRunView rest_of_b(b, static_cast<std::size_t>(bs.end() - b));
    if (trust == Trust::none && !(canonical && KivRuns::IsCanonical(rest_of_a) && KivRuns::IsCanonical(rest_of_b))) {
        return false;
    }
    out = room_for((table.only_a ? as.end() - a : 0) + (table.only_b ? bs.end() - b : 0));
    out = copy_lower<table.only_a>(a, as.end(), 0, out);
    room.keep(copy_lower<table.only_b>(b, bs.end(), lower, out));
    return true;
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
