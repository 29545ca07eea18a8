// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "foundation/variants.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivVarArrayToContour(KivVarArray& xs, KivVarArray& ys, KivContour* contour)
{
    *contour = KivContour();
    const int length = xs.Length();
    if (length != ys.Length()) {
        return KIVMV_ERR_LENGTH;
    }
    if (length < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    auto& points = kiv::points_of(*contour);
    points.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        if (!kiv::is_number(xs[i])) {
            return KIVMV_ERR_PARAM_1;
        }
        if (!kiv::is_number(ys[i])) {
            return KIVMV_ERR_PARAM_2;
        }
        points.emplace_back(xs[i].I(), ys[i].I());
    }
    return KIVMV_OK;
}
