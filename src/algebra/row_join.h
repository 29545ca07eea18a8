// SPDX-License-Identifier: MIT
// The one walk behind every set operation, of regions and of ROIs alike. It goes through A's rows in order, gives each
// row's runs of A and of B to the operation, and adds what only B has. What a shared row gives is a function; what
// becomes of unmatched rows, and of the rows at the ends of the two lists, is data. Callers rely on each of these
// rules.
#pragma once

#include "foundation/runs.h"

namespace kiv
{

enum class SingleRunOfA {
    kept,    // unpaired, whatever B has on its row
    dropped, // gives nothing
};

enum class LastRowOfA {
    like_any,
    lone_run_joins_unmatched_group, // a last row of one run goes with the row before it, if B lacks that row
    never_a_group,                  // a last row of one run goes with the row before it; one of more runs gives nothing
};

// A row is withheld when it counts as matched but its runs are not handed out, except B's first run where the row is
// all of B.
enum class LastRowOfB {
    like_any,
    withheld_unless_single_run,
    withheld,
};

enum class UnmatchedRows { kept, dropped };

/// Appends what a row gives, from its runs of A and its runs of B. Emitted runs take the row of their run of A.
using RowFunction = void (*)(RunView a, RunView b, RunList& out);

struct JoinRules {
    SingleRunOfA single_run_of_a;
    LastRowOfA last_row_of_a;
    LastRowOfB last_row_of_b;
    UnmatchedRows rows_only_in_a;
    UnmatchedRows rows_only_in_b;
};

/// Joins two lists whose rows ascend. The result is ordered by A's rows; the runs on rows that only B has follow.
/// Linear in the runs read plus what the row function costs.
RunList join_rows(RunView a, RunView b, const JoinRules& rules, RowFunction combine_row);

} // namespace kiv
