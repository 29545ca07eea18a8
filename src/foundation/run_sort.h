// SPDX-License-Identifier: MIT
// The one stable sort of runs by row.
#pragma once

#include "foundation/runs.h"

namespace kiv
{

bool rows_ascend(RunView runs);

/// Sorts by row, as signed numbers; runs of one row keep their order. Linear.
void sort_by_row(RunList& runs);

/// Runs with ascending rows: the given ones, or a sorted copy where their rows do not ascend.
ViewOrCopy<Run> by_row(RunView runs);

} // namespace kiv
