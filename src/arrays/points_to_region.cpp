// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"

int KIVMV::KivPointArrayToRegion(KivPointArray& points, KivRegion* region)
{
    const auto pixel_at = [&points](int i) {
        const KivPoint& point = points[i];
        return cv::Point_<int>(kiv::truncate(point.x), kiv::truncate(point.y));
    };
    return kiv::pixels_to_region(points.Length(), pixel_at, *region);
}
