// SPDX-License-Identifier: MIT
#include "checked_count.h"
#include "row_sort.h"
#include "row_sweep.h"
#include "run_room.h"

#include <KivRLC/KivRunLists.h>

#include <algorithm>
#include <cstdint>

namespace
{

/// Whether a run may not come next in a list of maximal runs.
bool is_out_of_order(const Run& run, const Run& next)
{
    if (next.colBegin > next.colEnd || next.row < run.row) {
        return true;
    }
    return next.row == run.row && std::int64_t{next.colBegin} - 1 <= run.colEnd;
}

std::int64_t length_of(const Run& run)
{
    return std::max<std::int64_t>(std::int64_t{run.colEnd} - run.colBegin + 1, 0);
}

} // namespace

bool KivRuns::IsCanonical(KivRunView runs) noexcept
{
    return runs.empty() || (runs.front().colBegin <= runs.front().colEnd &&
                            std::adjacent_find(runs.begin(), runs.end(), is_out_of_order) == runs.end());
}

bool KivRuns::AppendIntersection(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    return kivrlc::sweep<kivrlc::in_both, kivrlc::Trust::none>(a, b, out);
}

bool KivRuns::AppendDifference(KivRunView a, KivRunView b, std::vector<Run>& out)
{
    return kivrlc::sweep<kivrlc::in_first_only, kivrlc::Trust::none>(a, b, out);
}

void KivRuns::SortByRow(std::vector<Run>& runs)
{
    kivrlc::sort_by_row(runs);
}

void KivRuns::SortByRowAndColumn(std::vector<Run>& runs)
{
    kivrlc::sort_by_row_and_column(runs);
}

// Pixels are written by fours, the last four of a run into the place of the next ones, as how long short runs are can
// hardly be guessed. bench/kiv/arrays.cpp measures it.
void KivRuns::AppendPixels(KivRunView runs, std::vector<int>& columns, std::vector<int>& rows)
{
    constexpr std::size_t at_once = 4;
    std::int64_t pixels = 0;
    for (const Run& run : runs) {
        pixels += length_of(run);
    }
    const std::size_t room = kivrlc::checked_count<int>(pixels) + at_once;
    kivrlc::RunRoom<std::vector<int>> room_for_columns(columns, room);
    kivrlc::RunRoom<std::vector<int>> room_for_rows(rows, room);
    int* column = room_for_columns.begin();
    int* row = room_for_rows.begin();
    const auto nothing_is_known = [] { return kivrlc::Progress{1, 1}; };
    for (const Run& run : runs) {
        const auto length = static_cast<std::size_t>(length_of(run));
        column = room_for_columns.with_room(column, length + at_once, nothing_is_known);
        row = room_for_rows.with_room(row, length + at_once, nothing_is_known);
        auto next = static_cast<unsigned>(run.colBegin); // what is written beyond a run may be no int
        for (std::size_t i = 0; i < length; i += at_once, next += static_cast<unsigned>(at_once)) {
            for (std::size_t j = 0; j < at_once; ++j) {
                column[i + j] = static_cast<int>(next + static_cast<unsigned>(j));
                row[i + j] = run.row;
            }
        }
        column += length;
        row += length;
    }
    room_for_columns.keep(column);
    room_for_rows.keep(row);
}

void KivRuns::GiveBackSpareRoom(std::vector<Run>& runs)
{
    kivrlc::give_back_spare_room(runs);
}
