// SPDX-License-Identifier: MIT
#include "roi/mask_parts.h"

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
    kiv::RunArrays arrays;
    auto& [rows, col_begins, col_ends] = arrays;
    kiv::Frame frame;
    parameters.MatToMask(kiv::matrix_of(image), &rows, &col_begins, &col_ends, &frame.width, &frame.height);
    parameters.GenMask(rows, col_begins, col_ends, frame.width, frame.height);
    return KIVMV_OK;
}
