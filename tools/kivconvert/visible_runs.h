// SPDX-License-Identifier: MIT
// The pixels of a region in its frame, as runs. The frame's size costs nothing.
#pragma once

#include <KivData/KivData.h>

#include <string>
#include <vector>

namespace kivconvert
{

/// Whether all of the run is in the frame, and there is something of it.
bool lies_inside(const Run& run, const KivRegion& frame);

/// What of the runs lies inside the frame: ordered by row, then by column; each pixel once, and as few runs as
/// possible.
std::vector<Run> visible_runs(const KivRegion& region);

/// The visible runs with rows and columns exchanged, in the exchanged frame.
/// @throws InputError if they would exceed the memory limit: columns that alternate in a high frame have a run for each
/// pixel. `file` is the one concerned
KivRegion transposed(const KivRegion& region, const std::string& file);

} // namespace kivconvert
