// SPDX-License-Identifier: MIT
// The pixels of a region as CSV.
#pragma once

#include <KivData/KivData.h>

#include <string>

namespace kivconvert
{

/// The most pixels that are listed, so that a short run file cannot ask for a list that fills the memory.
inline constexpr long long max_listed_points = 1LL << 27;

/// A line with the names of the columns, x and y, and a line for each point.
std::string points_as_csv(const KivPointArray& points);

/// Lists the pixels of a region, run by run, as KivRegionToPointArray() does, and writes them.
/// @param subject where the region is from, for error messages
/// @throws FileError, ResultError
void write_points(const std::string& path, KivRegion& region, const std::string& subject);

} // namespace kivconvert
