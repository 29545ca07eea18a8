// SPDX-License-Identifier: MIT
#include "gallery/gallery.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/visible_pixels.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <iterator>
#include <random>

namespace gallery
{
namespace
{

const cv::Rect beside_it({-3, 0}, lens + cv::Size(6, 0)); ///< the lens, and some columns on both sides

/// The lens with one more run, which reaches over others and out of the frame.
KivRegion with_stray_run(const KivRegion& region)
{
    std::vector<Run> runs = region.Runs();
    runs.push_back({2, 15, lens.width + 1});
    return KivRegion(region.Width(), region.Height(), std::move(runs));
}

/// A number in each point: its index in the list. Where a point comes again, its later number is below the first.
Drawing numbered(const std::vector<cv::Point>& points)
{
    std::vector<Run> pixels;
    std::transform(points.begin(), points.end(), std::back_inserter(pixels), [](const cv::Point& point) {
        return Run{point.y, point.x, point.x};
    });
    Drawing drawing(lens, beside_it);
    drawing.pixels(KivRegion(lens.width, lens.height, std::move(pixels)), "a");
    for (auto point = points.begin(); point != points.end(); ++point) {
        const bool again = std::find(points.begin(), point, *point) != point;
        const bool twice = again || std::find(point + 1, points.end(), *point) != points.end();
        const double offset = again ? 0.24 : twice ? -0.24 : 0.0;
        drawing.label({1.0 * point->x, point->y + offset}, fmt::format("{}", point - points.begin()));
    }
    return drawing;
}

std::string sample(const char* name, const std::vector<cv::Point>& points, int cv::Point::*coordinate)
{
    std::string text = fmt::format("{} = ", name);
    for (std::size_t i = 0; i < 8; ++i) {
        text += fmt::format("{}, ", points[i].*coordinate);
    }
    return text + "…";
}

/// The pixels of a region in any order, some of them twice, and two points left of the frame.
std::vector<cv::Point> shuffled_pixels(const KivRegion& region, std::mt19937& random)
{
    std::vector<cv::Point> points = {{-1, 2}, {-2, 5}};
    for (const Run& run : region.Runs()) {
        for (int column = run.colBegin; column <= run.colEnd; ++column) {
            points.insert(points.end(), column % 5 == 0 ? 2 : 1, {column, run.row});
        }
    }
    std::shuffle(points.begin(), points.end(), random);
    return points;
}

Entry region_to_var_array(Stage& stage)
{
    KivRegion region = with_stray_run(stage.lens);
    KivVarArray xs;
    KivVarArray ys;
    kivconvert::expect_success(KIVMV::KivRegionToVarArray(region, &xs, &ys), "KivRegionToVarArray");
    std::vector<cv::Point> points;
    for (int i = 0; i < xs.Length(); ++i) {
        points.emplace_back(xs[i].I(), ys[i].I());
    }
    return {"KivRegionToVarArray",
            "The columns and the rows of a region's pixels in two parallel arrays: by row, then by column, each pixel "
            "once, clipped to the frame. A run that overlaps others or leaves the frame changes nothing about that.",
            {{"A region with a stray run", "Blue bars; one of them lies over another and sticks out of the frame.",
              Drawing(lens, beside_it).runs(region)},
             {"The entries, numbered in their order",
              "Each pixel inside the frame carries one number, counting up from the top left to the bottom right.",
              numbered(points)}},
            sample("xs", points, &cv::Point::x) + "; " + sample("ys", points, &cv::Point::y),
            static_cast<std::int64_t>(points.size()) == kivconvert::visible_pixels(region).Area()};
}

Entry var_array_to_region(Stage& stage)
{
    std::mt19937 random(5);
    KivContour::Points dots;
    KivVarArray xs;
    KivVarArray ys;
    for (const cv::Point point : shuffled_pixels(stage.lens, random)) {
        xs.Append(KivVar(point.x));
        ys.Append(KivVar(point.y));
        dots.emplace_back(point);
    }
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivVarArrayToRegion(xs, ys, &region), "KivVarArrayToRegion");
    return {"KivVarArrayToRegion",
            "The region of the listed pixels; order and repetitions do not matter. The frame reaches from (0, 0) to "
            "just past the largest column and row, and pixels with a negative coordinate are left out.",
            {{"Listed pixels, in any order", "A dot on each listed pixel; two lie left of the frame.",
              Drawing(lens, beside_it).points(KivContour(dots))},
             {"Their region", "Blue bars over the dots inside the frame, nothing left of it.",
              Drawing(lens, beside_it).runs(region)}},
            fmt::format("{} entries, {}", xs.Length(), counted(region.Runs().size(), "run")),
            region == stage.lens};
}

Entry point_array_to_region(Stage& stage)
{
    std::mt19937 random(6);
    KivPointArray points;
    KivContour::Points dots;
    for (const cv::Point pixel : shuffled_pixels(stage.lens, random)) {
        const KivPoint point{pixel.x + static_cast<int>(random() % 10) / 10.0 * (pixel.x < 0 ? -1 : 1),
                             pixel.y + static_cast<int>(random() % 10) / 10.0};
        points.Append(point);
        dots.emplace_back(point.x, point.y);
    }
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivPointArrayToRegion(points, &region), "KivPointArrayToRegion");
    return {"KivPointArrayToRegion",
            "The region of the pixels that points fall on. Coordinates are truncated toward zero, not rounded: (3.9, "
            "2.99) is pixel (3, 2). So the dots lie right of and below the centres of their pixels.",
            {{"Sub-pixel points", "Dots scattered between the centres of pixels; two lie left of the frame.",
              Drawing(lens, {beside_it.tl(), beside_it.size() + cv::Size(0, 1)}).points(KivContour(dots))},
             {"Their region", "Blue bars: the same region as from whole pixels.",
              Drawing(lens, {beside_it.tl(), beside_it.size() + cv::Size(0, 1)}).runs(region)}},
            fmt::format("{} points, {}", points.Length(), counted(region.Runs().size(), "run")),
            region == stage.lens};
}

