// SPDX-License-Identifier: MIT
#include "roi/mask_parts.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionToROI(KivRegion& region, KivROI* out)
{
    const kiv::Frame frame = kiv::frame_of(region);
    if (frame.width < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    const kiv::HeldRuns held = kiv::runs_of(region);
    const kiv::RunView runs = held;
    kiv::generate_mask(*out, frame, {runs.begin(), runs.end()});
    return KIVMV_OK;
}
