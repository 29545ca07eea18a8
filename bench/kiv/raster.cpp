// SPDX-License-Identifier: MIT
#include "contest.h"
#include "contestants.h"
#include "kiv/call.h"

#include <KivDataConvert/KivDataConvert.h>

void bench::enter_kiv_raster(Workload& work)
{
    Shape& a = work.a;
    enter("KivImageToRegion", work, "kiv", [&a] {
        KivRegion region;
        succeed(KIVMV::KivImageToRegion(a.image(), &region));
        return region;
    });
    enter("KivBinImageToRegion", work, "kiv", [&a] {
        KivRegion region;
        succeed(KIVMV::KivBinImageToRegion(a.image(), &region));
        return region;
    });
    enter("KivRegionToImage", work, "kiv", [&a] {
        KivImage image;
        succeed(KIVMV::KivRegionToImage(&image, a.region(), 255, 0, a.mask.cols, a.mask.rows));
        return image;
    });
    enter("KivRegionToBinImage", work, "kiv", [&a] {
        KivImage image;
        succeed(KIVMV::KivRegionToBinImage(&image, a.region()));
        return image;
    });
    enter("KivImageToMatrix", work, "kiv", [&a] {
        KivMatrix matrix;
        succeed(KIVMV::KivImageToMatrix(a.image(), &matrix));
        return matrix;
    });
    enter("KivMatrixToImage", work, "kiv", [&a] {
        KivImage image;
        succeed(KIVMV::KivMatrixToImage(&image, a.matrix()));
        return image;
    });
}
