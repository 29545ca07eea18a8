// SPDX-License-Identifier: MIT
// Texts that several subcommands use in their help.
#pragma once

#include <string>

namespace kivconvert
{

/// The inputs that describe a shape.
inline constexpr const char* any_content = "image, run file, contours, points or shape (--roi SHAPE:NUMBERS)";

inline constexpr const char* any_run_file = "run file, .csv, .json, .coco.json or .coco-counts.json";
inline constexpr const char* any_region_output = "run file or mask image";
inline constexpr const char* any_label_image = "label image, .png or .tif";
inline constexpr const char* any_image = "image, .png, .bmp, .pgm or .tif";

/// One command line, without the program's name.
std::string example(const std::string& arguments);

/// The same, with the shapes that can be given instead of a file.
std::string example_with_shapes(const std::string& arguments);

} // namespace kivconvert
