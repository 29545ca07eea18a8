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
/// Asked in the order of first columns, all answers together take linear time.
///
/// This works for rows whose runs neither overlap nor are out of order nor begin past their end; of any other row, and
/// for a run that begins past its end, all runs are the answer.
class Neighbours
{
public:
    explicit Neighbours(RunView row);

    RunView of(const Run& run);

private:
    RunView row_;
    bool is_plain_;
    std::size_t first_ = 0; // no run before it reaches as far right as the run last asked for
};

} // namespace kiv
