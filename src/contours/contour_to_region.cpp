// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"
#include "foundation/masks.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

#include <utility>

int KIVMV::KivContourToRegion(KivContour& contour, KivRegion* region)
{
    kiv::Polygon polygon = kiv::polygon_of(contour, kiv::truncate);
    if (polygon.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    const kiv::Frame frame = kiv::frame_of(polygon);
    const cv::Rect part = kiv::part_to_extract(frame, kiv::part_of(frame, polygon));
    cv::Mat mask = kiv::painted_mask({part.width, part.height}, kiv::RunView());
    kiv::fill_polygon(mask, std::move(polygon), 255, -part.tl());
    kiv::RunList runs = kiv::extract_runs(mask);
    for (auto& [row, begin, end] : runs) {
        row += part.y;
        begin += part.x;
        end += part.x;
    }
    kiv::create_region(*region, frame, std::move(runs));
    return KIVMV_OK;
}
