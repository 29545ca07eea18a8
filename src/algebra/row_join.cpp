// SPDX-License-Identifier: MIT
#include "algebra/row_join.h"

#include "algebra/run_pairs.h"
#include "foundation/run_sort.h"

#include <algorithm>
#include <cassert>
#include <optional>

namespace kiv
{
namespace
{

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
            ++passed_;
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

    /// How many runs were passed, as they are on rows that were not requested.
    std::size_t count_passed() const { return passed_; }

    /// The runs behind all rows that were requested.
    RunView rest() const { return rest_; }

    /// The first runs of the rest were taken.
    void take_first(std::size_t count) { rest_ = rest_.subspan(count); }

private:
    RunView all_;
    RunView rest_;
    std::size_t passed_ = 0;
    LastRowOfB rule_;
};

bool lone_last_run_joins(LastRowOfA rule, bool group_is_matched)
{
    return rule == LastRowOfA::never_a_group ||
           (rule == LastRowOfA::lone_run_joins_unmatched_group && !group_is_matched);
}

/// Unites rows of one run each, of which shapes have many, for as long as both lists go on with such, some at the most.
/// Returns what is left of `rest`, the end of A. The last rows are always left, as there are rules for them.
RunView unite_single_runs(RunView rest, RowsOfB& rows_of_b, RunWriter& out)
{
    const RunView b = rows_of_b.rest();
    const auto are_alone = [rest, b](std::size_t i) {
        return row_of(rest[i]) == row_of(b[i]) && row_of(rest[i + 1]) != row_of(rest[i]) &&
               row_of(b[i + 1]) != row_of(b[i]);
    };
    std::size_t most = RunWriter::at_once / 2;
    most = std::min(most, std::max<std::size_t>(rest.size(), 2) - 2);
    most = std::min(most, std::max<std::size_t>(b.size(), 1) - 1);
    Run* next = out.place();
    std::size_t count = 0;
    for (; count < most && are_alone(count); ++count) {
        next = write_union(rest[count], b[count], next);
    }
    out.written_up_to(next);
    rows_of_b.take_first(count);
    return rest.subspan(count);
}

template <RowFunction combine_row>
void join_rows_of_a(RunView a, RowsOfB& rows_of_b, const JoinRules& rules, RunWriter& out)
{
    for (RunView rest = a; !rest.empty();) {
        if constexpr (combine_row == unite_row) {
            rest = unite_single_runs(rest, rows_of_b, out);
        }
        RunView group = leading_row(rest);
        const std::optional<RunView> partners = rows_of_b.take(row_of(group.front()));
        if (rules.last_row_of_a == LastRowOfA::never_a_group && group.size() == rest.size()) {
            return;
        }
        if (rest.size() == group.size() + 1 && lone_last_run_joins(rules.last_row_of_a, partners.has_value())) {
            rows_of_b.take(row_of(rest.back()));
            group = rest;
        }
        out.go_on_to(a.size() - rest.size() + group.size() / 2, a.size()); // lists grow in the midst of a group
        rest = rest.subspan(group.size());
        if (partners) {
            combine_row(group, *partners, out);
        } else if (rules.rows_only_in_a == UnmatchedRows::kept) {
            out.append(group);
        }
    }
}

/// Appends the first `count` runs of B on rows that A lacks.
void append_rows_only_in_b(RunView a, RunView b, std::size_t count, RunWriter& out)
{
    for (; count > 0; b = b.subspan(1)) {
        while (!a.empty() && row_of(a.front()) < row_of(b.front())) {
            a = a.subspan(1);
        }
        if (a.empty() || row_of(a.front()) != row_of(b.front())) {
            out.push_back(b.front());
            --count;
        }
    }
}

} // namespace

template <RowFunction combine_row>
RunList join_rows(RunView a, RunView b, const JoinRules& rules)
{
    assert(rows_ascend(a) && rows_ascend(b));
    RunWriter out(a.size() + b.size());
    RowsOfB rows_of_b(b, rules.last_row_of_b);
    if (a.size() == 1) {
        rows_of_b.take(row_of(a.front()));
        if (rules.single_run_of_a == SingleRunOfA::kept) {
            out.append(a);
        }
    } else {
        join_rows_of_a<combine_row>(a, rows_of_b, rules, out);
    }
    if (rules.rows_only_in_b == UnmatchedRows::kept) {
        append_rows_only_in_b(a, b, rows_of_b.count_passed(), out);
        out.append(rows_of_b.rest());
    }
    return out.written();
}

template RunList join_rows<unite_row>(RunView a, RunView b, const JoinRules& rules);
template RunList join_rows<intersect_row>(RunView a, RunView b, const JoinRules& rules);
template RunList join_rows<cut_row>(RunView a, RunView b, const JoinRules& rules);

} // namespace kiv
