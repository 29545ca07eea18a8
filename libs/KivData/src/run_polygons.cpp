// SPDX-License-Identifier: MIT
#include "argument_checks.h"
#include "polygon_area.h"

#include <KivData/KivRunPolygons.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

KivRunSet KivRuns::FromPolygons(const std::vector<std::vector<cv::Point_<double>>>& rings, int width, int height,
                                FillRule rule)
{
    kivdata::check_frame(width, height);
    for (const std::vector<cv::Point_<double>>& ring : rings) {
        if (!std::all_of(ring.begin(), ring.end(),
                         [](const auto& p) { return std::isfinite(p.x) && std::isfinite(p.y); })) {
            throw std::invalid_argument("KivRuns: a polygon has a coordinate that is not finite");
        }
    }
    return KivRunSet(kivdata::PolygonArea(rings.data(), rings.size(), rule).runs(width, height));
}
