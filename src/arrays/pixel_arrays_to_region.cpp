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
    const kiv::VariantReader columns(xs);
    const kiv::VariantReader rows(ys);
    const int length = columns.length();
    pixels.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        if (!columns.is_number(i)) {
            return KIVMV_ERR_PARAM_1;
        }
        if (!rows.is_number(i)) {
            return KIVMV_ERR_PARAM_2;
        }
        pixels.emplace_back(columns.value(i), rows.value(i));
    }
    return kiv::pixels_to_region(pixels, *region);
}
