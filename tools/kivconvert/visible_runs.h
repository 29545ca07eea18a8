// SPDX-License-Identifier: MIT
// Regions as what is seen of them in their frame, told from the runs alone: a frame of a thousand million pixels costs
// nothing by itself.
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

/// The most runs that transposing makes, so that a short file cannot fill the memory: columns that alternate in a high
/// frame have a run for each pixel.
inline constexpr std::size_t max_transposed_runs = 1U << 24;

/// The visible runs with rows and columns exchanged, in the exchanged frame.
/// @throws FileError on too many runs; `file` is the one concerned
KivRegion transposed(const KivRegion& region, const std::string& file);

} // namespace kivconvert
