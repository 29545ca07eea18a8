// SPDX-License-Identifier: MIT
// The order of columns within a row. Where columns ascend, runs that cannot meet need not be compared.
#pragma once

#include "foundation/runs.h"

#include <algorithm>
#include <limits>

namespace kiv
{

/// The runs of a row ordered by first column; a copy only if they come in another order. Runs with the same first
/// column keep their order.
inline ViewOrCopy<Run> by_first_column(RunView row)
{
    const auto begins_before = [](const Run& left, const Run& right) { return begin_of(left) < begin_of(right); };
    if (std::is_sorted(row.begin(), row.end(), begins_before)) {
        return row;
    }
    RunList sorted(row.begin(), row.end());
    std::stable_sort(sorted.begin(), sorted.end(), begins_before);
    return sorted;
}

/// Whether no run of a row begins past its end, nor begins or ends before the run in front of it does. Runs may
/// overlap.
inline bool columns_ascend(RunView row)
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

/// Finds the runs of row B that can meet a run of row A: from the first that does not end before the run of A, up to
/// the last that does not begin behind it. Where the columns of B do not ascend, and for a run of A that begins past
/// its end, these are all runs of B.
class Neighbors
{
public:
    Neighbors(RunView a, RunView b)
        : b_(b), b_ascends_(columns_ascend(b)), both_ascend_(b_ascends_ && columns_ascend(a))
    {
    }

    /// The runs of B from the first that can meet `run`. The runs of A must be passed in order.
    RunView from_first_of(const Run& run)
    {
        if (!are_narrowed(run)) {
            return b_;
        }
        if (both_ascend_) {
            while (!b_.empty() && end_of(b_.front()) < begin_of(run)) {
                b_ = b_.subspan(1);
            }
            return b_;
        }
        const auto ends_before = [](const Run& of_b, int column) { return end_of(of_b) < column; };
        return {std::lower_bound(b_.begin(), b_.end(), begin_of(run), ends_before), b_.end()};
    }

    /// Whether this run of B, and therefore every one behind it, cannot meet `run`.
    bool is_past_last_of(const Run& run, const Run& of_b) const
    {
        return are_narrowed(run) && begin_of(of_b) > end_of(run);
    }

private:
    bool are_narrowed(const Run& run) const { return b_ascends_ && begin_of(run) <= end_of(run); }

    RunView b_;
    bool b_ascends_;
    bool both_ascend_;
};

} // namespace kiv
