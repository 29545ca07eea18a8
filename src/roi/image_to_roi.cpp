// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"

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

    IKivROIPara& parameters = kiv::parameters_of(*out);
    KivVarArray rows;
    KivVarArray col_begins;
    KivVarArray col_ends;
    int width = 0;
    int height = 0;
    parameters.MatToMask(kiv::matrix_of(image), &rows, &col_begins, &col_ends, &width, &height);
    parameters.GenMask(rows, col_begins, col_ends, width, height);
    return KIVMV_OK;
}
