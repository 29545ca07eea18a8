// SPDX-License-Identifier: MIT
#include "demo/pictures.h"
#include "gallery/borders.h"
#include "gallery/gallery.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>
#include <KivRLC/KivRunSet.h>

#include <fmt/format.h>
#include <opencv2/imgproc.hpp>

namespace gallery
{
namespace
{

const std::string part_in_lines = "A green line along the bar's outer border pixels and an orange one round its hole.";

Drawing shown(const KivImage& image)
{
    return Drawing(image.Mat().size()).grey(image.Mat());
}

std::string lengths(const KivContourArray& contours)
{
    std::string text;
    for (const KivContour& contour : contours) {
        text += fmt::format("{}{} of {} points", text.empty() ? "" : ", ",
                            contour.IsHole() ? "a hole" : "an outer border", contour.Length());
    }
    return text;
}

Entry region_to_contours(Stage& stage, KivContourArray& contours)
{
    return {
        "KivRegionToContourArray",
        "The borders of a region: a closed chain of the region's own border pixels for each piece, and one for each "
        "hole in it. Together they are the region, without loss.",
        {{"A region", part_in_bars, Drawing(part).runs(stage.part)},
         {"Its contours", part_in_lines, drawn(contours)},
         {"What is left of the scene after the star",
          "Machined parts, cut by a ring and a star; green lines round the pieces, orange ones round their holes.",
          stage.picture("contours")}},
        lengths(contours),
        contours.Length() == 2 && !contours[0].IsHole() && contours[1].IsHole()};
}

KivRegion filled(const KivContour& polygon, cv::Size frame)
{
    KivContourArray contours;
    contours.Append(polygon);
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivContourArrayToRegion(contours, frame.width, frame.height, &region),
                               "KivContourArrayToRegion");
    return region;
}

Drawing drawn_over(const KivRegion& region, const KivContour& polygon)
{
    return Drawing({region.Width(), region.Height()}).pixels(region, "faint").border(polygon, "outer").points(polygon);
}

Entry contours_to_region(Stage& stage, KivContourArray& contours)
{
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivContourArrayToRegion(contours, part.width, part.height, &region),
                               "KivContourArrayToRegion");
    const KivContour star{{12, 1}, {19, 22}, {1, 9}, {23, 9}, {5, 22}};
    const KivContour wedge{{1, 1}, {22, 8}, {1, 8}};
    const KivRegion in_star = filled(star, {25, 24});
    const KivRegion in_wedge = filled(wedge, {25, 10});
    return {
        "KivContourArrayToRegion",
        "All contours filled together into a frame of the given size: holes stay open. What was traced comes back "
        "bit for bit. A pixel belongs to it if its centre is enclosed an odd number of times, or if the border passes "
        "it: on its way, an edge passes the nearest pixel in each column, or in each row if it is steep.",
        {{"Contours", part_in_lines, drawn(contours)},
         {"Their region", part_in_bars, Drawing(part).runs(region)},
         {"A star in one stroke",
          "Pixels under a five-pointed star; the pentagon in its middle, which the border goes round twice, is empty.",
          drawn_over(in_star, star)},
         {"An edge of slope 1/3", "Pixels under a flat wedge; its upper side falls one row every three columns.",
          drawn_over(in_wedge, wedge)}},
        "equal to the region that was traced",
        region == stage.part && !KivRunSet(in_star.Runs()).Contains(12, 12) && KivRunSet(in_wedge.Runs()).Area() == 99};
}

cv::Mat with_triangle(const cv::Mat& mask, const std::vector<cv::Point>& corners, int value)
{
    cv::Mat painted = mask.clone();
    cv::fillConvexPoly(painted, corners, cv::Scalar(value));
    return painted;
}

bool same(const cv::Mat& a, const cv::Mat& b)
{
    return a.size() == b.size() && cv::countNonZero(a != b) == 0;
}

