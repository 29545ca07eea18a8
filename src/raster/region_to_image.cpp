// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "foundation/masks.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

namespace
{

bool is_grey_value(int value)
{
    return value >= 0 && value <= 255;
}

} // namespace

int KIVMV::KivRegionToImage(KivImage* image, KivRegion& region, int foreground, int background, int width, int height)
{
    if (!is_grey_value(foreground)) {
        return KIVMV_ERR_PARAM_2;
    }
    if (!is_grey_value(background)) {
        return KIVMV_ERR_PARAM_3;
    }
    if (width < 1) {
        return KIVMV_ERR_PARAM_4;
    }
    if (height < 1) {
        return KIVMV_ERR_PARAM_5;
    }
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    try {
        kiv::matrix_of(*image) = kiv::painted_mask({width, height}, parts.runs, foreground, background);
    } catch (...) {
        return KIVMV_ERR_EXCEPTION;
    }
    return KIVMV_OK;
}

int KIVMV::KivRegionToBinImage(KivImage* image, KivRegion& region)
{
    const kiv::FramedRuns parts = kiv::parts_of(region);
    if (parts.frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::matrix_of(*image) = kiv::painted_mask(parts.frame, parts.runs);
    return KIVMV_OK;
}
