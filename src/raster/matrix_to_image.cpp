// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivMatrixToImage(KivImage* image, KivMatrix& matrix)
{
    const cv::Mat& source = kiv::matrix_of(matrix);
    if (source.rows < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    // One step for every element type: to 8 bits with scale 1 and no offset, which for 8 bits is a plain copy.
    cv::Mat copy;
    source.convertTo(copy, CV_8U);
    kiv::matrix_of(*image) = copy;
    return KIVMV_OK;
}
