// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivVarArrayToRegion(KivVarArray& xs, KivVarArray& ys, KivRegion* region)
{
    const int length = xs.Length();
    if (length < 1 || length != ys.Length()) {
        return KIVMV_ERR_LENGTH;
    }
    const int numbers_in_xs = kiv::count_leading_numbers(xs);
    const int numbers_in_ys = kiv::count_leading_numbers(ys);
    if (numbers_in_xs < length && numbers_in_xs <= numbers_in_ys) {
        return KIVMV_ERR_PARAM_1;
    }
    if (numbers_in_ys < length) {
        return KIVMV_ERR_PARAM_2;
    }

    const kiv::ViewOrCopy<int> columns = kiv::ints_of(xs, length);
    const kiv::ViewOrCopy<int> rows = kiv::ints_of(ys, length);
    return kiv::pixels_to_region({columns, rows}, *region);
}
