// SPDX-License-Identifier: MIT
#include "algebra/complement.h"

#include "common/checked_count.h"
#include "common/full_rows.h"
#include "foundation/run_writer.h"
#include "seam/data_types.h"

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

/// Writes full rows from `first` to just before `stop`.
void write_full_rows(std::int64_t first, std::int64_t stop, int last_column, RunWriter& out)
{
    constexpr std::int64_t at_once = RunWriter::at_once;
    for (; first < stop; first += at_once) {
        const std::int64_t behind = std::min(first + at_once, stop);
        out.written_up_to(kivcommon::write_full_rows(first, behind, 0, last_column, out.place()));
    }
}

/// Writes the gaps of a row: left of its runs, between neighbours, right of them. A gap between neighbours includes the
/// last pixel of the left run and reaches one past the first pixel of the right one, and there is one for every pair.
/// Returns the end of the row, up to which its columns ascend. Inlined, so that the rare second call does not slow the
/// first one down.
[[gnu::always_inline]] inline const Run* write_gaps(const Run* run, const Run* end, int last_column, RunWriter& out)
{
    const int row = row_of(*run);
    const auto goes_on = [row](const Run* at) { return row_of(*at) == row && begin_of(at[-1]) <= begin_of(*at); };
    Run* next = out.place();
    *next = {row, 0, left_of(begin_of(*run))};
    next += begin_of(*run) != 0 ? 1 : 0;
    for (++run; run != end && goes_on(run);) {
        const Run* const stop = run + std::min<std::ptrdiff_t>(end - run, RunWriter::at_once - 2);
        for (; run != stop && goes_on(run); ++run) {
            *next++ = {row, end_of(run[-1]), right_of(begin_of(*run))};
        }
        next = out.place_behind(next);
    }
    const int last = end_of(run[-1]);
    *next = {row, right_of(last), last_column};
    out.written_up_to(next + (last != last_column ? 1 : 0));
    return run;
}

/// Takes back the gaps of a row, which were written last.
void take_gaps_back(const Run* run, const Run* end, int last_column, RunWriter& out)
{
    const int at_ends = (begin_of(*run) != 0 ? 1 : 0) + (end_of(end[-1]) != last_column ? 1 : 0);
    for (std::ptrdiff_t gaps = end - run - 1 + at_ends; gaps > 0; --gaps) {
        out.taken_back();
    }
}

/// As many runs as the complement has at the most: one for each row, and one more for each run.
std::uint64_t most_runs(RunView runs, Frame frame)
{
    const std::int64_t first = std::min(row_of(runs.front()), 0);
    const std::int64_t stop = std::max(std::int64_t{row_of(runs.back())} + 1, std::int64_t{frame.height});
    return runs.size() + static_cast<std::uint64_t>(stop - first);
}

/// The complement of a list that is not empty; nothing if its rows, or the columns of one, do not ascend. A row below
/// the last one is noticed before the rows down to it are written: there may be billions, and memory for these is to be
/// asked for at once, which fails at once.
std::optional<RunList> complement_of_ascending(RunView runs, Frame frame, LastRowOfComplement rule)
{
    const int last_column = left_of(frame.width);
    const std::int64_t last = row_of(runs.back());
    if (row_of(runs.front()) > last) {
        return std::nullopt;
    }
    RunWriter out(kivcommon::checked_count<Run>(most_runs(runs, frame)));
    write_full_rows(0, row_of(runs.front()), last_column, out);
    const Run* const end = runs.data() + runs.size();
    const Run* const stop = rule == LastRowOfComplement::like_any ? end : end - last_row(runs).size();
    for (const Run* run = runs.data(); run != stop;) {
        const Run* const row_end = write_gaps(run, end, last_column, out);
        if (row_end != end && row_of(*row_end) - std::int64_t{row_of(*run)} != 1) {
            if (row_of(*row_end) <= row_of(*run) || row_of(*row_end) > last) {
                return std::nullopt;
            }
            take_gaps_back(run, row_end, last_column, out);
            write_full_rows(std::int64_t{row_of(*run)} + 1, row_of(*row_end), last_column, out);
            write_gaps(run, row_end, last_column, out);
        }
        run = row_end;
    }
    write_full_rows(last + 1, frame.height, last_column, out);
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
    RunList sorted(runs.begin(), runs.end());
    sort_by_row_and_column(sorted);
    return complement_of_ascending(sorted, frame, last_row).value();
}

} // namespace kiv
