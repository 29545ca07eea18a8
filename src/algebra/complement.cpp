// SPDX-License-Identifier: MIT
#include "algebra/complement.h"

#include "algebra/column_order.h"

#include <algorithm>
#include <cstddef>
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

std::uint64_t count_rows(std::int64_t first, std::int64_t stop)
{
    return static_cast<std::uint64_t>(std::max<std::int64_t>(stop - first, 0));
}

/// Writes full rows from `first` to just before `stop`.
Run* write_full_rows(std::int64_t first, std::int64_t stop, int last_column, Run* out)
{
    for (; first < stop; ++first) {
        *out++ = {static_cast<int>(first), 0, last_column};
    }
    return out;
}

/// Writes the gaps of one row, one more than it has runs at the most: left of its runs, between neighbours, right of
/// them. A gap between neighbours includes the last pixel of the left run and reaches one past the first pixel of the
/// right one, and there is one for every pair.
Run* write_gaps(RunView runs, int last_column, Run* out)
{
    const auto& [row, first_begin, first_end] = runs.front();
    if (first_begin != 0) {
        *out++ = {row, 0, left_of(first_begin)};
    }
    int last_end = first_end;
    for (const auto& [same_row, begin, end] : runs.subspan(1)) {
        *out++ = {row, last_end, right_of(begin)};
        last_end = end;
    }
    if (last_end != last_column) {
        *out++ = {row, right_of(last_end), last_column};
    }
    return out;
}

/// As many runs as the complement has at the most: one for each row above and below the runs; one for each row from the
/// first to the last that has runs, and one more for each run on it.
std::uint64_t most_runs(RunView runs, Frame frame)
{
    const std::int64_t first = row_of(runs.front());
    const std::int64_t stop = std::int64_t{row_of(runs.back())} + 1;
    return runs.size() + count_rows(0, first) + count_rows(first, stop) + count_rows(stop, frame.height);
}

} // namespace

RunList complement(RunView delivered, Frame frame, LastRowOfComplement last_row)
{
    if (delivered.empty()) {
        return {};
    }
    const ViewOrCopy<Run> sorted = by_row_and_first_column(delivered);
    const RunView runs = sorted;
    const int last_column = left_of(frame.width);
    RunList out(checked_count<Run>(most_runs(runs, frame)));
    Run* next = write_full_rows(0, row_of(runs.front()), last_column, out.data());
    for (RunView rest = runs; !rest.empty();) {
        const RunView group = leading_row(rest);
        rest = rest.subspan(group.size());
        if (!rest.empty()) {
            next = write_full_rows(std::int64_t{row_of(group.front())} + 1, row_of(rest.front()), last_column, next);
        }
        if (!rest.empty() || last_row == LastRowOfComplement::like_any) {
            next = write_gaps(group, last_column, next);
        }
    }
    next = write_full_rows(std::int64_t{row_of(runs.back())} + 1, frame.height, last_column, next);
    out.resize(static_cast<std::size_t>(next - out.data()));
    return out;
}

} // namespace kiv
