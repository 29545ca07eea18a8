// SPDX-License-Identifier: MIT
// The union, the intersection and the difference of regions: one function, as they differ only in their rules.
#pragma once

#include "algebra/set_operations.h"

#include <KivData/KivData.h>

namespace kiv
{

/// Combines two regions and returns the result code. `out` is written once, after both operands have been read, so it
/// may be one of them.
int combine_regions(KivRegion& a, KivRegion& b, KivRegion& out, const SetOperation& operation);

} // namespace kiv
