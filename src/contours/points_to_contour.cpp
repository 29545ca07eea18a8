// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivPointArrayToContour(KivPointArray& points, KivContour* contour)
{
    auto& outline = kiv::points_of(*contour);
    outline.clear();
    const int length = points.Length();
    if (length < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    outline.reserve(static_cast<std::size_t>(length));
    KivPoint point;
    for (int i = 0; i < length; ++i) {
        point = points[i];
        outline.push_back({point.x, point.y});
    }
    return KIVMV_OK;
}
