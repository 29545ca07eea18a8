// SPDX-License-Identifier: MIT
// --width and --height, the frame of inputs without one; and --contour, which needs none.
#pragma once

#include "kivconvert/cli_types.h"
#include "kivconvert/contents.h"

#include <optional>

namespace kivconvert
{

/// Adds the two options, which must come together.
void add_frame_options(CLI::App& command, Frame& frame);

/// Adds --contour, one contour of a file alone, to a command that has the frame options: it excludes them.
CLI::Option* add_contour_option(CLI::App& command, std::optional<int>& index, const char* description);

} // namespace kivconvert
