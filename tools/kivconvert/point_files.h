// SPDX-License-Identifier: MIT
// Points as CSV: the pixels of a region, or the points of a contour.
#pragma once

#include <KivData/KivData.h>

#include <string>
#include <string_view>
#include <vector>

namespace kivconvert
{

/// How far from 0 the coordinates of points and contours may lie in files: as far as a frame reaches.
inline constexpr int farthest_coordinate = 1 << 20;

/// A line with the names of the columns, x and y, and a line for each point.
std::string points_as_csv(const KivPointArray& points);

/// The same for two parallel arrays of ints.
std::string points_as_csv(const KivVarArray& xs, const KivVarArray& ys);

/// Whether a text begins with the column names of points.
bool looks_like_points(std::string_view text);

/// `file` is named in error messages. @throws FileError for anything that is not the format.
KivPointArray parse_points_csv(std::string_view text, const std::string& file);

/// @throws InputError if the list of the runs' pixels would exceed the memory limit; `subject` is where they are from
void expect_listable(KivRunView runs, const std::string& subject);

/// @throws FileError if the file is not named .csv
void expect_point_file(const std::string& path);

/// @throws FileError if the file is not named .csv, or cannot be written
void write_point_file(const std::string& path, const std::string& csv);

/// Lists the pixels of a region, run by run, as KivRegionToPointArray() does, and writes them.
/// @param subject where the region is from, for error messages
/// @throws FileError, ResultError
void write_points(const std::string& path, KivRegion& region, const std::string& subject);

} // namespace kivconvert
