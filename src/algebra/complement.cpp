// SPDX-License-Identifier: MIT
#include "algebra/complement.h"

#include "algebra/column_order.h"
#include "foundation/run_writer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

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
void write_full_rows(std::int64_t first, std::int64_t stop, int last_column, RunWriter& out)
{
    for (; first < stop; ++first) {
        Run* const next = out.place();
        *next = {static_cast<int>(first), 0, last_column};
        out.written_up_to(next + 1);
    }
}

/// Writes the gaps of one row: left of its runs, between neighbours, right of them. A gap between neighbours includes
/// the last pixel of the left run and reaches one past the first pixel of the right one, and there is one for every
/// pair.
void write_gaps(const Run* run, const Run* end, int last_column, RunWriter& out)
{
    const Run* const last = end - 1;
    Run* next = out.place();
    *next = {row_of(*run), 0, left_of(begin_of(*run))};
    next += begin_of(*run) != 0 ? 1 : 0;
    while (run != last) {
        const Run* const stop = run + std::min<std::ptrdiff_t>(last - run, RunWriter::at_once - 2);
        for (; run != stop; ++run) {
            *next++ = {row_of(*run), end_of(*run), right_of(begin_of(run[1]))};
        }
        next = out.place_behind(next);
    }
    *next = {row_of(*last), right_of(end_of(*last)), last_column};
    out.written_up_to(next + (end_of(*last) != last_column ? 1 : 0));
}

/// As many runs as the complement has at the most: one for each row above and below the runs; one for each row from the
/// first to the last that has runs, and one more for each run on it.
std::uint64_t most_runs(RunView runs, Frame frame)
{
    const std::int64_t first = row_of(runs.front());
    const std::int64_t stop = std::int64_t{row_of(runs.back())} + 1;
    return runs.size() + count_rows(0, first) + count_rows(first, stop) + count_rows(stop, frame.height);
}

/// The end of a row, up to which its columns ascend.
const Run* end_of_ascending_row(const Run* run, const Run* end)
{
    const Run* const first = run;
    do {
        ++run;
    } while (run != end && row_of(*run) == row_of(*first) && begin_of(run[-1]) <= begin_of(*run));
    return run;
}

/// The complement of a list that is not empty; nothing if its rows, or the columns of one, do not ascend. A row below
/// the last one is noticed before the rows down to it are written, which may be billions.
std::optional<RunList> complement_of_ascending(RunView runs, Frame frame, LastRowOfComplement last_row)
{
    const int last_column = left_of(frame.width);
    const int last_row_of_runs = row_of(runs.back());
    if (row_of(runs.front()) > last_row_of_runs) {
        return std::nullopt;
    }
    RunWriter out(checked_count<Run>(most_runs(runs, frame)));
    write_full_rows(0, row_of(runs.front()), last_column, out);
    const Run* const end = runs.data() + runs.size();
    for (const Run* run = runs.data(); run != end;) {
        const Run* const row_end = end_of_ascending_row(run, end);
        if (row_end != end) {
            if (row_of(*row_end) <= row_of(*run) || row_of(*row_end) > last_row_of_runs) {
                return std::nullopt;
            }
            write_full_rows(std::int64_t{row_of(*run)} + 1, row_of(*row_end), last_column, out);
        }
        if (row_end != end || last_row == LastRowOfComplement::like_any) {
            write_gaps(run, row_end, last_column, out);
        }
        run = row_end;
    }
    write_full_rows(std::int64_t{last_row_of_runs} + 1, frame.height, last_column, out);
    return out.written();
}

} // namespace

RunList complement(RunView runs, Frame frame, LastRowOfComplement last_row)
{
    if (runs.empty()) {
        return {};
    }
    if (std::optional<RunList> made = complement_of_ascending(runs, frame, last_row)) {
        return *std::move(made);
    }
    return complement_of_ascending(sorted_by_row_and_first_column(runs), frame, last_row).value();
}

} // namespace kiv
