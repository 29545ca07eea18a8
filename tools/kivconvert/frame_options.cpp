// SPDX-License-Identifier: MIT
#include "kivconvert/frame_options.h"

#include "kivconvert/image_files.h"

#include <CLI/CLI.hpp>

#include <limits>

namespace kivconvert
{

void add_frame_options(CLI::App& command, Frame& frame)
{
    const CLI::Range sizes(1, max_frame_side);
    CLI::Option* const width = command.add_option("--width", frame.width, "columns of the frame of shapes, contours");
    CLI::Option* const height = command.add_option("--height", frame.height, "rows of the frame of shapes, contours");
    width->type_name("N")->check(sizes)->needs(height);
    height->type_name("N")->check(sizes)->needs(width);
}

CLI::Option* add_contour_option(CLI::App& command, std::optional<int>& index, const char* description)
{
    CLI::Option* const option = command.add_option("--contour", index, description);
    return option->type_name("N")
        ->check(CLI::Range(std::numeric_limits<int>::max()))
        ->excludes(command.get_option("--width"));
}

} // namespace kivconvert
