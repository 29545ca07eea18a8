// SPDX-License-Identifier: MIT
// The subcommands, one file per group. Each function adds its group to the command line and does the work when the
// command line has been read.
#pragma once

#include <CLI/CLI.hpp>

namespace kivconvert
{

void add_region_command(CLI::App& app);
void add_image_command(CLI::App& app);
void add_matrix_command(CLI::App& app);
void add_contour_commands(CLI::App& app);
void add_points_command(CLI::App& app);
void add_set_commands(CLI::App& app);
void add_info_command(CLI::App& app);

} // namespace kivconvert
