// SPDX-License-Identifier: MIT
// --width and --height: the frame of what has none of its own.
#pragma once

#include "kivconvert/contents.h"

#include <CLI/CLI.hpp>

namespace kivconvert
{

/// Adds the two options, which must come together.
void add_frame_options(CLI::App& command, Frame& frame);

} // namespace kivconvert
