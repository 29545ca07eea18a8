// SPDX-License-Identifier: MIT
// The runs of one row in the order of their first columns, and those of them that a given run can meet.
#pragma once

#include "foundation/runs.h"

namespace kiv
{

/// The runs of a row, ordered by first column; runs with the same first column keep their order. Copies them only when
/// they come in another order.
class ByColumn
{
public:
    explicit ByColumn(RunView row);

    RunView runs() const { return runs_; }

    ByColumn(const ByColumn&) = delete;
    ByColumn& operator=(const ByColumn&) = delete;

private:
    RunList copy_;
    RunView runs_;
};

/// Finds the runs of a row that another run can meet, so that a row of many runs is not gone through for each of them.
/// Asked in the order of first columns, all answers together take linear time; in any other, each takes logarithmic
/// time to find.
///
/// This works for rows whose runs neither overlap nor are out of order nor begin past their end; of any other row, and
/// for a run that begins past its end, all runs are the answer.
class Neighbours
{
public:
    explicit Neighbours(RunView row);

    RunView of(const Run& run);

private:
    /// The first run that does not end left of the column: searched for from the last answer on, in growing steps.
    std::size_t first_not_left_of(int column) const;

    RunView row_;
    bool is_plain_;
    std::size_t first_ = 0; // the first run of the last answer
};

} // namespace kiv
