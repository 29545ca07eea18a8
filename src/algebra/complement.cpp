// SPDX-License-Identifier: MIT
#include "algebra/complement.h"

#include "algebra/column_order.h"
#include "foundation/run_sort.h"

#include <cstdint>
#include <limits>

namespace kiv
{
namespace
{

// The neighbours of a column; the first and the last column that an int can name are their own neighbours.
int left_of(int column)
{
    return column == std::numeric_limits<int>::min() ? column : column - 1;
}
int right_of(int column)
{
    return column == std::numeric_limits<int>::max() ? column : column + 1;
}

/// Appends full rows from `first` to just before `stop`. The list grows once.
void append_full_rows(std::int64_t first, std::int64_t stop, int last_column, RunList& out)
{
    if (first >= stop) {
        return;
    }
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(stop - first));
    for (Run& run : std::span(out).subspan(before)) {
        run = {static_cast<int>(first), 0, last_column};
        ++first;
    }
}

/// Appends the gaps of one row: left of its runs, between neighbours, right of them. A gap between neighbours includes
/// the last pixel of the left run and reaches one past the first pixel of the right one, and there is one for every
/// pair.
void append_gaps(RunView row_runs, int last_column, RunList& out)
{
    const ViewOrCopy<Run> by_column = by_first_column(row_runs);
    const RunView runs = by_column;
    const auto& [row, first_begin, first_end] = runs.front();
    if (first_begin != 0) {
        out.push_back({row, 0, left_of(first_begin)});
    }
    int last_end = first_end;
    for (const auto& [same_row, begin, end] : runs.subspan(1)) {
        out.push_back({row, last_end, right_of(begin)});
        last_end = end;
    }
    if (last_end != last_column) {
        out.push_back({row, right_of(last_end), last_column});
    }
}

} // namespace

RunList complement(RunView delivered, Frame frame, LastRowOfComplement last_row)
{
    RunList out;
    if (delivered.empty()) {
        return out;
    }
    const ViewOrCopy<Run> sorted = by_row(delivered);
    const RunView runs = sorted;
    const int last_column = left_of(frame.width);
    append_full_rows(0, row_of(runs.front()), last_column, out);
    for (RunView rest = runs; !rest.empty();) {
        const RunView group = leading_row(rest);
        rest = rest.subspan(group.size());
        if (!rest.empty()) {
            append_full_rows(std::int64_t{row_of(group.front())} + 1, row_of(rest.front()), last_column, out);
        }
        if (!rest.empty() || last_row == LastRowOfComplement::like_any) {
            append_gaps(group, last_column, out);
        }
    }
    append_full_rows(std::int64_t{row_of(runs.back())} + 1, frame.height, last_column, out);
    return out;
}

} // namespace kiv
