// SPDX-License-Identifier: MIT
// The subcommands, one file per group. Each function adds its group to the command line; the work is done when the
// command line is parsed.
#pragma once

#include "kivconvert/cli_types.h"

#include <string>

namespace kivconvert
{

/// The whole command line: the options of the program and all subcommands.
void add_commands(CLI::App& app, std::string& out);

void add_region_command(CLI::App& app);
void add_image_command(CLI::App& app);
void add_matrix_command(CLI::App& app);
void add_contour_commands(CLI::App& app);
void add_points_command(CLI::App& app);
void add_set_commands(CLI::App& app);

/// What the command prints is appended to `out`.
void add_info_command(CLI::App& app, std::string& out);

} // namespace kivconvert
