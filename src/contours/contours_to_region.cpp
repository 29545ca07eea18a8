// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

#include <optional>
#include <utility>

int KIVMV::KivContourArrayToRegion(KivContourArray& contours, int width, int height, KivRegion* region)
{
    const int code = kiv::check_filling(contours, {width, height});
    if (code != KIVMV_OK) {
        return code;
    }
    std::optional<kiv::RunList> runs = kiv::filled_runs(contours, {width, height});
    if (!runs) {
        return KIVMV_ERR_EXCEPTION;
    }
    kiv::create_region(*region, {width, height}, *std::move(runs));
    return KIVMV_OK;
}
