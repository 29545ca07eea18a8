// SPDX-License-Identifier: MIT
#include "foundation/masks.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivRegionToVarArray(KivRegion& region, KivVarArray* xs, KivVarArray* ys)
{
    xs->Clear();
    ys->Clear();
    const kiv::RegionParts parts(region);
    if (parts.empty()) {
        return KIVMV_ERR_PARAM_1;
    }

    // A mask brings the pixels into order and drops repetitions, whatever the runs are like.
    cv::Mat mask = kiv::uniform_mask(parts.frame, 0);
    kiv::paint_runs(parts.runs, 255, mask);
    for (int y = 0; y < mask.rows; ++y) {
        const uchar* row = mask.data + static_cast<std::size_t>(y) * mask.step[0];
        for (int x = 0; x < mask.cols; ++x) {
            if (row[x] != 0) {
                xs->Append(KivVar(x));
                ys->Append(KivVar(y));
            }
        }
    }
    return KIVMV_OK;
}
