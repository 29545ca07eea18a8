// SPDX-License-Identifier: MIT
// Contours: tracing and filling are exact inverses, and a contour can be cut out of a mask.
#include "demo/checks.h"
#include "demo/pictures.h"
#include "demo/steps.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <opencv2/imgproc.hpp>

namespace demo
{
namespace
{

const cv::Scalar outer_colour(80, 230, 120);
const cv::Scalar hole_colour(60, 170, 255);
const cv::Scalar star_colour(200, 200, 255);
const cv::Scalar red(90, 90, 240);

std::ptrdiff_t count_holes(const KivContourArray& contours)
{
    return std::count_if(contours.begin(), contours.end(), [](const KivContour& contour) { return contour.IsHole(); });
}

/// The camera's picture with the contours drawn on it.
cv::Mat outlined(const Inspection& inspection, const KivContourArray& contours)
{
    cv::Mat picture;
    cv::cvtColor(inspection.camera.Mat() * 0.8, picture, cv::COLOR_GRAY2BGR);
    for (const KivContour& contour : contours) {
        draw_contour(picture, contour, contour.IsHole() ? hole_colour : outer_colour);
    }
    return picture;
}

KivRegion filled(KivContourArray& contours, cv::Size frame)
{
    KivRegion region(frame.width, frame.height, {});
    if (contours.Length() > 0) {
        kivconvert::expect_success(KIVMV::KivContourArrayToRegion(contours, frame.width, frame.height, &region),
                                   "fill");
    }
    return region;
}

/// A five-pointed star in the middle of the picture, with corners on pixels.
KivContour star(cv::Size frame)
{
    const double radius = 0.45 * std::min(frame.width, frame.height);
    KivContour::Points points;
    for (int corner = 0; corner < 10; ++corner) {
        const double angle = (corner / 5.0 - 0.5) * CV_PI;
        const double reach = corner % 2 == 0 ? radius : 0.45 * radius;
        points.emplace_back(std::round(frame.width / 2.0 + reach * std::cos(angle)),
                            std::round(frame.height / 2.0 + reach * std::sin(angle)));
    }
    return KivContour(std::move(points));
}

/// The pixels of a contour with corners on pixels, by way of a region.
cv::Mat contour_mask(KivContour& contour, cv::Size frame)
{
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivContourToRegion(contour, &region), "contour to region");
    KivImage mask;
    kivconvert::expect_success(KIVMV::KivRegionToImage(&mask, region, 255, 0, frame.width, frame.height), "mask");
    return mask.Mat();
}

} // namespace

Report cut_out_contour(Inspection& inspection)
{
    Report report;
    const cv::Mat before = mask_of(inspection.selected);
    KivImage mask(before);
    KivContour contour = star(before.size());
    KivContourArray contours;
    report.milliseconds = time_of([&] {
        kivconvert::expect_success(KIVMV::KivMergContour(mask, contour, false, &contours), "cut");
        report.region = filled(contours, before.size());
    });
    inspection.selected = report.region;
    judge_pixels(report, before & ~contour_mask(contour, before.size()));
    cv::Mat picture = tinted(inspection, report.region, red);
    draw_contour(picture, contour, star_colour, 2);
    add_picture(inspection, "cut", "a star cut out", picture);
    return report;
}

Report trace_and_fill(Inspection& inspection)
{
    Report report;
    report.milliseconds = time_of([&] {
        inspection.outlines = kivconvert::contours_of(inspection.selected, "trace");
        report.region = filled(inspection.outlines.contours, inspection.mask.Mat().size());
    });
    const KivContourArray& contours = inspection.outlines.contours;
    const std::ptrdiff_t holes = count_holes(contours);
    judge_equality(report, report.region == inspection.selected);
    report.remark += fmt::format("; {} outer contours, {} holes", contours.Length() - holes, holes);
    add_picture(inspection, "contours", "contours, outer and holes", outlined(inspection, contours));
    return report;
}

} // namespace demo
