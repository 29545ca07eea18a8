// SPDX-License-Identifier: MIT
#include "foundation/coordinate_lists.h"
#include "foundation/first_member.h"
#include "foundation/pixels.h"

#include <KivDataConvert/KivDataConvert.h>

#include <cstddef>
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

    std::vector<int> columns(points.size());
    std::vector<int> rows(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        columns[i] = kiv::round_half_even(points[i].x);
        rows[i] = kiv::round_half_even(points[i].y);
    }
    kiv::fill_coordinates(*xs, *ys, std::move(columns), std::move(rows));
    return KIVMV_OK;
}
