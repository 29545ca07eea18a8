// SPDX-License-Identifier: MIT
// Outlines along pixel edges keep their laws, and filled by pixel centres give the set back by either rule.
//
// Input: a picture.
#include "inputs.h"
#include "target.h"

#include "outline_laws.h"

#include <KivData/KivRunPolygons.h>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const cv::Mat picture = fuzz::FuzzedBytes(bytes, size).picture();
    outline_laws::expect_outlines(picture);

    const KivRunSet set = run_sets::set_of(picture);
    const KivRuns::Outlines outlines = KivRuns::OutlinesOf(set);
    std::vector<std::vector<cv::Point_<double>>> rings;
    for (const KivRuns::OutlineRing& ring : outlines.rings) {
        rings.emplace_back();
        for (std::size_t i = ring.begin; i < ring.end; ++i) {
            rings.back().emplace_back(outlines.corners[i].x - 0.5, outlines.corners[i].y - 0.5);
        }
    }
    for (const KivRuns::FillRule rule : {KivRuns::FillRule::EvenOdd, KivRuns::FillRule::NonZero}) {
        EXPECT_EQ(KivRuns::FromPolygons(rings, picture.cols, picture.rows, rule), set);
    }
    return 0;
}
