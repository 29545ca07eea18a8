// SPDX-License-Identifier: MIT
// Two rows of runs combined: they are walked side by side, in the order in which their runs end or begin.
#pragma once

#include "truth_table.h"

#include <KivRLC/KivRun.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kivrlc
{

/// The runs of one row.
struct RowRuns {
    const Run* begin;
    const Run* end;

    bool left() const { return begin != end; }
};

/// The runs of a row that others follow, so that it goes on up to a run of another one: where it ends need not be
/// known.
struct FollowedRow {
    const Run* begin;
    int row = begin->row;

    bool left() const { return begin->row == row; }
};

/// How many runs a row may write beyond those that it makes.
inline constexpr std::size_t row_slack = 2;

inline Run* put(const Run& run, bool kept, Run* out)
{
    *out = run;
    return out + (kept ? 1 : 0);
}

/// One of two numbers, by arithmetic, where compilers would make a branch of ?:.
inline std::int64_t chosen(bool first, std::int64_t a, std::int64_t b)
{
    const std::int64_t mask = -std::int64_t{first};
    return (a & mask) | (b & ~mask);
}

/// Whether both rows have runs left; as one question, as which of them ends first can hardly be guessed either.
inline bool both_left(RowRuns a, RowRuns b)
{
    return (static_cast<int>(a.left()) & static_cast<int>(b.left())) != 0;
}

/// Calls `visit(a, b, a_goes_first)` with the first run that either row has left, until one row has none. Then the run
/// whose edge comes first leaves its row. Inlined, or what the visitor changes would be kept in memory.
///
/// In rows of few runs, these often take turns, which can be guessed, and to guess costs less than to wait for numbers.
template <int Run::*edge, class Visit>
[[gnu::always_inline]] inline void walk(FollowedRow& a, FollowedRow& b, Visit visit)
{
    for (;;) {
        if (a.begin->*edge <= b.begin->*edge) {
            visit(*a.begin, *b.begin, true);
            ++a.begin;
            if (!a.left()) {
                return;
            }
        } else {
            visit(*a.begin, *b.begin, false);
            ++b.begin;
            if (!b.left()) {
                return;
            }
        }
    }
}

/// The same in rows that may have many runs, or none. Which of two runs goes first can hardly be guessed there, so that
/// it decides about numbers, not about a branch.
template <int Run::*edge, class Visit>
[[gnu::always_inline]] inline void walk(RowRuns& a, RowRuns& b, Visit visit)
{
    const auto step = [&](bool a_goes_first) {
        visit(*a.begin, *b.begin, a_goes_first);
        a.begin += a_goes_first ? 1 : 0;
        b.begin += a_goes_first ? 0 : 1;
    };
    constexpr std::ptrdiff_t many = 16;
    if (std::min(a.end - a.begin, b.end - b.begin) >= many) {
        // Both next edges are read before it is known which of them is needed, or each step would wait for memory.
        int edge_a = a.begin->*edge;
        int edge_b = b.begin->*edge;
        do {
            const int next_edge_a = a.begin[1].*edge;
            const int next_edge_b = b.begin[1].*edge;
            const bool a_goes_first = edge_a <= edge_b;
            step(a_goes_first);
            edge_a = a_goes_first ? next_edge_a : edge_a;
            edge_b = a_goes_first ? edge_b : next_edge_b;
        } while (both_left({a.begin, a.end - 1}, {b.begin, b.end - 1}));
    }
    while (both_left(a, b)) {
        step(a.begin->*edge <= b.begin->*edge);
    }
}

/// Copies the runs that a row has left.
inline Run* copy_rest(RowRuns& row, Run* out)
{
    return std::copy(row.begin, row.end, out);
}

inline Run* copy_rest(FollowedRow& row, Run* out)
{
    for (; row.left(); ++row.begin) {
        *out++ = *row.begin;
    }
    return out;
}

/// What two rows have in common. Of two runs, the one that ends first can meet nothing further.
template <class Row>
[[gnu::always_inline]] inline Run* intersect(Row& a, Row& b, Run* out)
{
    const int row = a.begin->row;
    walk<&Run::colEnd>(a, b, [&](const Run& of_a, const Run& of_b, bool) {
        const int begin = std::max(of_a.colBegin, of_b.colBegin);
        const int end = std::min(of_a.colEnd, of_b.colEnd);
        out = put({row, begin, end}, begin <= end, out);
    });
    return out;
}

/// The first row without the second.
template <class Row>
[[gnu::always_inline]] inline Run* subtract(Row& a, Row& b, Run* out)
{
    const int row = a.begin->row;
    std::int64_t left = a.begin->colBegin; // what lies before was cut out
    walk<&Run::colEnd>(a, b, [&](const Run& of_a, const Run& of_b, bool a_ends_first) {
        const std::int64_t begin = std::max<std::int64_t>(of_a.colBegin, left);
        const std::int64_t end = std::min<std::int64_t>(of_a.colEnd, std::int64_t{of_b.colBegin} - 1);
        out = put({row, static_cast<int>(begin), static_cast<int>(end)}, begin <= end, out);
        left = a_ends_first ? left : std::int64_t{of_b.colEnd} + 1;
    });
    if (a.left()) {
        *out++ = {row, static_cast<int>(std::max<std::int64_t>(a.begin->colBegin, left)), a.begin->colEnd};
        ++a.begin;
        out = copy_rest(a, out);
    }
    return out;
}

/// What either row has: all but what lies between the furthest end so far and the next begin, wherever these lie apart.
template <class Row>
[[gnu::always_inline]] inline Run* unite(Row& a, Row& b, Run* out)
{
    const int row = a.begin->row;
    const int first = std::min(a.begin->colBegin, b.begin->colBegin);
    *out = {row, first, first};
    const auto go_on = [row, &out](int end, int next_begin) {
        out[0].colEnd = end;
        out[1].row = row;
        out[1].colBegin = next_begin;
        out += std::int64_t{next_begin} - 1 > end ? 1 : 0;
    };
    int end_in_a = first;
    int end_in_b = first;
    walk<&Run::colBegin>(a, b, [&](const Run& of_a, const Run& of_b, bool a_begins_first) {
        go_on(std::max(end_in_a, end_in_b), std::min(of_a.colBegin, of_b.colBegin));
        end_in_a = a_begins_first ? of_a.colEnd : end_in_a;
        end_in_b = a_begins_first ? end_in_b : of_b.colEnd;
    });
    int end = std::max(end_in_a, end_in_b);
    for (Row rest = a.left() ? a : b; rest.left(); ++rest.begin) {
        go_on(end, rest.begin->colBegin);
        end = std::max(end, rest.begin->colEnd);
    }
    out->colEnd = end;
    return out + 1;
}

/// Joins pieces, which come from left to right, where they touch.
class JoinedPieces
{
public:
    /// No piece begins before `first`.
    JoinedPieces(int row, int first, Run* out) : row_(row), begin_(first), end_(begin_ - 1), out_(out) {}

    /// Adds a piece, which is none if it begins past its end.
    void add(std::int64_t begin, std::int64_t end)
    {
        const bool is_some = begin <= end;
        const bool is_next = is_some & (begin - 1 > end_);
        out_ = put(joined(), is_next & (begin_ <= end_), out_);
        begin_ = chosen(is_next, begin, begin_);
        end_ = chosen(is_some, end, end_);
    }

    Run* end() { return put(joined(), begin_ <= end_, out_); }

private:
    Run joined() const { return {row_, static_cast<int>(begin_), static_cast<int>(end_)}; }

    int row_;
    std::int64_t begin_;
    std::int64_t end_;
    Run* out_;
};

/// What one row has and the other does not.
template <class Row>
[[gnu::always_inline]] inline Run* differ(Row& a, Row& b, Run* out)
{
    std::int64_t left = std::min(a.begin->colBegin, b.begin->colBegin); // what lies before is done
    JoinedPieces made(a.begin->row, static_cast<int>(left), out);
    walk<&Run::colEnd>(a, b, [&](const Run& of_a, const Run& of_b, bool) {
        const std::int64_t begin_a = std::max<std::int64_t>(of_a.colBegin, left);
        const std::int64_t begin_b = std::max<std::int64_t>(of_b.colBegin, left);
        const std::int64_t end = std::min(of_a.colEnd, of_b.colEnd);
        made.add(std::min(begin_a, begin_b), std::min(std::max(begin_a, begin_b) - 1, end));
        left = end + 1;
    });
    for (Row rest = a.left() ? a : b; rest.left(); ++rest.begin) {
        made.add(std::max<std::int64_t>(rest.begin->colBegin, left), rest.begin->colEnd);
    }
    return made.end();
}

/// Writes what the truth table says of two rows.
template <TruthTable table, class Row>
[[gnu::always_inline]] inline Run* combine_row(Row& a, Row& b, Run* out)
{
    if constexpr (table == in_any) {
        return unite(a, b, out);
    } else if constexpr (table == in_both) {
        return intersect(a, b, out);
    } else if constexpr (table == in_first_only) {
        return subtract(a, b, out);
    } else {
        return differ(a, b, out);
    }
}

/// Combines a row of one run each.
template <TruthTable table>
Run* combine_two(const Run& a, const Run& b, Run* out)
{
    if constexpr (table == in_any) {
        const bool apart =
            std::int64_t{std::max(a.colBegin, b.colBegin)} > std::int64_t{std::min(a.colEnd, b.colEnd)} + 1;
        const int end = std::max(a.colEnd, b.colEnd);
        *out = {a.row, std::min(a.colBegin, b.colBegin), apart ? std::min(a.colEnd, b.colEnd) : end};
        return put({a.row, std::max(a.colBegin, b.colBegin), end}, apart, out + 1);
    } else if constexpr (table == in_both) {
        const int begin = std::max(a.colBegin, b.colBegin);
        const int end = std::min(a.colEnd, b.colEnd);
        return put({a.row, begin, end}, begin <= end, out);
    } else if constexpr (table == in_first_only) {
        const std::int64_t end = std::min<std::int64_t>(a.colEnd, std::int64_t{b.colBegin} - 1);
        const std::int64_t begin = std::max<std::int64_t>(a.colBegin, std::int64_t{b.colEnd} + 1);
        out = put({a.row, a.colBegin, static_cast<int>(end)}, a.colBegin <= end, out);
        return put({a.row, static_cast<int>(begin), a.colEnd}, begin <= a.colEnd, out);
    } else {
        const int begin = std::max(a.colBegin, b.colBegin);
        const int end = std::min(a.colEnd, b.colEnd);
        if (begin > end) {
            return combine_two<in_any>(a, b, out);
        }
        const int first = std::min(a.colBegin, b.colBegin);
        const int last = std::max(a.colEnd, b.colEnd);
        out = put({a.row, first, static_cast<int>(std::int64_t{begin} - 1)}, first < begin, out);
        return put({a.row, static_cast<int>(std::int64_t{end} + 1), last}, end < last, out);
    }
}

} // namespace kivrlc
