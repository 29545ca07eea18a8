// SPDX-License-Identifier: MIT
#include "foundation/coordinate_lists.h"
#include "foundation/first_member.h"
#include "foundation/pixels.h"

#include <KivDataConvert/KivDataConvert.h>

#include <utility>
#include <vector>

int KIVMV::KivContourToVarArray(KivContour& contour, KivVarArray* xs, KivVarArray* ys)
{
    xs->Clear();
    ys->Clear();
    const auto& points = kiv::points_of(contour);
    if (points.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    std::vector<int> columns;
    std::vector<int> rows;
    columns.reserve(points.size());
    rows.reserve(points.size());
    for (const auto& point : points) {
        columns.push_back(kiv::round_half_even(point.x));
        rows.push_back(kiv::round_half_even(point.y));
    }
    kiv::fill_coordinates(*xs, *ys, std::move(columns), std::move(rows));
    return KIVMV_OK;
}
