// SPDX-License-Identifier: MIT
#include "algebra/row_join.h"

#include "foundation/run_sort.h"

#include <algorithm>
#include <cassert>
#include <optional>

namespace kiv
{
namespace
{

void append(RunView runs, RunList& out)
{
    out.insert(out.end(), runs.begin(), runs.end());
}

/// Delivers B's rows, which must be requested in ascending order.
class RowsOfB
{
public:
    RowsOfB(RunView b, LastRowOfB rule) : all_(b), rest_(b), rule_(rule) {}

    /// B's runs on a row. Nothing if B lacks the row; an empty view if a rule withholds its runs.
    std::optional<RunView> take(int row)
    {
        while (!rest_.empty() && row_of(rest_.front()) < row) {
            rest_ = rest_.subspan(1);
        }
        if (rest_.empty() || row_of(rest_.front()) != row) {
            return std::nullopt;
        }
        const RunView runs = leading_row(rest_);
        rest_ = rest_.subspan(runs.size());
        if (rest_.empty() && is_withheld(rule_, runs)) {
            return runs.first(runs.size() == all_.size() ? 1 : 0);
        }
        return runs;
    }

private:
    RunView all_;
    RunView rest_;
    LastRowOfB rule_;
};

bool lone_last_run_joins(LastRowOfA rule, bool group_is_matched)
{
    return rule == LastRowOfA::never_a_group ||
           (rule == LastRowOfA::lone_run_joins_unmatched_group && !group_is_matched);
}

void join_rows_of_a(RunView a, RunView b, const JoinRules& rules, RowFunction combine_row, RunList& out)
{
    RowsOfB rows_of_b(b, rules.last_row_of_b);
    for (RunView rest = a; !rest.empty();) {
        RunView group = leading_row(rest);
        if (rules.last_row_of_a == LastRowOfA::never_a_group && group.size() == rest.size()) {
            return;
        }
        const std::optional<RunView> partners = rows_of_b.take(row_of(group.front()));
        if (rest.size() == group.size() + 1 && lone_last_run_joins(rules.last_row_of_a, partners.has_value())) {
            group = rest;
        }
        if (partners) {
            combine_row(group, *partners, out);
        } else if (rules.rows_only_in_a == UnmatchedRows::kept) {
            append(group, out);
        }
        rest = rest.subspan(group.size());
    }
}

void append_rows_only_in_b(RunView a, RunView b, RunList& out)
{
    for (const Run& run : b) {
        while (!a.empty() && row_of(a.front()) < row_of(run)) {
            a = a.subspan(1);
        }
        if (a.empty() || row_of(a.front()) != row_of(run)) {
            out.push_back(run);
        }
    }
}

} // namespace

RunList join_rows(RunView a, RunView b, const JoinRules& rules, RowFunction combine_row)
{
    assert(rows_ascend(a) && rows_ascend(b));
    RunList out;
    out.reserve(a.size() + b.size());
    if (a.size() == 1) {
        if (rules.single_run_of_a == SingleRunOfA::kept) {
            append(a, out);
        }
    } else {
        join_rows_of_a(a, b, rules, combine_row, out);
    }
    if (rules.rows_only_in_b == UnmatchedRows::kept) {
        append_rows_only_in_b(a, b, out);
    }
    return out;
}

} // namespace kiv
