// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"

#include <KivDataConvert/KivDataConvert.h>

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

int KIVMV::KivPointArrayToRegion(KivPointArray& points, KivRegion* region)
{
    const int length = points.Length();
    if (length < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    if (std::optional<kiv::PixelRuns> ordered = kiv::runs_of_ordered_points(points)) {
        return kiv::pixels_to_region(*std::move(ordered), *region);
    }
    std::vector<int> columns(static_cast<std::size_t>(length));
    std::vector<int> rows(columns.size());
    for (int i = 0; i < length; ++i) {
        const KivPoint& point = points[i];
        columns[static_cast<std::size_t>(i)] = kiv::truncate(point.x);
        rows[static_cast<std::size_t>(i)] = kiv::truncate(point.y);
    }
    return kiv::pixels_to_region({columns, rows}, *region);
}
