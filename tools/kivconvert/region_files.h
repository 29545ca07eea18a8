// SPDX-License-Identifier: MIT
// Regions from and to whatever file can hold one.
#pragma once

#include "kivconvert/conversions.h"
#include "kivconvert/output.h"

#include <string>

namespace kivconvert
{

/// Reads a file as read_content() does, as a region. @throws InputError, ResultError
KivRegion read_region(const std::string& path);

/// How a region is painted.
struct Painting {
    int foreground = 255; ///< 0 to 255
    int background = 0;   ///< 0 to 255
    int width = 0;        ///< 0: that of the region's frame
    int height = 0;       ///< 0: that of the region's frame
};

/// Paints a region and writes the image.
/// @param subject where the region is from, for error messages
/// @throws FileError, ResultError
void write_painted(const Output& output, KivRegion& region, const Painting& painting, const std::string& subject);

/// @throws FileError unless the name is that of a run file or a mask image.
void expect_region_output(const std::string& path);

/// Writes a run file or a mask image, as the name says. @throws FileError, ResultError
void write_region(const Output& output, KivRegion& region);

} // namespace kivconvert
