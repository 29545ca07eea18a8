// SPDX-License-Identifier: MIT
#include "contours/contour_filling.h"
#include "foundation/first_member.h"

#include <KivDataConvert/KivDataConvert.h>

int KIVMV::KivContourArrayToBinImage(KivImage* image, KivContourArray& contours, int width, int height)
{
    return kiv::fill_contours(contours, {width, height}, kiv::matrix_of(*image));
}
