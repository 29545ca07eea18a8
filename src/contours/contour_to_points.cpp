// SPDX-License-Identifier: MIT
#include "foundation/bulk.h"
#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivContourToPointArray(KivContour& contour, KivPointArray* points)
{
    points->Clear();
    const auto& outline = kiv::points_of(contour);
    if (outline.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::reserve(*points, outline.size());
    KivPoint point;
    for (const auto& on_outline : outline) {
        point.x = on_outline.x;
        point.y = on_outline.y;
        points->Append(point);
    }
    return KIVMV_OK;
}
