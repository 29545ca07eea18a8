// SPDX-License-Identifier: MIT
// The pixels of a region in its frame. The frame's size costs nothing.
#pragma once

#include <KivData/KivRunBridges.h>
#include <KivRLC/KivRunTransforms.h>

namespace kivconvert
{

inline KivRunSet visible_pixels(const KivRegion& region)
{
    return KivRuns::Crop(KivRuns::SetOf(region), {0, region.Height() - 1, 0, region.Width() - 1});
}

} // namespace kivconvert
