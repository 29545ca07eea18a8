// SPDX-License-Identifier: MIT
// Moving and mirroring, which keep the lengths of runs.
#pragma once

#include <KivRLC/KivRunSet.h>

#include <cstdint>

namespace kivrlc
{

/// What becomes of a coordinate: itself or its negative, plus an offset.
struct Move {
    bool mirrored;
    std::int64_t offset;
};

/// The set with its columns and rows moved. Throws std::overflow_error if a coordinate does not fit into an int.
KivRunSet moved(const KivRunSet& set, Move columns, Move rows);

/// The set moved down by 1 or up by -1, without what leaves the ints.
KivRunSet moved_by_a_row(const KivRunSet& set, int by);

} // namespace kivrlc
