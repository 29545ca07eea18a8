// SPDX-License-Identifier: MIT
// What two runs of one row give: one relation between them, and three operations that rest on it.
#pragma once

#include "foundation/runs.h"

namespace kiv
{

/// Whether a run of A and a run of B, by their columns alone, have something to do with each other: they share a
/// column, or the ends of one lie within the ends of the other.
///
/// For runs whose begin does not lie past their end the first follows from the second. It is there for the others,
/// which cover nothing but are combined by their ends all the same.
bool runs_meet(const Run& a, const Run& b);

/// Unites each run of A with each run of B, in this order: the hull of two runs that meet; otherwise both, the left one
/// first. Runs that only touch are not joined.
void unite_row(RunView a, RunView b, RunList& out);

/// Intersects each run of A with each run of B, in this order: what two runs that meet have in common.
void intersect_row(RunView a, RunView b, RunList& out);

/// Cuts B's runs out of each run of A and gives the pieces from left to right.
void cut_row(RunView a, RunView b, RunList& out);

} // namespace kiv
