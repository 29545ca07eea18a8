// SPDX-License-Identifier: MIT
#include "contest.h"
#include "contestants.h"
#include "kiv/call.h"

#include <KivDataConvert/KivDataConvert.h>

void bench::enter_kiv_rois(Workload& work)
{
    Shape& a = work.a;
    enter("KivROIToRegion", work, "kiv", [&a] {
        KivRegion region;
        succeed(KIVMV::KivROIToRegion(a.roi(), &region));
        return region;
    });
    enter("KivRegionToROI", work, "kiv", [&a] {
        KivROI roi;
        succeed(KIVMV::KivRegionToROI(a.region(), &roi));
        return roi;
    });
    enter("KivROIToBinImage", work, "kiv", [&a] {
        KivImage image;
        succeed(KIVMV::KivROIToBinImage(&image, a.roi()));
        return image;
    });
    enter("KivBinImageToROI", work, "kiv", [&a] {
        KivROI roi;
        succeed(KIVMV::KivBinImageToROI(a.image(), &roi));
        return roi;
    });
}
