// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"
#include "foundation/data_types.h"
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivContourArrayToRegion(KivContourArray& contours, int width, int height, KivRegion* region)
{
    cv::Mat mask;
    const int code = kiv::fill_contours(contours, {width, height}, mask);
    if (code == KIVMV_OK) {
        kiv::create_region(*region, {width, height}, kiv::extract_runs(mask));
    }
    return code;
}
