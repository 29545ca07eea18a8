// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivBinImageToContourArray(KivImage& image, KivContourArray* contours)
{
    if (image.Height() < 1) {
        return KIVMV_ERR_NO_IMAGE;
    }
    if (image.Channels() > 1) {
        return KIVMV_ERR_CHANNELS;
    }
    if (image.BitDepth() != 0) {
        return KIVMV_ERR_BIT_DEPTH;
    }

    int width = 0;
    int height = 0;
    IKivROIPara::MatToMask(kiv::matrix_of(image), contours, &width, &height);
    return KIVMV_OK;
}
