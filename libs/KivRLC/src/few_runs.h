// SPDX-License-Identifier: MIT
// Rows of few runs, combined run by run.
//
// An intersection walks along two lists of stretches and keeps where they overlap. The other operations are
// intersections, too: a difference is what one set has and the other one lacks, a union lacks what both lack, and the
// symmetric difference of two sets is the union of their differences, whose stretches come in order where they are
// taken turn by turn.
#pragma once

#include "truth_table.h"
#include "word_row.h"

#include <KivRLC/KivRun.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kivrlc
{

/// The pixels of a row that a set has, or those that it lacks, as stretches from left to right. What it lacks reaches
/// without bounds to both sides.
template <bool lacking>
class Stretches
{
public:
    explicit Stretches(RowRuns runs) : runs_(runs) { look(); }

    std::int64_t begin() const { return begin_; }
    std::int64_t end() const { return end_; }

    /// Goes to the next stretch; false if there is none.
    bool next()
    {
        if (runs_.begin == runs_.end) {
            return false;
        }
        if constexpr (lacking) {
            begin_ = std::int64_t{runs_.begin->colEnd} + 1;
        }
        ++runs_.begin;
        return look();
    }

private:
    static constexpr std::int64_t unbounded = std::int64_t{1} << 40;

    bool look()
    {
        const bool at_end = runs_.begin == runs_.end;
        if constexpr (lacking) {
            end_ = at_end ? unbounded : std::int64_t{runs_.begin->colBegin} - 1;
            return true;
        } else if (!at_end) {
            begin_ = runs_.begin->colBegin;
            end_ = runs_.begin->colEnd;
        }
        return !at_end;
    }

    RowRuns runs_;
    std::int64_t begin_ = -unbounded;
    std::int64_t end_ = 0;
};

/// Writes stretches as runs, or the runs between stretches.
template <bool between>
class StretchWriter
{
public:
    StretchWriter(int row, Run* out) : row_(row), out_(out) {}

    void add_first(std::int64_t begin, std::int64_t end)
    {
        if constexpr (between) {
            begin_ = end + 1;
        } else {
            add(begin, end);
        }
    }

    /// Nothing, if the begin lies past the end.
    void add(std::int64_t begin, std::int64_t end)
    {
        if constexpr (between) {
            *out_ = {row_, static_cast<int>(begin_), static_cast<int>(begin - 1)};
            begin_ = begin <= end ? end + 1 : begin_;
        } else {
            *out_ = {row_, static_cast<int>(begin), static_cast<int>(end)};
        }
        out_ += begin <= end ? 1 : 0;
    }

    Run* end() const { return out_; }

private:
    int row_;
    std::int64_t begin_ = 0;
    Run* out_;
};

template <bool lacking_a, bool lacking_b, bool between>
Run* intersect(RowRuns a_runs, RowRuns b_runs, Run* out)
{
    Stretches<lacking_a> a(a_runs);
    Stretches<lacking_b> b(b_runs);
    StretchWriter<between> writer(a_runs.begin->row, out);
    writer.add_first(std::max(a.begin(), b.begin()), std::min(a.end(), b.end()));
    while (a.end() < b.end() ? a.next() : b.next()) {
        writer.add(std::max(a.begin(), b.begin()), std::min(a.end(), b.end()));
    }
    return writer.end();
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
        return intersect<true, true, true>(a, b, out);
    } else if constexpr (table == in_both) {
        return intersect<false, false, false>(a, b, out);
    } else if constexpr (table == in_first_only) {
        return intersect<false, true, false>(a, b, out);
    } else {
        return differ(a, b, out);
    }
}

inline Run* put(Run run, bool kept, Run* out)
{
    *out = run;
    return out + (kept ? 1 : 0);
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
