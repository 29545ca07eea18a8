// SPDX-License-Identifier: MIT
#include "kivconvert/frame_options.h"

#include "kivconvert/errors.h"

#include <algorithm>
#include <limits>

namespace kivconvert
{

void add_frame_options(CLI::App& command, Frame& frame)
{
    const CLI::Range sizes(1, std::numeric_limits<int>::max());
    CLI::Option* const width = command.add_option("--width", frame.width, "columns of the frame of shapes");
    CLI::Option* const height = command.add_option("--height", frame.height, "rows of the frame of shapes");
    width->type_name("N")->check(sizes)->needs(height);
    height->type_name("N")->check(sizes)->needs(width);
}

void expect_shape_for_frame(const Frame& frame, std::initializer_list<std::string> operands)
{
    if (frame.width > 0 && std::none_of(operands.begin(), operands.end(), is_shape)) {
        throw InputError("--width", "is for shapes (roi:...); files have frames of their own");
    }
}

} // namespace kivconvert
