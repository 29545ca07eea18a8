// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"
#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivContourArrayToBinImage(KivImage* image, KivContourArray& contours, int width, int height)
{
    const int code = kiv::check_filling(contours, {width, height});
    if (code != KIVMV_OK) {
        return code;
    }
    cv::Mat& pixels = kiv::matrix_of(*image);
    try {
        pixels = IKivROIPara::ToMAT(contours, width, height);
    } catch (...) {
        return KIVMV_ERR_EXCEPTION;
    }
    return KIVMV_OK;
}
