// SPDX-License-Identifier: MIT
// Rows of few runs, combined run by run: two lists of runs are walked side by side. Which of two runs goes first can
// hardly be guessed, so that it decides about numbers, not about a branch.
#pragma once

#include "truth_table.h"
#include "word_row.h"

#include <KivRLC/KivRun.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kivrlc
{

inline Run* put(Run run, bool kept, Run* out)
{
    *out = run;
    return out + (kept ? 1 : 0);
}

/// Whether both rows have runs left; as one question, as which of them ends first can hardly be guessed either.
inline bool both_left(RowRuns a, RowRuns b)
{
    return (static_cast<int>(a.begin != a.end) & static_cast<int>(b.begin != b.end)) != 0;
}

/// What two rows have in common. Of two runs, the one that ends first can meet nothing further.
inline Run* intersect(RowRuns a, RowRuns b, Run* out)
{
    const int row = a.begin->row;
    while (both_left(a, b)) {
        const int begin = std::max(a.begin->colBegin, b.begin->colBegin);
        const int end = std::min(a.begin->colEnd, b.begin->colEnd);
        out = put({row, begin, end}, begin <= end, out);
        const bool a_ends_first = a.begin->colEnd < b.begin->colEnd;
        a.begin += a_ends_first ? 1 : 0;
        b.begin += a_ends_first ? 0 : 1;
    }
    return out;
}

/// The first row without the second. Of a run, what lies between the run that was cut out last and the next one is
/// left.
inline Run* subtract(RowRuns a, RowRuns b, Run* out)
{
    const int row = a.begin->row;
    std::int64_t behind_cut = a.begin->colBegin;
    while (both_left(a, b)) {
        const std::int64_t begin = std::max<std::int64_t>(a.begin->colBegin, behind_cut);
        const std::int64_t end = std::min<std::int64_t>(a.begin->colEnd, std::int64_t{b.begin->colBegin} - 1);
        out = put({row, static_cast<int>(begin), static_cast<int>(end)}, begin <= end, out);
        const bool a_ends_first = a.begin->colEnd <= b.begin->colEnd;
        behind_cut = a_ends_first ? behind_cut : std::int64_t{b.begin->colEnd} + 1;
        a.begin += a_ends_first ? 1 : 0;
        b.begin += a_ends_first ? 0 : 1;
    }
    if (a.begin == a.end) {
        return out;
    }
    *out = {row, static_cast<int>(std::max<std::int64_t>(a.begin->colBegin, behind_cut)), a.begin->colEnd};
    return std::copy(a.begin + 1, a.end, out + 1);
}

/// Adds runs in the order of their begins to a run that grows as long as they meet it.
class Union
{
public:
    Union(const Run& first, Run* out) : run_(first), out_(out) {}

    void add(const Run& run)
    {
        const bool apart = std::int64_t{run.colBegin} - 1 > run_.colEnd;
        out_ = put(run_, apart, out_);
        run_.colBegin = apart ? run.colBegin : run_.colBegin;
        run_.colEnd = std::max(run_.colEnd, run.colEnd);
    }

    Run* end() { return put(run_, true, out_); }

private:
    Run run_;
    Run* out_;
};

inline Run* unite(RowRuns a, RowRuns b, Run* out)
{
    const Run& first = a.begin->colBegin < b.begin->colBegin ? *a.begin : *b.begin;
    Union made({a.begin->row, first.colBegin, first.colEnd}, out);
    while (both_left(a, b)) {
        const bool a_begins_first = a.begin->colBegin < b.begin->colBegin;
        made.add(a_begins_first ? *a.begin : *b.begin);
        a.begin += a_begins_first ? 1 : 0;
        b.begin += a_begins_first ? 0 : 1;
    }
    const RowRuns rest = a.begin != a.end ? a : b;
    std::for_each(rest.begin, rest.end, [&made](const Run& run) { made.add(run); });
    return made.end();
}

/// The places of a row where a set begins or stops, from left to right.
class Boundaries
{
public:
    explicit Boundaries(RowRuns runs) : runs_(runs) {}

    std::int64_t place() const
    {
        return runs_.begin == runs_.end ? std::numeric_limits<std::int64_t>::max()
               : inside_                ? std::int64_t{runs_.begin->colEnd} + 1
                                        : std::int64_t{runs_.begin->colBegin};
    }

    void next()
    {
        runs_.begin += inside_ ? 1 : 0;
        inside_ = !inside_;
    }

private:
    RowRuns runs_;
    bool inside_ = false;
};

/// A symmetric difference begins or stops where either set does, unless both do.
inline Run* differ(RowRuns a_runs, RowRuns b_runs, Run* out)
{
    Boundaries a(a_runs);
    Boundaries b(b_runs);
    const int row = a_runs.begin->row;
    bool inside = false;
    for (;;) {
        const std::int64_t place_a = a.place();
        const std::int64_t place_b = b.place();
        const std::int64_t place = std::min(place_a, place_b);
        if (place == std::numeric_limits<std::int64_t>::max()) {
            return out;
        }
        if (place_a == place) {
            a.next();
        }
        if (place_b == place) {
            b.next();
        }
        if (place_a == place_b) {
            continue;
        }
        if (inside) {
            out++->colEnd = static_cast<int>(place - 1);
        } else {
            out->row = row;
            out->colBegin = static_cast<int>(place);
        }
        inside = !inside;
    }
}

template <TruthTable table>
Run* combine_few(RowRuns a, RowRuns b, Run* out)
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
        return differ({&a, &a + 1}, {&b, &b + 1}, out);
    }
}

} // namespace kivrlc