Entry region_to_point_array(Stage& stage)
{
    KivRegion region = with_stray_run(stage.lens);
    KivPointArray array;
    kivconvert::expect_success(KIVMV::KivRegionToPointArray(region, &array), "KivRegionToPointArray");
    std::vector<cv::Point> points;
    std::transform(array.begin(), array.end(), std::back_inserter(points), [](const KivPoint& point) {
        return cv::Point(static_cast<int>(point.x), static_cast<int>(point.y));
    });
    return {"KivRegionToPointArray",
            "A point for each pixel of each run, run by run in the order of the runs. Nothing is clipped or merged: "
            "the stray run's points come last, twice where it lies over another run, and also outside the frame.",
            {{"A region with a stray run", "Blue bars; one of them lies over another and sticks out of the frame.",
              Drawing(lens, beside_it).runs(region)},
             {"The points, numbered in their order",
              "Numbers count up run by run; pixels under the stray run carry two, and some lie outside the frame.",
              numbered(points)}},
            sample("x", points, &cv::Point::x) + "; " + sample("y", points, &cv::Point::y),
            points.back() == cv::Point(lens.width + 1, 2)};
}

/// The runs, each with its index in the list.
Drawing numbered_runs(const KivRegion& region)
{
    Drawing drawing(lens);
    drawing.pixels(region, "a");
    for (std::size_t i = 0; i < region.Runs().size(); ++i) {
        const Run& run = region.Runs()[i];
        drawing.label({0.5 * (run.colBegin + run.colEnd), 1.0 * run.row}, fmt::format("{}", i));
    }
    return drawing;
}

Entry sort_runs(Stage& stage)
{
    std::vector<Run> runs = stage.lens.Runs();
    std::mt19937 random(3);
    std::shuffle(runs.begin(), runs.end(), random);
    KivRegion shuffled(lens.width, lens.height, runs);
    KivVarArray rows;
    KivVarArray begins;
    KivVarArray ends;
    shuffled.GetRegionRuns(&rows, &begins, &ends);
    KIVMV::radixsort(rows, begins, ends);
    KivRegion sorted;
    sorted.CreateRegion(lens.width, lens.height, rows, begins, ends);
    std::stable_sort(runs.begin(), runs.end(), [](const Run& a, const Run& b) { return a.row < b.row; });
    return {"radixsort",
            "Sorts runs by row, in place and stably. Runs of one row keep their order, also where the right one comes "
            "first: columns only travel with their row.",
            {{"Runs in any order", "Bars, each with its place in the list; the numbers are mixed up.",
              numbered_runs(shuffled)},
             {"The same, sorted", "The same bars; now the numbers ascend from row to row.", numbered_runs(sorted)}},
            counted(runs.size(), "run") + "; the same order as by std::stable_sort",
            sorted.Runs() == runs};
}

Entry count_digits(Stage& stage)
{
    KivVarArray rows;
    Drawing drawing(lens, beside_it);
    drawing.runs(stage.lens);
    for (int row = 0; row < lens.height; ++row) {
        rows.Append(KivVar(lens_view.y + row));
        drawing.label({-1.5, 1.0 * row}, fmt::format("{}", lens_view.y + row));
    }
    const int digits = KIVMV::maxbit(rows);
    return {"maxbit",
            "The number of decimal digits of the largest value, at least 1: how many passes a sort by digits needs. A "
            "negative value counts as one digit.",
            {{"Rows as the scene counts them", "Blue bars; left of each row its number in the scene, 851 to 857.",
              drawing}},
            fmt::format("largest row {}: {}", rows[rows.Length() - 1].I(),
                        counted(static_cast<std::size_t>(digits), "digit")),
            digits == 3};
}

} // namespace

Chapter array_chapter(Stage& stage)
{
    return {"pixels",
            "Lists of pixels and runs",
            {region_to_var_array(stage), var_array_to_region(stage), region_to_point_array(stage),
             point_array_to_region(stage), sort_runs(stage), count_digits(stage)}};
}

} // namespace gallery
