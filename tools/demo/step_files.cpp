// SPDX-License-Identifier: MIT
// The files of an inspection: contours as SVG for people and as JSON for programs, and the pixels as points in CSV.
#include "demo/checks.h"
#include "demo/steps.h"
#include "kivconvert/files.h"
#include "kivconvert/outlines.h"
#include "kivconvert/point_files.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/visible_pixels.h"

#include <KivDataConvert/KivDataConvert.h>
#include <KivRLC/KivRunMeasures.h>

#include <algorithm>
#include <fmt/format.h>

namespace demo
{
namespace
{

std::size_t count(const std::string& text, const std::string& word)
{
    std::size_t found = 0;
    for (auto at = text.find(word); at != text.npos; at = text.find(word, at + word.size())) {
        ++found;
    }
    return found;
}

/// Whether the listed points make the region again. Points that lie in one row or column 0 make none.
bool make_again(KivPointArray& points, const KivRegion& region)
{
    const KivRunSet pixels = kivconvert::visible_pixels(region);
    const KivRunBox box = pixels.Empty() ? KivRunBox{0, -1, 0, -1} : KivRuns::BoundingBox(pixels);
    if (box.rowEnd < 1 || box.colEnd < 1) {
        return points.Length() == pixels.Area();
    }
    KivRegion again;
    kivconvert::expect_success(KIVMV::KivPointArrayToRegion(points, &again), "points to region");
    return again.Runs() == region.Runs();
}

} // namespace

Report save_contours(Inspection& inspection)
{
    Report report;
    report.region = inspection.selected;
    const std::string svg = inspection.folder + "/contours.svg";
    const std::string json = inspection.folder + "/contours.json";
    report.milliseconds = time_of([&] {
        kivconvert::write_contours(svg, inspection.outlines, inspection.camera_file);
        kivconvert::write_contours(json, inspection.outlines, {});
    });
    const std::size_t paths = count(kivconvert::read_file(svg), "<path ");
    judge_equality(report, kivconvert::read_contours(json).contours == inspection.outlines.contours &&
                               paths == kivconvert::outlines_of(inspection.outlines).size());
    report.remark += fmt::format("; {} paths on the picture", paths);
    return report;
}

Report save_points(Inspection& inspection)
{
    Report report;
    report.region = inspection.selected;
    const std::string csv = inspection.folder + "/points.csv";
    report.milliseconds = time_of([&] { kivconvert::write_points(csv, inspection.selected, "points"); });
    KivPointArray points;
    kivconvert::expect_success(KIVMV::KivRegionToPointArray(inspection.selected, &points), "region to points");
    const std::size_t lines = count(kivconvert::read_file(csv), "\n");
    judge_equality(report, make_again(points, inspection.selected) && lines == points.Points().size() + 1);
    report.remark += fmt::format("; {} lines", lines);
    return report;
}

} // namespace demo
