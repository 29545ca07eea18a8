// SPDX-License-Identifier: MIT
// Runs as three parallel arrays and as a flat list, one into the other.
#pragma once

#include <KivData/KivVarArray.h>
#include <KivRLC/KivRLC.h>

#include <vector>

namespace kivdata
{

/// The flat list of what the three arrays hold. Throws std::invalid_argument when they differ in length.
std::vector<Run> runs_of_arrays(const KivVarArray& rows, const KivVarArray& col_begins, const KivVarArray& col_ends);

/// Replaces the three arrays by the runs; on an exception they stay as they are.
void runs_to_arrays(const std::vector<Run>& runs, KivVarArray& rows, KivVarArray& col_begins, KivVarArray& col_ends);

} // namespace kivdata
