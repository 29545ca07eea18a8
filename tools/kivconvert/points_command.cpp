// SPDX-License-Identifier: MIT
// The pixels of a region, one by one: points.
#include "kivconvert/commands.h"
#include "kivconvert/point_files.h"
#include "kivconvert/region_files.h"

#include <memory>
#include <string>

namespace kivconvert
{

void add_points_command(CLI::App& app)
{
    struct Options {
        std::string input;
        std::string output;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* const command = app.add_subcommand("points", "Lists the pixels, run by run");
    command->add_option("IN", options->input, "run file or mask image")->required();
    command->add_option("-o,--output", options->output, "points, .csv")->required();
    command->callback([options] {
        KivRegion region = read_region(options->input);
        write_points(options->output, region, options->input);
    });
}

} // namespace kivconvert
