// SPDX-License-Identifier: MIT
#include "algebra/run_pairs.h"

#include "algebra/column_order.h"

#include <algorithm>

namespace kiv
{
namespace
{

/// Appends the pieces of `run` that remain when B's runs, ordered by first column, are cut out of it. The pieces come
/// from left to right, so only the last one can meet a further run of B. It is appended when no run of B is left.
void cut_run(const Run& run, Neighbors& b, RunWriter& out)
{
    std::size_t pieces_behind = 0;
    Run piece = run;
    for (const Run& cut : b.from_first_of(run)) {
        if (b.is_past_last_of(run, cut)) {
            break;
        }
        if (!runs_meet(piece, cut)) {
            continue;
        }
        auto& [row, begin, end] = piece;
        const auto& [cut_row, cut_begin, cut_end] = cut;
        if (end > cut_end) {
            if (begin < cut_begin) {
                out.push_back({row, begin, cut_begin - 1});
                ++pieces_behind;
            }
            begin = cut_end + 1;
        } else if (begin < cut_begin) {
            end = cut_begin - 1;
        } else if (pieces_behind > 0) {
            piece = out.taken_back();
            --pieces_behind;
        } else {
            return;
        }
    }
    out.push_back(piece);
}

} // namespace

bool runs_meet(const Run& a, const Run& b)
{
    const auto& [a_row, a_begin, a_end] = a;
    const auto& [b_row, b_begin, b_end] = b;
    const bool share_a_column = a_begin <= b_end && b_begin <= a_end;
    const bool one_lies_within_the_other = (b_begin <= a_begin) == (a_end <= b_end);
    return share_a_column || one_lies_within_the_other;
}

Run* write_union_of_inverted(const Run& a, const Run& b, Run* out)
{
    const auto& [row, a_begin, a_end] = a;
    const auto& [b_row, b_begin, b_end] = b;
    if (runs_meet(a, b)) {
        *out++ = {row, std::min(a_begin, b_begin), std::max(a_end, b_end)};
    } else if (a_begin > b_end) {
        *out++ = {row, b_begin, b_end};
        *out++ = a;
    } else if (a_begin == b_end) {
        *out++ = {row, b_begin, a_end};
    } else {
        *out++ = a;
        *out++ = {row, b_begin, b_end};
    }
    return out;
}

void intersect_row(RunView a, RunView b, RunWriter& out)
{
    Neighbors neighbors(a, b);
    for (const Run& of_a : a) {
        for (const Run& of_b : neighbors.from_first_of(of_a)) {
            if (neighbors.is_past_last_of(of_a, of_b)) {
                break;
            }
            if (runs_meet(of_a, of_b)) {
                const auto& [row, a_begin, a_end] = of_a;
                const auto& [b_row, b_begin, b_end] = of_b;
                out.push_back({row, std::max(a_begin, b_begin), std::min(a_end, b_end)});
            }
        }
    }
}

void cut_row(RunView a, RunView b, RunWriter& out)
{
    const ViewOrCopy<Run> b_by_column = by_first_column(b);
    Neighbors neighbors(a, b_by_column);
    for (const Run& run : a) {
        cut_run(run, neighbors, out);
    }
}

} // namespace kiv
