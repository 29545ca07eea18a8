// SPDX-License-Identifier: MIT
#include "contest.h"
#include "contestants.h"
#include "kiv/call.h"

#include <KivDataConvert/KivDataConvert.h>

void bench::enter_kiv_contours(Workload& work)
{
    Shape& a = work.a;
    enter("KivContourToVarArray", work, "kiv", [&a] {
        Pixels pixels;
        succeed(KIVMV::KivContourToVarArray(a.longest_contour(), &pixels.xs, &pixels.ys));
        return pixels;
    });
    enter("KivVarArrayToContour", work, "kiv", [&a] {
        KivContour contour;
        succeed(KIVMV::KivVarArrayToContour(a.longest_pixels().xs, a.longest_pixels().ys, &contour));
        return contour;
    });
    enter("KivContourToPointArray", work, "kiv", [&a] {
        KivPointArray points;
        succeed(KIVMV::KivContourToPointArray(a.longest_contour(), &points));
        return points;
    });
    enter("KivPointArrayToContour", work, "kiv", [&a] {
        KivContour contour;
        succeed(KIVMV::KivPointArrayToContour(a.longest_points(), &contour));
        return contour;
    });
    enter("KivContourToRegion", work, "kiv", [&a] {
        KivRegion region;
        succeed(KIVMV::KivContourToRegion(a.longest_contour(), &region));
        return region;
    });
}

void bench::enter_kiv_contour_arrays(Workload& work)
{
    Shape& a = work.a;
    enter("KivRegionToContourArray", work, "kiv", [&a] {
        KivContourArray contours;
        succeed(KIVMV::KivRegionToContourArray(a.region(), &contours));
        return contours;
    });
    enter("KivBinImageToContourArray", work, "kiv", [&a] {
        KivContourArray contours;
        succeed(KIVMV::KivBinImageToContourArray(a.image(), &contours));
        return contours;
    });
    enter("KivMergContour", work, "kiv", [&a, &b = work.b] {
        KivContourArray contours;
        succeed(KIVMV::KivMergContour(a.image(), b.longest_contour(), true, &contours));
        return contours;
    });
    enter("KivROIToContourArray", work, "kiv", [&a] {
        KivContourArray contours;
        succeed(KIVMV::KivROIToContourArray(a.roi(), &contours));
        return contours;
    });
    enter("KivContourArrayToRegion", work, "kiv", [&a] {
        KivRegion region;
        succeed(KIVMV::KivContourArrayToRegion(a.contours(), a.mask.cols, a.mask.rows, &region));
        return region;
    });
    enter("KivContourArrayToBinImage", work, "kiv", [&a] {
        KivImage image;
        succeed(KIVMV::KivContourArrayToBinImage(&image, a.contours(), a.mask.cols, a.mask.rows));
        return image;
    });
}
