// SPDX-License-Identifier: MIT
// What the union, the intersection and the difference of regions have in common: everything but their rules.
#pragma once

#include "algebra/set_operations.h"

#include <KivData/KivData.h>

namespace kiv
{

/// Reads both operands whole, then writes `out` once, which may therefore be one of them. Returns the result code.
int combine_regions(KivRegion& a, KivRegion& b, KivRegion& out, const SetOperation& operation);

} // namespace kiv
