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

} // namespace kiv
