// SPDX-License-Identifier: MIT
// The one stable sort of runs by row.
#pragma once

#include "foundation/runs.h"

namespace kiv
{

bool rows_ascend(RunView runs);

/// Sorts by row, as signed numbers; runs of one row keep their order. Returns at once when the rows ascend already;
/// otherwise linear.
void sort_by_row(RunList& runs);

/// Runs with ascending rows: the given ones, which must outlive it, or a sorted copy where their rows do not ascend.
class ByRow
{
public:
    explicit ByRow(RunView runs);
    ByRow(const ByRow&) = delete;
    ByRow& operator=(const ByRow&) = delete;

    RunView runs() const { return runs_; }

private:
    RunList copy_;
    RunView runs_;
};

} // namespace kiv
