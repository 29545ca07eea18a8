// SPDX-License-Identifier: MIT
// What the help of several subcommands has in common.
#pragma once

#include <string>

namespace kivconvert
{

/// What may stand for a shape.
inline constexpr const char* any_content = "image, run file, contours, points or shape (--roi SHAPE:NUMBERS)";

inline constexpr const char* any_run_file = "run file, .csv, .json, .coco.json or .coco-counts.json";
inline constexpr const char* any_image = "image, .png, .bmp, .pgm or .tif";

/// One command line, without the program's name.
std::string example(const std::string& arguments);

/// The same, and the shapes that may stand in the place of a file.
std::string example_with_shapes(const std::string& arguments);

} // namespace kivconvert
