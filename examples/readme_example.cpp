// SPDX-License-Identifier: MIT
// A ring becomes runs, the runs become a mask, the mask becomes contours.
#include <KivDataConvert/KivDataConvert.h>

#include <iostream>

int main()
{
    KivROI ring = KivROI::Ring(320, 240, 60, 120, 640, 480); // centre, radii, frame
    KivRegion region;
    KivImage mask;
    KivContourArray contours;
    const bool done = KIVMV::KivROIToRegion(ring, &region) == KIVMV::KIVMV_OK &&      // runs
                      KIVMV::KivRegionToBinImage(&mask, region) == KIVMV::KIVMV_OK && // 255 on the ring, 0 elsewhere
                      KIVMV::KivBinImageToContourArray(mask, &contours) == KIVMV::KIVMV_OK; // one outline, one hole
    std::cout << "ring: " << region.Runs().size() << " runs, " << contours.Length() << " contours\n";
    return done ? 0 : 1;
}
// Prints:
//   ring: 360 runs, 2 contours
