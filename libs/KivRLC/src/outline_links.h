// SPDX-License-Identifier: MIT
// The upright edges of a set, two for each run, and which of them follows which along the border.
#pragma once

#include <KivRLC/KivRunBuffer.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kivrlc
{

/// An upright edge, one pixel high: the left end of run i is edge 2 i and is gone along upward, its right end is edge
/// 2 i + 1 and is gone along downward.
using UprightEdge = std::size_t;

inline std::int64_t column_of(KivRunView runs, UprightEdge edge)
{
    const Run& run = runs[edge / 2];
    return edge % 2 == 0 ? std::int64_t{run.colBegin} : std::int64_t{run.colEnd} + 1;
}

/// The line between two rows at which an edge ends: the upper or the lower one of its row.
inline std::int64_t line_of_end(KivRunView runs, UprightEdge edge)
{
    return std::int64_t{runs[edge / 2].row} + static_cast<std::int64_t>(edge % 2);
}

/// What follows an edge: another edge, to which a level stretch leads unless both are in one column.
struct EdgeLink {
    UprightEdge next;
    bool leaves_saddle;  ///< whether the edge ends where pixels meet by a corner only
    bool reaches_saddle; ///< whether the next edge begins at such a place
};

/// The link of every upright edge. Where pixels meet by a corner only, the border stays with the pixel that it is at.
std::vector<EdgeLink> edge_links(KivRunView runs);

} // namespace kivrlc
