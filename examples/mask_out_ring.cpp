// SPDX-License-Identifier: MIT
// Mask out a ring: an inspection shall pass over a ring in the middle of a plate.
#include "show.h"

int main()
{
    KivROI plate = KivROI::Rectangle(1, 1, 21, 11, 23, 13); // left, top, right, bottom, frame
    KivROI ring = KivROI::Ring(11, 6, 2, 4.5, 23, 13);      // centre, inner and outer radius, frame

    KivROI inspected;
    KivImage mask;
    if (KIVMV::KivROISub(plate, ring, &inspected) != KIVMV::KIVMV_OK ||
        KIVMV::KivROIToBinImage(&mask, inspected) != KIVMV::KIVMV_OK) {
        return 1;
    }
    show(mask);
}
// Prints:
//   .......................
//   .#####################.
//   .########.....########.
//   .#######.......#######.
//   .######.........######.
//   .######...###...######.
//   .######...###...######.
//   .######...###...######.
//   .######.........######.
//   .#######.......#######.
//   .########.....########.
//   .#####################.
//   .......................
