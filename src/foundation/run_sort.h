// SPDX-License-Identifier: MIT
// The order of rows.
#pragma once

#include "foundation/runs.h"

namespace kiv
{

bool rows_ascend(RunView runs);

/// Runs with ascending rows: the given ones, or a sorted copy where their rows do not ascend.
ViewOrCopy<Run> by_row(RunView runs);

} // namespace kiv
