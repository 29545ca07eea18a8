// SPDX-License-Identifier: MIT
// How two runs of one row are combined: one relation between them, and three operations that rest on it.
#pragma once

#include "foundation/runs.h"

namespace kiv
{

/// Whether a run of A and a run of B meet: they share a column, or the ends of one lie within the ends of the other.
/// Rows are not compared.
///
/// For runs whose begin does not lie past their end, the second condition implies the first. It matters for the others,
/// which cover nothing but are combined by their ends all the same.
bool runs_meet(const Run& a, const Run& b);

/// Unites each run of A with each run of B, in this order. Two runs that meet give their hull; otherwise both are
/// appended, the left one first. Runs that only touch are not joined.
void unite_row(RunView a, RunView b, RunList& out);

/// Intersects each run of A with each run of B, in this order. Two runs that meet give what they have in common.
void intersect_row(RunView a, RunView b, RunList& out);

/// Cuts B's runs out of each run of A and appends the pieces from left to right.
void cut_row(RunView a, RunView b, RunList& out);

} // namespace kiv
