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

// The neighbours of a column; the first and the last column that an int can name are their own.
int left_of(int column)
{
    return column == std::numeric_limits<int>::min() ? column : column - 1;
}
int right_of(int column)
{
    return column == std::numeric_limits<int>::max() ? column : column + 1;
}

/// Full rows from `first` to just before `stop`.
void append_full_rows(std::int64_t first, std::int64_t stop, int width, RunList& out)
{
    for (std::int64_t row = first; row < stop; ++row) {
        out.push_back({static_cast<int>(row), 0, width - 1});
    }
}

/// The gaps of one row: left of its runs, between neighbours, right of them. A gap between neighbours includes the last
/// pixel of the left run and reaches one past the first pixel of the right one, and there is one for every pair.
void append_gaps(RunView row_runs, int width, RunList& out)
{
    const ByColumn by_column(row_runs);
    const RunView runs = by_column.runs();
    const auto& [row, first_begin, first_end] = runs.front();
    if (first_begin != 0) {
        out.push_back({row, 0, left_of(first_begin)});
    }
    int last_end = first_end;
    for (const auto& [same_row, begin, end] : runs.subspan(1)) {
        out.push_back({row, last_end, right_of(begin)});
        last_end = end;
    }
    if (last_end != width - 1) {
        out.push_back({row, right_of(last_end), width - 1});
    }
}

} // namespace

RunList complement(RunView delivered, Frame frame, LastRowOfComplement last_row)
{
    RunList out;
    if (delivered.empty()) {
        return out;
    }
    const ByRow by_row(delivered);
    const RunView runs = by_row.runs();
    append_full_rows(0, row_of(runs.front()), frame.width, out);
    for (RunView rest = runs; !rest.empty();) {
        const RunView group = leading_row(rest);
        rest = rest.subspan(group.size());
        if (!rest.empty()) {
            append_full_rows(std::int64_t{row_of(group.front())} + 1, row_of(rest.front()), frame.width, out);
        }
        if (!rest.empty() || last_row == LastRowOfComplement::like_any) {
            append_gaps(group, frame.width, out);
        }
    }
    append_full_rows(std::int64_t{row_of(runs.back())} + 1, frame.height, frame.width, out);
    return out;
}

} // namespace kiv
