// SPDX-License-Identifier: MIT
// Contours as files: JSON, which is read back, and SVG, which browsers show. tools/README.md tells the formats.
#pragma once

#include <KivData/KivData.h>

#include <string>
#include <string_view>

namespace kivconvert
{

/// Contours, and the frame in pixels that they were traced in.
struct TracedContours {
    int width = 0;
    int height = 0;
    KivContourArray contours;
};

/// @throws ResultError as KivBinImageToContourArray() refuses images; `subject` is named in error messages
TracedContours contours_of(KivImage& image, const std::string& subject);

/// Traces the pixels of a region. @throws ResultError as KivRegionToContourArray() refuses regions
TracedContours contours_of(KivRegion& region, const std::string& subject);

std::string contours_as_json(const TracedContours& traced);

/// Parses JSON. `file` is named in error messages. @throws InputError for anything that is not the format.
TracedContours parse_contours_json(std::string_view text, const std::string& file);

/// One path per outer border, the borders of its holes in it.
/// @param png an encoded picture of the frame's size that is shown below the paths; empty for none
std::string contours_as_svg(TracedContours& traced, std::string_view png);

/// Traces a run file, or the non-zero pixels of an image. @throws FileError, ResultError
TracedContours trace_file(const std::string& path);

/// @throws FileError if the file is not named .json
TracedContours read_contours(const std::string& path);

/// Writes JSON or SVG, as the extension says.
/// @param picture an image file that is shown below the paths of an SVG; empty for none
/// @throws FileError, ResultError
void write_contours(const std::string& path, TracedContours& traced, const std::string& picture);

} // namespace kivconvert
