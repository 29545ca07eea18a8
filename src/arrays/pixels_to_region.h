// SPDX-License-Identifier: MIT
// The conversion of listed pixels to a region, shared by pixel arrays and point arrays.
#pragma once

#include "seam/data_types.h"

#include <KivData/KivData.h>

namespace kiv
{

/// Replaces `region` by the listed pixels, of which there must be at least one, in the frame from (0, 0) to their
/// largest column and row. Ignores pixels with a negative coordinate. Rejects lists whose largest column or row is
/// below one. Returns the result code.
int pixels_to_region(const PixelLists& pixels, KivRegion& region);

/// The same for pixels whose runs are known.
int pixels_to_region(PixelRuns pixels, KivRegion& region);

} // namespace kiv
