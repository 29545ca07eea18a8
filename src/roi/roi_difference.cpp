// SPDX-License-Identifier: MIT
#include "roi/roi_operation.h"

int KIVMV::KivROISub(KivROI& a, KivROI& b, KivROI* out)
{
    return kiv::combine_rois(a, b, *out, kiv::difference_of_rois);
}
