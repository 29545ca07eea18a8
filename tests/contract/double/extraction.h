// SPDX-License-Identifier: MIT
#pragma once

#include <KivRLC/KivRLC.h>

#include <optional>
#include <vector>

namespace recording
{

/// What KivRLC::FindContours() gives; if nothing, the mask's runs.
std::optional<std::vector<Run>>& extracted();

} // namespace recording
