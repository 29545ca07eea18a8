// SPDX-License-Identifier: MIT
/// @file
/// The eight set operations on runs, cursor by cursor: what the library's own operations are compared with.
///
/// Each walk is one function with nothing but integer cursors and jumps. It is slow on purpose and shares no idea with
/// the code that it checks: rules that the library writes as data (what happens to a list's last row, to a list of a
/// single run) are here nothing but consequences of where a cursor stands.
///
/// All runs have inclusive ends. The operands may come in any row order; within one row their order matters and is
/// kept. The results are in the order of emission: neither sorted nor merged, duplicates included.
#pragma once

#include <KivRLC/KivRLC.h>

#include <vector>

namespace literal
{

using Runs = std::vector<Run>;

/// The two-operand operations, past the tests for empty operands. A region's list may still be without runs.
/// @throws std::out_of_range, std::logic_error if a cursor ever leaves its list or its row: the walk itself is wrong.
Runs region_union(Runs a, Runs b);
Runs region_intersection(Runs a, Runs b);
Runs region_difference(Runs a, Runs b);
Runs roi_union(Runs a, Runs b);
Runs roi_intersection(Runs a, Runs b);
Runs roi_difference(Runs a, Runs b);

/// The complement within columns 0 to width - 1 and rows 0 to height - 1. Every row from 0 up to the first run's row
/// and from there to the last one's is written out, so a huge row number costs as many runs.
/// @throws as above
Runs region_complement(Runs a, int width, int height);
Runs roi_complement(Runs a, int width, int height);

} // namespace literal
