// SPDX-License-Identifier: MIT
#include "algebra/run_pairs.h"

#include "algebra/column_order.h"

#include <algorithm>

namespace kiv
{
namespace
{

void unite(const Run& a, const Run& b, RunList& out)
{
    const auto& [row, a_begin, a_end] = a;
    const auto& [b_row, b_begin, b_end] = b;
    if (runs_meet(a, b)) {
        out.push_back({row, std::min(a_begin, b_begin), std::max(a_end, b_end)});
    } else if (a_begin > b_end) {
        out.push_back({row, b_begin, b_end});
        out.push_back(a);
    } else if (a_begin == b_end) { // only where B's run begins past its end
        out.push_back({row, b_begin, a_end});
    } else {
        out.push_back(a);
        out.push_back({row, b_begin, b_end});
    }
}

/// Appends the pieces of `run` that remain when B's runs, ordered by first column, are cut out of it. The pieces come
/// from left to right, so only the last one can meet a further run of B. It is appended when no run of B is left.
void cut_run(const Run& run, Neighbors& b, RunList& out)
{
    const std::size_t without_pieces = out.size();
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
            }
            begin = cut_end + 1;
        } else if (begin < cut_begin) {
            end = cut_begin - 1;
        } else if (out.size() > without_pieces) {
            piece = out.back();
            out.pop_back();
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

void unite_row(RunView a, RunView b, RunList& out)
{
    for (const Run& of_a : a) {
        for (const Run& of_b : b) {
            unite(of_a, of_b, out);
        }
    }
}

void intersect_row(RunView a, RunView b, RunList& out)
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

void cut_row(RunView a, RunView b, RunList& out)
{
    const ViewOrCopy<Run> b_by_column = by_first_column(b);
    Neighbors neighbors(a, b_by_column);
    for (const Run& run : a) {
        cut_run(run, neighbors, out);
    }
}

} // namespace kiv
