// SPDX-License-Identifier: MIT
// Contours as files: JSON and GeoJSON, which are read back, and SVG, which browsers show. The manual page
// describes the formats.
#pragma once

#include "kivconvert/conversions.h"

#include <string>
#include <string_view>

namespace kivconvert
{

std::string contours_as_json(const TracedContours& traced);

/// A polygon per outer border, the borders of its holes in it.
std::string contours_as_geojson(const TracedContours& traced);

/// Parses JSON. `file` is named in error messages. @throws InputError for anything that is not the format.
TracedContours parse_contours_json(std::string_view text, const std::string& file);

/// The same for GeoJSON: polygons, alone or as features. Without a frame in the text, that is 0 x 0.
TracedContours parse_contours_geojson(std::string_view text, const std::string& file);

/// One path per outer border, the borders of its holes in it.
/// @param png an encoded picture of the frame's size that is shown below the paths; empty for none
std::string contours_as_svg(const TracedContours& traced, std::string_view png);

/// Reads JSON of either kind. @throws InputError if there are no contours in the file
TracedContours read_contours(const std::string& path);

/// One of the contours, counted from 0. @throws InputError if there is none
KivContour contour_at(const Content& content, int index, const std::string& subject);

/// @throws FileError unless the extension is one that contours are written to
void expect_contour_output(const std::string& path);

/// Writes JSON, GeoJSON or SVG, as the extension says.
/// @param picture an image file that is shown below the paths of an SVG; empty for none
/// @throws FileError
void write_contours(const std::string& path, const TracedContours& traced, const std::string& picture);

} // namespace kivconvert
