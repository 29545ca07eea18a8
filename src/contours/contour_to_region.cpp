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
    cv::Mat mask = kiv::painted_mask(frame, kiv::RunView());
    kiv::fill_polygon(mask, std::move(polygon), 255);
    kiv::create_region(*region, frame, kiv::extract_runs(mask));
    return KIVMV_OK;
}
