// SPDX-License-Identifier: MIT
// The walk behind every set operation, for regions and ROIs alike. It visits A's rows in order, passes the runs of A
// and of B on each row to the operation, and appends the rows that only B has. How a shared row is combined is a
// function; what happens to unmatched rows, and to the rows at the ends of the two lists, is data. Callers rely on each
// of these rules.
#pragma once

#include "foundation/run_writer.h"

namespace kiv
{

enum class SingleRunOfA {
    kept,    // unpaired, even if B has runs on its row
    dropped, // contributes nothing
};

enum class LastRowOfA {
    like_any,
    lone_run_joins_unmatched_group, // a last row of one run goes with the row before it, if B lacks that row
    never_a_group, // a last row of one run goes with the row before it; one of more runs contributes nothing
};

// A withheld row counts as matched, but its runs are not passed on, except B's first run if the row is all of B.
enum class LastRowOfB {
    like_any,
    withheld_unless_single_run,
    withheld,
};

/// Whether the rule withholds the runs of B's last row.
inline bool is_withheld(LastRowOfB rule, RunView last_row)
{
    return rule == LastRowOfB::withheld || (rule == LastRowOfB::withheld_unless_single_run && last_row.size() > 1);
}

enum class UnmatchedRows { kept, dropped };

/// Combines the runs of A and of B on one row and appends the result. Appended runs take the row of their run of A.
using RowFunction = void (*)(RunView a, RunView b, RunWriter& out);

struct JoinRules {
    SingleRunOfA single_run_of_a;
    LastRowOfA last_row_of_a;
    LastRowOfB last_row_of_b;
    UnmatchedRows rows_only_in_a;
    UnmatchedRows rows_only_in_b;
};

/// Joins two lists whose rows ascend. The result is ordered by A's rows; the runs on rows that only B has follow.
/// Linear in the runs read plus what the row function costs. It is there for the functions in run_pairs.h.
template <RowFunction combine_row>
RunList join_rows(RunView a, RunView b, const JoinRules& rules);

} // namespace kiv
