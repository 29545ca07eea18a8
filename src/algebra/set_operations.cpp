// SPDX-License-Identifier: MIT
#include "algebra/set_operations.h"

#include "foundation/run_sort.h"

#include <algorithm>

namespace kiv
{
namespace
{

bool has_row(RunView runs, int row)
{
    const auto above = [](const Run& run, int wanted) { return row_of(run) < wanted; };
    const auto first = std::lower_bound(runs.begin(), runs.end(), row, above);
    return first != runs.end() && row_of(*first) == row;
}

void drop_last_row(RunList& runs, int row)
{
    while (!runs.empty() && row_of(runs.back()) == row) {
        runs.pop_back();
    }
}

/// Whether A's last run goes with the row before it, of which B has no runs, and so is not combined with any.
bool last_run_stays_whole(RunView a, RunView b, LastRowOfA rule)
{
    const int row_before = row_of(a[a.size() - 2]);
    return rule == LastRowOfA::lone_run_joins_unmatched_group && row_before != row_of(a.back()) &&
           !has_row(b, row_before);
}

/// The plain operation on sets, corrected at the ends of the lists; nothing where it does not apply. A has more than
/// one run, B more than one row.
std::optional<RunList> combined_as_sets(RunView a, RunView b, const SetOperation& operation)
{
    std::optional<RunList> runs = combined_sets(*operation.of_sets, a, b);
    if (!runs) {
        return std::nullopt;
    }
    if (is_withheld(operation.rules.last_row_of_b, last_row(b))) {
        drop_last_row(*runs, row_of(b.back()));
    }
    if (last_run_stays_whole(a, b, operation.rules.last_row_of_a)) {
        drop_last_row(*runs, row_of(a.back()));
        runs->push_back(a.back());
    }
    return runs;
}

} // namespace

Frame result_frame(ResultFrame rule, Frame a, Frame b)
{
    if (rule == ResultFrame::of_a) {
        return a;
    }
    return {std::max(a.width, b.width), std::max(a.height, b.height)};
}

RunList combine(RunView a, RunView b, const SetOperation& operation)
{
    if (operation.of_sets && a.size() > 1 && !b.empty() && row_of(b.front()) != row_of(b.back())) {
        if (std::optional<RunList> runs = combined_as_sets(a, b, operation)) {
            return *std::move(runs);
        }
    }
    const ViewOrCopy<Run> a_by_row = by_row(a);
    const ViewOrCopy<Run> b_by_row = by_row(b);
    return operation.join(a_by_row, b_by_row, operation.rules);
}

} // namespace kiv
