// SPDX-License-Identifier: MIT
// The way from listed pixels to a region, which pixel arrays and point arrays share.
#pragma once

#include "foundation/pixels.h"

#include <KivData/KivData.h>

namespace kiv
{

/// Makes `region` of the pixels, in the frame around them. Pixels with a negative coordinate are left out. Refuses a
/// list, which must not be empty, whose largest column or row is below 1. Returns the result code.
int pixels_to_region(const PixelList& pixels, KivRegion& region);

} // namespace kiv
