// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivPointArrayToRegion(KivPointArray& points, KivRegion* region)
{
    const int length = points.Length();
    if (length < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::PixelList pixels;
    pixels.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        const KivPoint& point = points[i];
        pixels.emplace_back(kiv::truncate(point.x), kiv::truncate(point.y));
    }
    return kiv::pixels_to_region(pixels, *region);
}
