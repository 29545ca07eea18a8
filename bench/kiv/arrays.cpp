// SPDX-License-Identifier: MIT
#include "contest.h"
#include "contestants.h"
#include "kiv/call.h"

#include <KivDataConvert/KivDataConvert.h>

void bench::enter_kiv_arrays(Workload& work)
{
    Shape& a = work.a;
    enter("KivRegionToVarArray", work, "kiv", [&a] {
        Pixels pixels;
        succeed(KIVMV::KivRegionToVarArray(a.region(), &pixels.xs, &pixels.ys));
        return pixels;
    });
    enter("KivVarArrayToRegion", work, "kiv", [&a] {
        KivRegion region;
        succeed(KIVMV::KivVarArrayToRegion(a.pixels().xs, a.pixels().ys, &region));
        return region;
    });
    enter("KivRegionToPointArray", work, "kiv", [&a] {
        KivPointArray points;
        succeed(KIVMV::KivRegionToPointArray(a.region(), &points));
        return points;
    });
    enter("KivPointArrayToRegion", work, "kiv", [&a] {
        KivRegion region;
        succeed(KIVMV::KivPointArrayToRegion(a.points(), &region));
        return region;
    });
    enter("maxbit", work, "kiv", [&a] { return KIVMV::maxbit(a.run_arrays().rows); });
}
