// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivContourToPointArray(KivContour& contour, KivPointArray* points)
{
    points->Clear();
    const auto& outline = kiv::points_of(contour);
    if (outline.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::reserve(*points, outline.size());
    KivPoint copy;
    for (const auto& point : outline) {
        copy.x = point.x;
        copy.y = point.y;
        points->Append(copy);
    }
    return KIVMV_OK;
}
