// SPDX-License-Identifier: MIT
// Set algebra on regions of the scene, compared with the same on masks.
//
// At the ends of run lists the library follows special rules (docs/set-algebra.md): in the last row of either operand
// the result may differ from that of the masks.
#include "demo/checks.h"
#include "demo/pictures.h"
#include "demo/steps.h"
#include "kivconvert/region_files.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <fmt/format.h>
#include <opencv2/imgproc.hpp>

namespace demo
{
namespace
{

const cv::Scalar amber(60, 200, 255);
const cv::Scalar green(110, 220, 90);
const cv::Scalar blue(255, 170, 70);
const cv::Scalar pale_blue(255, 220, 190);
const cv::Scalar violet(230, 110, 190);

using Combination = int (*)(KivRegion&, KivRegion&, KivRegion*);

Report combine(Combination combination, KivRegion& a, KivRegion& b)
{
    Report report;
    report.milliseconds =
        time_of([&] { kivconvert::expect_success(combination(a, b, &report.region), "set operation"); });
    return report;
}

/// The mask with every hole filled: what cannot be reached from outside the picture.
KivRegion without_holes(const cv::Mat& mask)
{
    cv::Mat padded;
    cv::copyMakeBorder(mask, padded, 1, 1, 1, 1, cv::BORDER_CONSTANT, cv::Scalar(0));
    cv::floodFill(padded, cv::Point(0, 0), cv::Scalar(128));
    cv::Mat inside = padded(cv::Rect({1, 1}, mask.size())) != 128;
    KivImage image(inside);
    return kivconvert::region_of(image, "filled parts");
}

/// The tinted region, and the borders of the ROI that it was made with.
cv::Mat with_borders(const Inspection& inspection, KivROI& roi, KivRegion& region)
{
    cv::Mat picture = tinted(inspection, region, blue);
    KivContourArray borders;
    kivconvert::expect_success(KIVMV::KivROIToContourArray(roi, &borders), "ring");
    for (const KivContour& border : borders) {
        draw_contour(picture, border, pale_blue, 2);
    }
    return picture;
}

} // namespace

Report difference_of_regions(Inspection& inspection)
{
    inspection.filled = without_holes(inspection.mask.Mat());
    Report report = combine(KIVMV::KivRegionSub, inspection.filled, inspection.parts);
    inspection.holes = report.region;
    judge_pixels(report, mask_of(inspection.filled) & ~inspection.mask.Mat(), {&inspection.filled, &inspection.parts});
    add_picture(inspection, "holes", "difference: the holes", tinted(inspection, report.region, amber));
    return report;
}

Report union_of_regions(Inspection& inspection)
{
    Report report = combine(KIVMV::KivRegionAdd, inspection.parts, inspection.holes);
    judge_pixels(report, inspection.mask.Mat() | mask_of(inspection.holes), {&inspection.parts, &inspection.holes});
    add_picture(inspection, "union", "union: parts and holes", tinted(inspection, report.region, green));
    return report;
}

Report complement_of_region(Inspection& inspection)
{
    Report report;
    report.milliseconds = time_of(
        [&] { kivconvert::expect_success(KIVMV::KivRegionNot(inspection.filled, &report.region), "complement"); });
    // Gaps reach into the runs beside them, so the two have pixels in common; the last row with runs gives nothing.
    const cv::Mat filled = mask_of(inspection.filled);
    const cv::Mat result = mask_of(report.region);
    cv::Mat uncovered = ~(filled | result);
    clear_last_row_of(inspection.filled, uncovered);
    report.passed = cv::countNonZero(uncovered) == 0 || inspection.filled.Runs().empty();
    report.remark =
        fmt::format("all but the last row; gaps take {} pixels of the parts", cv::countNonZero(filled & result));
    add_picture(inspection, "complement", "complement: the table but one row",
                tinted(inspection, report.region, violet));
    return report;
}

Report select_with_ring(Inspection& inspection)
{
    const int width = inspection.mask.Width();
    const int height = inspection.mask.Height();
    const double radius = 0.5 * std::min(width, height);
    KivROI ring = KivROI::Ring(0.5 * width, 0.5 * height, 0.35 * radius, 0.95 * radius, width, height);
    KivRegion window;
    kivconvert::expect_success(KIVMV::KivROIToRegion(ring, &window), "ring");

    Report report = combine(KIVMV::KivRegionAnd, inspection.parts, window);
    inspection.selected = report.region;
    judge_pixels(report, inspection.mask.Mat() & mask_of(window), {&inspection.parts, &window});
    add_picture(inspection, "ring", "intersection with a ring", with_borders(inspection, ring, report.region));
    return report;
}

} // namespace demo
