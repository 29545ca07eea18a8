// SPDX-License-Identifier: MIT
#include "run_moves.h"

#include "checked_int.h"
#include "run_set_access.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace
{

using kivrlc::Move;
using kivrlc::RunBuffer;

int moved_place(int place, Move move)
{
    return kivrlc::checked_int(move.mirrored ? move.offset - place : move.offset + place);
}

Run moved_run(const Run& run, Move columns, Move rows)
{
    const int begin = moved_place(run.colBegin, columns);
    const int end = moved_place(run.colEnd, columns);
    return {moved_place(run.row, rows), std::min(begin, end), std::max(begin, end)};
}

/// Turns the order of the runs of each row round.
void reverse_rows(RunBuffer& runs)
{
    for (auto row = runs.begin(); row != runs.end();) {
        const auto next = std::find_if(row, runs.end(), [row](const Run& run) { return run.row != row->row; });
        std::reverse(row, next);
        row = next;
    }
}

} // namespace

KivRunSet kivrlc::moved(const KivRunSet& set, Move columns, Move rows)
{
    RunBuffer runs(set.Runs().size());
    std::transform(set.Runs().begin(), set.Runs().end(), runs.begin(),
                   [columns, rows](const Run& run) { return moved_run(run, columns, rows); });
    if (rows.mirrored) {
        std::reverse(runs.begin(), runs.end());
    }
    if (rows.mirrored != columns.mirrored) {
        reverse_rows(runs);
    }
    return set_of_canonical(std::move(runs));
}

KivRunSet kivrlc::moved_by_a_row(const KivRunSet& set, int by)
{
    const KivRunView all = set.Runs();
    const Run* const begin = by < 0 ? first_from_row(all, std::numeric_limits<int>::min() + 1) : all.begin();
    const Run* const end = by > 0 ? behind_row(all, std::numeric_limits<int>::max() - 1) : all.end();
    RunBuffer runs(static_cast<std::size_t>(end - begin));
    std::transform(begin, end, runs.begin(), [by](const Run& run) {
        return Run{run.row + by, run.colBegin, run.colEnd};
    });
    return set_of_canonical(std::move(runs));
}
