// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "foundation/variants.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivVarArrayToContour(KivVarArray& xs, KivVarArray& ys, KivContour* contour)
{
    *contour = KivContour();
    const kiv::VariantReader columns(xs);
    const kiv::VariantReader rows(ys);
    const int length = columns.length();
    if (length != rows.length()) {
        return KIVMV_ERR_LENGTH;
    }
    if (length < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    auto& points = kiv::points_of(*contour);
    points.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        if (!columns.is_number(i)) {
            return KIVMV_ERR_PARAM_1;
        }
        if (!rows.is_number(i)) {
            return KIVMV_ERR_PARAM_2;
        }
        points.emplace_back(columns.value(i), rows.value(i));
    }
    return KIVMV_OK;
}
