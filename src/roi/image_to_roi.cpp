// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivBinImageToROI(KivImage& image, KivROI* out)
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

    kiv::become_mask_of(*out, kiv::matrix_of(image));
    return KIVMV_OK;
}
