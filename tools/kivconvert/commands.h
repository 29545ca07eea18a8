// SPDX-License-Identifier: MIT
// The subcommands, one file per group. Each function adds its group to the command line; the work is done when the
// command line is parsed.
#pragma once

#include "kivconvert/cli_types.h"
#include "kivconvert/run.h"

namespace kivconvert
{

/// The whole command line: the options of the program and all subcommands.
/// @param outcome where subcommands put what they print, and exit statuses other than 0 that are no failure
void add_commands(CLI::App& app, Outcome& outcome);

void add_region_command(CLI::App& app);
void add_image_command(CLI::App& app);
void add_matrix_command(CLI::App& app);
void add_contour_commands(CLI::App& app);
void add_points_command(CLI::App& app);
void add_set_commands(CLI::App& app);
void add_components_command(CLI::App& app);
void add_morphology_commands(CLI::App& app);
void add_dataset_command(CLI::App& app);
void add_report_command(CLI::App& app);
void add_measure_command(CLI::App& app, Outcome& outcome);
void add_compare_command(CLI::App& app, Outcome& outcome);
void add_info_command(CLI::App& app, Outcome& outcome);

} // namespace kivconvert
