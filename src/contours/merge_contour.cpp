// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"
#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivMergContour(KivImage& image, KivContour& contour, bool add, KivContourArray* contours)
{
    cv::Mat copy;
    kiv::matrix_of(image).copyTo(copy);
    if (image.Channels() != 1) {
        return KIVMV_ERR_CHANNELS;
    }
    if (image.Width() < 1) {
        return KIVMV_ERR_NO_IMAGE;
    }
    if (contour.Length() < 1) {
        return KIVMV_ERR_PARAM_1;
    }

    kiv::fill_polygon(copy, kiv::polygon_of(contour, kiv::round_half_even), add ? 255 : 0);
    int width = 0;
    int height = 0;
    IKivROIPara::MatToMask(copy, contours, &width, &height);
    return KIVMV_OK;
}
