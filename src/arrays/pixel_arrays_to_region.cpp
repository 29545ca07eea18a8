// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"
#include "foundation/variants.h"

int KIVMV::KivVarArrayToRegion(KivVarArray& xs, KivVarArray& ys, KivRegion* region)
{
    if (xs.Length() < 1) {
        return KIVMV_ERR_LENGTH;
    }
    if (xs.Length() != ys.Length()) {
        return KIVMV_ERR_LENGTH;
    }

    const kiv::VariantReader columns(xs);
    const kiv::VariantReader rows(ys);
    const int length = columns.length();
    for (int i = 0; i < length; ++i) {
        if (!columns.is_number(i)) {
            return KIVMV_ERR_PARAM_1;
        }
        if (!rows.is_number(i)) {
            return KIVMV_ERR_PARAM_2;
        }
    }
    const auto pixel_at = [&columns, &rows](int i) { return cv::Point_<int>(columns.value(i), rows.value(i)); };
    return kiv::pixels_to_region(length, pixel_at, *region);
}
