// SPDX-License-Identifier: MIT
// How two runs of one row are combined: one relation between them, and three operations that rest on it.
#pragma once

#include "foundation/run_writer.h"

#include <algorithm>

namespace kiv
{

/// Whether a run of A and a run of B meet: they share a column, or the ends of one lie within the ends of the other.
/// Rows are not compared.
///
/// For runs whose begin does not lie past their end, the second condition implies the first. It matters for the others,
/// which cover nothing but are combined by their ends all the same.
bool runs_meet(const Run& a, const Run& b);

/// Writes the union of two runs, one of which begins past its end.
Run* write_union_of_inverted(const Run& a, const Run& b, Run* out);

/// Writes the union of two runs, of which there are two at the most: their hull if they meet, both if they do not.
/// Which of it can hardly be guessed, so that it decides about numbers, not about a branch.
inline Run* write_union(const Run& a, const Run& b, Run* out)
{
    const auto& [row, a_begin, a_end] = a;
    const auto& [b_row, b_begin, b_end] = b;
    if (a_begin > a_end || b_begin > b_end) {
        return write_union_of_inverted(a, b, out);
    }
    const int second_begin = std::max(a_begin, b_begin);
    const int first_end = std::min(a_end, b_end);
    const int last_end = std::max(a_end, b_end);
    const bool meet = second_begin <= first_end;
    out[0] = {row, std::min(a_begin, b_begin), meet ? last_end : first_end};
    out[1] = {row, second_begin, last_end};
    return out + (meet ? 1 : 2);
}

/// Unites each run of A with each run of B, in this order. Two runs that meet give their hull; otherwise both are
/// appended, the left one first. Runs that only touch are not joined.
inline void unite_row(RunView a, RunView b, RunWriter& out)
{
    Run* next = out.place();
    for (const Run of_a : a) { // a copy, which cannot be one of the runs written
        for (const Run& of_b : b) {
            next = out.place_behind(write_union(of_a, of_b, next));
        }
    }
}

/// Intersects each run of A with each run of B, in this order. Two runs that meet give what they have in common.
void intersect_row(RunView a, RunView b, RunWriter& out);

/// Cuts B's runs out of each run of A and appends the pieces from left to right.
void cut_row(RunView a, RunView b, RunWriter& out);

} // namespace kiv