Entry contour_to_region()
{
    const KivContour triangle{{24.9, 3.2}, {38.9, 27.6}, {4.3, 20.9}};
    const cv::Size view(42, 30);
    KivContour contour = triangle;
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivContourToRegion(contour, &region), "KivContourToRegion");
    return {
        "KivContourToRegion",
        "One contour filled, its border included. Coordinates are truncated toward zero, and the frame reaches from "
        "(0, 0) to just past the largest column and row.",
        {{"A sub-pixel contour", "A triangle whose corners lie between pixel centres.",
          Drawing(view).border(triangle, "outer").points(triangle)},
         {"Its region", "The triangle in blue bars, in a frame that ends at its right and lower corner.",
          Drawing({region.Width(), region.Height()}, {{}, view}).runs(region).border(triangle, "outer")}},
        fmt::format("a frame of {} × {}, {}", region.Width(), region.Height(), counted(region.Runs().size(), "run")),
        same(demo::mask_of(region), with_triangle(cv::Mat::zeros(28, 39, CV_8U), {{24, 3}, {38, 27}, {4, 20}}, 255))};
}

Entry contours_to_image(Stage& stage, KivContourArray& contours)
{
    const KivImage image = enclosed_by(contours);
    return {"KivContourArrayToBinImage",
            "All contours filled together into a new mask: 255 inside, borders included, and 0 elsewhere.",
            {{"Contours", part_in_lines, drawn(contours)}, {"Their mask", part_in_white, shown(image)}},
            "equal to the mask that was traced",
            image == stage.mask};
}

Entry image_to_contours(Stage& stage, const KivContourArray& of_region)
{
    KivContourArray contours;
    kivconvert::expect_success(KIVMV::KivBinImageToContourArray(stage.mask, &contours), "KivBinImageToContourArray");
    return {"KivBinImageToContourArray",
            "The borders of a mask, as those of its region.",
            {{"A mask", part_in_white, shown(stage.mask)}, {"Its contours", part_in_lines, drawn(contours)}},
            "the same as those of the region",
            contours == of_region};
}

KivContourArray merged(Stage& stage, KivContour& contour, bool add)
{
    KivContourArray contours;
    kivconvert::expect_success(KIVMV::KivMergContour(stage.mask, contour, add, &contours), "KivMergContour");
    return contours;
}

Entry merge_contour(Stage& stage)
{
    const std::vector<cv::Point> corners = {{8, 40}, {48, 14}, {44, 60}};
    KivContour triangle(KivContour::Points(corners.begin(), corners.end()));
    const KivImage before = stage.mask;
    KivContourArray added = merged(stage, triangle, true);
    KivContourArray cut = merged(stage, triangle, false);
    return {"KivMergContour",
            "The contours of a mask after a filled contour was added to it, or cut out of it. Coordinates are rounded "
            "to the nearest pixel, and the mask itself is not changed.",
            {{"A mask and a contour", "The white bar with its hole, and the outline of a triangle over both.",
              shown(stage.mask).border(triangle, "ideal")},
             {"Added", "The bar's outline with two corners of the triangle sticking out, and a hole cut short by it.",
              drawn(added)},
             {"Cut out", "Two green outlines: where the triangle was the bar is in two pieces, and the hole is open.",
              drawn(cut)},
             {"A star cut out of the scene", "Machined parts tinted red where they lie outside of a large star.",
              stage.picture("cut")}},
            fmt::format("added: {}; cut out: {}", lengths(added), lengths(cut)),
            same(enclosed_by(added).Mat(), with_triangle(before.Mat(), corners, 255)) &&
                same(enclosed_by(cut).Mat(), with_triangle(before.Mat(), corners, 0)) && stage.mask == before};
}

} // namespace

Chapter contour_chapter(Stage& stage)
{
    KivContourArray contours;
    kivconvert::expect_success(KIVMV::KivRegionToContourArray(stage.part, &contours), "KivRegionToContourArray");
    return {"contours",
            "Contours, regions and masks",
            {region_to_contours(stage, contours), contours_to_region(stage, contours), contour_to_region(),
             contours_to_image(stage, contours), image_to_contours(stage, contours), merge_contour(stage)}};
}

} // namespace gallery
