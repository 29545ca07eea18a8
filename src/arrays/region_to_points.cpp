// SPDX-License-Identifier: MIT
#include "foundation/runs.h"

#include <KivDataConvert/KivDataConvert.h>

#include <opencv2/core.hpp>

#include <cstdint>

int KIVMV::KivRegionToPointArray(KivRegion& region, KivPointArray* points)
{
    points->Clear();
    const kiv::RegionParts parts(region);
    if (parts.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    const cv::Mat refuses_negative_height(parts.frame.height, 0, CV_8UC1);
    KivPoint point;
    for (const auto& [row, begin, end] : kiv::RunView(parts.runs)) {
        point.y = row;
        for (std::int64_t column = begin; column <= end; ++column) {
            point.x = static_cast<double>(column);
            points->Append(point);
        }
    }
    return KIVMV_OK;
}
