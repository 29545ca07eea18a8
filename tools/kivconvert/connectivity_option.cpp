// SPDX-License-Identifier: MIT
#include "kivconvert/connectivity_option.h"

#include <CLI/CLI.hpp>

namespace kivconvert
{

void add_connectivity_option(CLI::App& command, KivRuns::Connectivity& connectivity)
{
    const auto set = [&connectivity](int neighbours) { connectivity = KivRuns::Connectivity{neighbours}; };
    command
        .add_option_function<int>("--connectivity", set,
                                  "neighbours of a pixel: 4, by edges, or 8, by edges and corners; 8 by default")
        ->type_name("4|8")
        ->check(CLI::IsMember({4, 8}).description(""));
}

} // namespace kivconvert
