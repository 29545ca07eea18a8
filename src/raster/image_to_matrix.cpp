// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivImageToMatrix(KivImage& image, KivMatrix* matrix)
{
    if (image.Height() < 1) {
        return KIVMV_ERR_NO_IMAGE;
    }
    if (image.Channels() > 1) {
        return KIVMV_ERR_CHANNELS;
    }

    kiv::matrix_of(*matrix) = kiv::matrix_of(image);
    return KIVMV_OK;
}
