// SPDX-License-Identifier: MIT
// --width and --height: the frame of shapes.
#pragma once

#include "kivconvert/operands.h"

#include <CLI/CLI.hpp>

#include <initializer_list>
#include <string>

namespace kivconvert
{

/// Adds the two options, which must come together.
void add_frame_options(CLI::App& command, Frame& frame);

/// @throws InputError if a frame is given although no operand is a shape
void expect_shape_for_frame(const Frame& frame, std::initializer_list<std::string> operands);

} // namespace kivconvert
