// SPDX-License-Identifier: MIT
#include "foundation/first_member.h"
#include "roi/roi_types.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivROIToBinImage(KivImage* image, KivROI& roi)
{
    if (!kiv::has_mask(roi)) {
        return KIVMV_ERR_PARAM_1;
    }

    IKivROIPara& parameters = kiv::parameters_of(roi);
    KivVarArray rows;
    KivVarArray col_begins;
    KivVarArray col_ends;
    int width = 0;
    int height = 0;
    parameters.GetMask(&rows, &col_begins, &col_ends, &width, &height);
    kiv::matrix_of(*image) = parameters.ToMAT(rows, col_begins, col_ends, width, height);
    return KIVMV_OK;
}
