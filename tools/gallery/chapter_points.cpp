// SPDX-License-Identifier: MIT
#include "gallery/gallery.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace gallery
{
namespace
{

const cv::Rect hole_view(0, 0, 36, 34); ///< the part of the part round its hole

/// The hole's rim between the pixels: a circle of 16 points.
KivContour rim()
{
    KivContour::Points points;
    for (int i = 0; i < 16; ++i) {
        const double angle = i * CV_PI / 8.0;
        points.emplace_back(17.4 + 13.7 * std::cos(angle), 16.6 + 13.7 * std::sin(angle));
    }
    return KivContour(std::move(points));
}

Drawing joined_dots(const KivContour& contour)
{
    return Drawing(hole_view.size()).border(contour, "outer").points(contour);
}

Drawing dotted(const KivContour& contour)
{
    return Drawing(hole_view.size()).points(contour);
}

/// A contour through the points of two arrays, for pictures.
KivContour listed(const KivVarArray& xs, const KivVarArray& ys)
{
    KivContour::Points points;
    for (int i = 0; i < xs.Length(); ++i) {
        points.emplace_back(xs[i].D(), ys[i].D());
    }
    return KivContour(std::move(points));
}

bool rounded(const KivContour& contour, const KivContour& exact)
{
    const auto rounds = [](const cv::Point2d& point, const cv::Point2d& from) {
        return point.x == std::nearbyint(from.x) && point.y == std::nearbyint(from.y);
    };
    return std::equal(contour.AllPoints().begin(), contour.AllPoints().end(), exact.AllPoints().begin(),
                      exact.AllPoints().end(), rounds);
}

Entry contour_to_var_array(const KivContour& exact)
{
    KivContour contour = exact;
    KivVarArray xs;
    KivVarArray ys;
    kivconvert::expect_success(KIVMV::KivContourToVarArray(contour, &xs, &ys), "KivContourToVarArray");
    const cv::Point2d first = exact.AllPoints()[1];
    return {"KivContourToVarArray",
            "The points of a contour as ints, in two parallel arrays. Each coordinate is rounded to the nearest int, "
            "ties to even: 2.5 gives 2, 3.5 gives 4.",
            {{"A sub-pixel contour", "A closed line through 16 dots on a circle; most dots lie between pixel centres.",
              joined_dots(exact)},
             {"The listed points", "16 dots, each in the centre of a pixel, beside the line they come from.",
              Drawing(hole_view.size()).border(exact, "outer").points(listed(xs, ys))}},
            fmt::format("for one, ({:.2f}, {:.2f}) gives ({}, {})", first.x, first.y, xs[1].I(), ys[1].I()),
            rounded(listed(xs, ys), exact)};
}

Entry var_array_to_contour(const KivContour& exact)
{
    KivVarArray xs;
    KivVarArray ys;
    for (const auto& point : exact.AllPoints()) {
        xs.Append(KivVar(cvRound(point.x)));
        ys.Append(KivVar(cvRound(point.y)));
    }
    KivContour contour;
    kivconvert::expect_success(KIVMV::KivVarArrayToContour(xs, ys, &contour), "KivVarArrayToContour");
    return {
        "KivVarArrayToContour",
        "A contour through the listed pixels, in the order of the list, the last point joined to the first. Ints "
        "become coordinates exactly.",
        {{"Columns and rows in two arrays", "16 dots on pixel centres, roughly on a circle.", dotted(listed(xs, ys))},
         {"The contour", "The same dots joined by a closed line.", joined_dots(contour)}},
        counted(contour.AllPoints().size(), "point"),
        contour == listed(xs, ys)};
}

Entry contour_to_point_array(const KivContour& exact)
{
    KivContour contour = exact;
    KivPointArray points;
    kivconvert::expect_success(KIVMV::KivContourToPointArray(contour, &points), "KivContourToPointArray");
    KivContour::Points dots;
    for (const KivPoint& point : points) {
        dots.emplace_back(point.x, point.y);
    }
    return {"KivContourToPointArray",
            "The points of a contour, exactly as they are: not a bit of a coordinate is lost.",
            {{"A sub-pixel contour", "A closed line through 16 dots on a circle, between pixel centres.",
              joined_dots(exact)},
             {"Its points", "The same 16 dots at the same places, without the line.", dotted(KivContour(dots))}},
            counted(dots.size(), "point") + ", equal bit for bit",
            KivContour(dots) == exact};
}

Entry point_array_to_contour(const KivContour& exact)
{
    KivPointArray points;
    for (const auto& point : exact.AllPoints()) {
        points.Append(KivPoint{point.x, point.y});
    }
    KivContour contour;
    kivconvert::expect_success(KIVMV::KivPointArrayToContour(points, &contour), "KivPointArrayToContour");
    return {"KivPointArrayToContour",
            "A contour through the points, in their order and exactly as they are.",
            {{"Points", "16 dots on a circle, between pixel centres.", dotted(exact)},
             {"The contour", "The same dots joined by a closed line.", joined_dots(contour)}},
            counted(contour.AllPoints().size(), "point") + ", equal bit for bit",
            contour == exact};
}

} // namespace

Chapter point_chapter()
{
    const KivContour exact = rim();
    return {"points",
            "Contours and their points",
            {contour_to_var_array(exact), var_array_to_contour(exact), contour_to_point_array(exact),
             point_array_to_contour(exact)}};
}

} // namespace gallery
