// SPDX-License-Identifier: MIT
#include "foundation/bulk.h"
#include "foundation/runs.h"

#include <KivDataConvert/KivDataConvert.h>

#include <opencv2/core.hpp>

#include <cstdint>

namespace
{

template <class Array>
void list_pixels(kiv::RunView runs, Array& points)
{
    if constexpr (kiv::TakesPixels<Array>) {
        std::size_t count = 0;
        for (const auto& [row, begin, end] : runs) {
            count += begin <= end ? kiv::length_of(begin, end) : 0;
        }
        points.Reserve(count);
        for (const auto& [row, begin, end] : runs) {
            if (begin <= end) {
                points.AppendPixels(row, begin, end);
            }
        }
    } else {
        KivPoint point;
        for (const auto& [row, begin, end] : runs) {
            point.y = row;
            for (std::int64_t column = begin; column <= end; ++column) {
                point.x = static_cast<double>(column);
                points.Append(point);
            }
        }
    }
}

} // namespace

int KIVMV::KivRegionToPointArray(KivRegion& region, KivPointArray* points)
{
    points->Clear();
    const kiv::RegionParts parts(region);
    if (parts.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    const cv::Mat refuses_negative_height(parts.frame.height, 0, CV_8UC1);
    list_pixels(parts.runs, *points);
    return KIVMV_OK;
}
