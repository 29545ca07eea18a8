// SPDX-License-Identifier: MIT
#include "kivconvert/help_texts.h"

#include "kivconvert/shape_text.h"

#include <fmt/format.h>

namespace kivconvert
{

std::string example(const std::string& arguments)
{
    return fmt::format("Example:\n  kivconvert {}", arguments);
}

std::string example_with_shapes(const std::string& arguments)
{
    return fmt::format("Shapes, in the place of a file:\n  --roi {}\n\n{}", known_shapes("\n  --roi "),
                       example(arguments));
}

} // namespace kivconvert
