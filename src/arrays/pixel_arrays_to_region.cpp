// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"
#include "foundation/variants.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivVarArrayToRegion(KivVarArray& xs, KivVarArray& ys, KivRegion* region)
{
    if (xs.Length() < 1) {
        return KIVMV_ERR_LENGTH;
    }
    if (xs.Length() != ys.Length()) {
        return KIVMV_ERR_LENGTH;
    }

    kiv::PixelList pixels;
    const int length = xs.Length();
    pixels.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        if (!kiv::is_number(xs[i])) {
            return KIVMV_ERR_PARAM_1;
        }
        if (!kiv::is_number(ys[i])) {
            return KIVMV_ERR_PARAM_2;
        }
        pixels.emplace_back(xs[i].I(), ys[i].I());
    }
    return kiv::pixels_to_region(pixels, *region);
}
