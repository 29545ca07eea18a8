// SPDX-License-Identifier: MIT
// The runs of one row in the order of their first columns, and those of them that a run of another row can meet.
#pragma once

#include "foundation/runs.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace kiv
{

/// The runs of a row, ordered by first column; runs with the same first column keep their order. Copies them only when
/// they come in another order.
class ByColumn
{
public:
    explicit ByColumn(RunView row) : runs_(row)
    {
        if (!std::is_sorted(row.begin(), row.end(), begins_before)) {
            sort();
        }
    }

    RunView runs() const { return runs_; }

    ByColumn(const ByColumn&) = delete;
    ByColumn& operator=(const ByColumn&) = delete;

private:
    static bool begins_before(const Run& left, const Run& right) { return begin_of(left) < begin_of(right); }

    void sort();

    RunList copy_;
    RunView runs_;
};

/// Whether no run of a row begins past its end, nor begins or ends before the run in front of it does. Runs may
/// overlap.
inline bool climbs(RunView row)
{
    int last_begin = std::numeric_limits<int>::min();
    int last_end = std::numeric_limits<int>::min();
    for (const auto& [same_row, begin, end] : row) {
        if (begin > end || begin < last_begin || end < last_end) {
            return false;
        }
        last_begin = begin;
        last_end = end;
    }
    return true;
}

/// The runs of a row from one of them on, up to the last that begins at or left of a column.
class Reach
{
public:
    Reach(RunView from, int last_column) : from_(from), last_column_(last_column) {}

    struct Stop {
        const Run* row_stop;
        int last_column;

        friend bool operator!=(const Run* at, const Stop& stop)
        {
            return at != stop.row_stop && begin_of(*at) <= stop.last_column;
        }
    };

    const Run* begin() const { return from_.data(); }
    Stop end() const { return {from_.data() + from_.size(), last_column_}; }

private:
    RunView from_;
    int last_column_;
};

/// Calls `visit` with each run of A, in order, and the runs of B that share a column with it, found in one walk along
/// both rows. Both must climb.
template <class Visit>
void for_each_with_reach(RunView a, RunView b, Visit visit)
{
    for (const Run& run : a) {
        while (!b.empty() && end_of(b.front()) < begin_of(run)) {
            b = b.subspan(1);
        }
        visit(run, Reach(b, end_of(run)));
    }
}

/// The same for rows in any order: where B climbs its runs are found by halving, otherwise, and for a run that begins
/// past its end, they are all of B.
void for_each_in_any_order(RunView a, RunView b, const std::function<void(const Run&, Reach)>& visit);

} // namespace kiv
