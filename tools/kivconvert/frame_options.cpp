// SPDX-License-Identifier: MIT
#include "kivconvert/frame_options.h"

#include <limits>

namespace kivconvert
{

void add_frame_options(CLI::App& command, Frame& frame)
{
    const CLI::Range sizes(1, std::numeric_limits<int>::max());
    CLI::Option* const width = command.add_option("--width", frame.width, "columns of the frame of shapes, contours");
    CLI::Option* const height = command.add_option("--height", frame.height, "rows of the frame of shapes, contours");
    width->type_name("N")->check(sizes)->needs(height);
    height->type_name("N")->check(sizes)->needs(width);
}

} // namespace kivconvert
