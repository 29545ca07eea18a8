// SPDX-License-Identifier: MIT
#include "foundation/bulk.h"
#include "foundation/first_member.h"
#include "foundation/pixels.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivContourToVarArray(KivContour& contour, KivVarArray* xs, KivVarArray* ys)
{
    xs->Clear();
    ys->Clear();
    const auto& points = kiv::points_of(contour);
    if (points.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::reserve(*xs, points.size());
    kiv::reserve(*ys, points.size());
    for (const auto& point : points) {
        xs->Append(KivVar(kiv::round_half_even(point.x)));
        ys->Append(KivVar(kiv::round_half_even(point.y)));
    }
    return KIVMV_OK;
}
