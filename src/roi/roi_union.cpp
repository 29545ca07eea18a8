// SPDX-License-Identifier: MIT
#include "roi/roi_operation.h"

int KIVMV::KivROIAdd(KivROI& a, KivROI& b, KivROI* out)
{
    return kiv::combine_rois(a, b, *out, kiv::union_of_rois);
}
