// SPDX-License-Identifier: MIT
// --connectivity: which pixels are neighbours.
#pragma once

#include "kivconvert/cli_types.h"

#include <KivRLC/KivRunMeasures.h>

namespace kivconvert
{

inline constexpr KivRuns::Connectivity default_connectivity = KivRuns::Connectivity::Eight;

void add_connectivity_option(CLI::App& command, KivRuns::Connectivity& connectivity);

} // namespace kivconvert
