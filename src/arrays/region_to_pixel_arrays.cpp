// SPDX-License-Identifier: MIT
#include "foundation/coordinate_lists.h"
#include "foundation/masks.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

#include <utility>

int KIVMV::KivRegionToVarArray(KivRegion& region, KivVarArray* xs, KivVarArray* ys)
{
    xs->Clear();
    ys->Clear();
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::require_mask_frame(parts.frame);
    kiv::PixelCoordinates pixels = kiv::pixels_of(parts.runs, parts.frame);
    kiv::fill_coordinates(*xs, *ys, std::move(pixels.columns), std::move(pixels.rows));
    return KIVMV_OK;
}
