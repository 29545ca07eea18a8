// SPDX-License-Identifier: MIT
#include "roi/roi_operation.h"

int KIVMV::KivROIAnd(KivROI& a, KivROI& b, KivROI* out)
{
    return kiv::combine_rois(a, b, *out, kiv::intersection_of_rois);
}
