// SPDX-License-Identifier: MIT
#include "arrays/pixels_to_region.h"

#include "foundation/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>

int kiv::pixels_to_region(const PixelLists& pixels, KivRegion& region)
{
    const int column = *std::max_element(pixels.columns.begin(), pixels.columns.end());
    const int row = *std::max_element(pixels.rows.begin(), pixels.rows.end());
    if (row < 1 || column < 1) {
        return KIVMV::KIVMV_ERR_PARAM_1;
    }

    const Frame frame = frame_up_to(column, row);
    create_region(region, frame, runs_of_pixels(pixels, frame));
    return KIVMV::KIVMV_OK;
}
