// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <cstddef>

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

    // The points before the first element that is not a number are kept even if the call fails.
    const int numbers_in_xs = kiv::count_leading_numbers(xs);
    const int numbers_in_ys = kiv::count_leading_numbers(ys);
    const int converted = std::min(numbers_in_xs, numbers_in_ys);
    const kiv::ViewOrCopy<int> columns = kiv::ints_of(xs, converted);
    const kiv::ViewOrCopy<int> rows = kiv::ints_of(ys, converted);
    auto& points = kiv::points_of(*contour);
    points.reserve(static_cast<std::size_t>(converted));
    for (std::size_t i = 0; i < columns.view().size(); ++i) {
        points.emplace_back(columns.view()[i], rows.view()[i]);
    }
    if (converted < length) {
        return numbers_in_xs == converted ? KIVMV_ERR_PARAM_1 : KIVMV_ERR_PARAM_2;
    }
    return KIVMV_OK;
}
