// SPDX-License-Identifier: MIT
// Plain run sets. Two shapes by hand, small enough that every pixel can be followed; results are compared with what
// OpenCV makes of their masks.
#include "gallery/gallery.h"

#include <KivData/KivRunBridges.h>
#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunMat.h>
#include <KivRLC/KivRunMorphology.h>
#include <KivRLC/KivRunOutlines.h>
#include <KivRLC/KivRunTransforms.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <fmt/format.h>
#include <opencv2/imgproc.hpp>
#include <string_view>
#include <vector>

namespace gallery
{
namespace
{

const cv::Size frame(26, 15);
const KivRunBox frame_box{0, 14, 0, 25};

using Rows = std::array<std::string_view, 15>;

constexpr Rows bracket{
    "..........................", //
    "..........................", //
    "..###########......#......", //
    "..###########......#......", //
    "..###..######.....###.....", //
    "..###..#########.#####....", //
    "..##################......", //
    "..###########.............", //
    "..####....###.............", //
    "..####....................", //
    "..####.........#..........", //
    "..####....................", //
    "..........####............", //
    "..........####............", //
    "..........................",
};
constexpr Rows disk{
    "..........................", //
    "............####..........", //
    "..........########........", //
    ".........##########.......", //
    "........############......", //
    "........############......", //
    ".......##############.....", //
    ".......##############.....", //
    "........############......", //
    "........############......", //
    ".........##########.......", //
    "..........########........", //
    "............####..........", //
    "..........................", //
    "..........................",
};

KivRunSet set_of(const Rows& rows)
{
    std::vector<Run> pixels;
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            if (rows[y][x] == '#') {
                pixels.push_back({static_cast<int>(y), static_cast<int>(x), static_cast<int>(x)});
            }
        }
    }
    return KivRunSet(pixels);
}

KivRegion region_of(const KivRunSet& set)
{
    return KivRuns::RegionOf(set, frame.width, frame.height);
}

cv::Mat mask_of(const KivRunSet& set)
{
    return KivRuns::ToMask(set, frame.width, frame.height);
}

bool is_mask(const KivRunSet& set, const cv::Mat& mask)
{
    return set == KivRuns::FromMask(mask);
}

Drawing drawing()
{
    return Drawing(frame);
}

/// The result, over what it was made of.
Drawing made_of(const KivRunSet& before, const KivRunSet& result)
{
    return drawing().pixels(region_of(before - result), "faint").pixels(region_of(result), "result");
}

Panel panel(const std::string& title, const Drawing& drawn)
{
    return {title, title + ", as a grid of coloured pixels.", drawn};
}

Entry algebra(const KivRunSet& a, const KivRunSet& b)
{
    const cv::Mat mask_a = mask_of(a);
    const cv::Mat mask_b = mask_of(b);
    const KivRunSet both = a | b;
    return {
        "KivRunSet",
        "Plain set operations, also at the ends of the lists: a pixel belongs to the result or it does not, whatever "
        "rows the operands have. The complement is the one within a box, here the frame.",
        {panel("The operands A and B", drawing().pixels(region_of(a), "a").pixels(region_of(b), "b")),
         panel("Union, A | B", made_of(both, both)), panel("Intersection, A &amp; B", made_of(both, a & b)),
         panel("Difference, A - B", made_of(both, a - b)), panel("Symmetric difference, A ^ B", made_of(both, a ^ b)),
         panel("Complement of A in the frame", made_of(both, a.Complement(frame_box)))},
        fmt::format("A has {} pixels, B {}, both {}, any of them {}", a.Area(), b.Area(), a.IntersectionArea(b),
                    a.UnionArea(b)),
        is_mask(a | b, mask_a | mask_b) && is_mask(a & b, mask_a & mask_b) && is_mask(a - b, mask_a & ~mask_b) &&
            is_mask(a ^ b, mask_a ^ mask_b) && is_mask(a.Complement(frame_box), ~mask_a)};
}

Entry transforms(const KivRunSet& a)
{
    const cv::Mat mask = mask_of(a);
    cv::Mat flipped;
    cv::flip(mask, flipped, 1);
    cv::Mat turned;
    cv::rotate(mask, turned, cv::ROTATE_180);
    const KivRunBox cut{3, 11, 5, 16};
    const KivRunSet small = KivRuns::ScaleDown(a, 2, 2, KivRuns::BlockRule::Most);
    return {
        "KivRuns::Turn",
        "Sets are moved, mirrored, turned by quarters, transposed, cropped and scaled by whole numbers, run by run.",
        {panel("A", drawing().pixels(region_of(a), "a")),
         panel("FlipLeftRight in the frame", made_of(a, KivRuns::FlipLeftRight(a, frame_box))),
         panel("Turn by two quarters in the frame", made_of(a, KivRuns::Turn(a, 2, frame_box))),
         panel("Transpose, cropped to the frame", made_of(a, KivRuns::Crop(KivRuns::Transpose(a), frame_box))),
         panel("Crop to rows 3 to 11 and columns 5 to 16", made_of(a, KivRuns::Crop(a, cut))),
         panel("ScaleDown to half by the rule Most", made_of(a, small)),
         panel("That by ScaleUp to its old size", made_of(a, KivRuns::ScaleUp(small, 2, 2)))},
        fmt::format("{} pixels, {} at half the size", a.Area(), small.Area()),
        is_mask(KivRuns::FlipLeftRight(a, frame_box), flipped) && is_mask(KivRuns::Turn(a, 2, frame_box), turned) &&
            is_mask(KivRuns::Transpose(a), mask.t())};
}

KivContour line_of(const std::vector<cv::Point2d>& points)
{
    return KivContour(std::vector<cv::Point_<double>>(points.begin(), points.end()));
}

/// The ellipse of the moments as a polygon.
KivContour line_of(const KivRuns::Ellipse& ellipse, const KivRuns::Place& middle)
{
    std::vector<cv::Point2d> points;
    for (int degrees = 0; degrees < 360; degrees += 5) {
        const double turn = degrees * CV_PI / 180;
        const cv::Point2d along(std::cos(turn) * ellipse.majorAxis / 2, std::sin(turn) * ellipse.minorAxis / 2);
        const double cosine = std::cos(ellipse.angle);
        const double sine = std::sin(ellipse.angle);
        points.emplace_back(middle.x + cosine * along.x - sine * along.y, middle.y + sine * along.x + cosine * along.y);
    }
    return line_of(points);
}

Entry measures(const KivRunSet& set)
{
    const KivRunSet part = KivRuns::LargestComponent(set, KivRuns::Connectivity::Eight);
    const KivRuns::Measures all = KivRuns::Measure(part, KivRuns::Connectivity::Eight);
    const KivRuns::FeretDiameters diameters = KivRuns::FeretDiametersOf(part);
    std::vector<cv::Point2d> hull;
    for (const KivRuns::Place& corner : KivRuns::ConvexHull(part)) {
        hull.emplace_back(corner.x, corner.y);
    }
    const cv::Moments moments = cv::moments(mask_of(part), true);
    const KivContour middle = line_of({{all.moments.centroid.x, all.moments.centroid.y}});
    return {"KivRuns::Measure",
            "Area, box, centroid, moments with their ellipse, perimeters, Euler number, hull and Feret diameters, in "
            "closed form from the runs.",
            {panel("A shape, its centroid, and the ellipse of the same moments",
                   drawing()
                       .pixels(region_of(part), "a")
                       .border(line_of(KivRuns::EllipseOf(all.moments), all.moments.centroid), "outer")
                       .points(middle)),
             panel("Its convex hull, around the squares of the pixels",
                   drawing().pixels(region_of(part), "a").border(line_of(hull), "hole"))},
            fmt::format("area {}, perimeter along edges {}, by Crofton {:.1f}, Euler number {}, Feret diameters {:.2f} "
                        "and {:.2f}",
                        all.moments.area, all.edgePerimeter, all.croftonPerimeter, all.eulerNumber, diameters.largest,
                        diameters.smallest),
            static_cast<double>(all.moments.area) == moments.m00 &&
                std::abs(all.moments.centroid.x - moments.m10 / moments.m00) < 1e-9 &&
                std::abs(all.moments.yy - moments.mu02) < 1e-6};
}

Entry components(const KivRunSet& set)
{
    using KivRuns::Connectivity;
    const std::vector<KivRunSet> parts = KivRuns::Components(set, Connectivity::Eight);
    Drawing numbered = drawing().pixels(region_of(set), "a");
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Run first = parts[i].Runs().front();
        numbered.label({1.0 * first.colBegin, 1.0 * first.row}, fmt::format("{}", i + 1));
    }
    const KivRunSet filled = KivRuns::FillHoles(set, Connectivity::Eight);
    const KivRunSet holes = KivRuns::Holes(set, Connectivity::Eight);
    cv::Mat labels;
    return {
        "KivRuns::Components",
        "Connected parts are numbered in the order of their first pixels. Holes are what the background has inside.",
        {panel("The components, a number at the first pixel of each", numbered),
         panel("Holes, and the rest of the set", made_of(set | holes, holes)),
         panel("FillHoles", made_of(filled, filled)),
         panel("ComponentsByArea: those of at least 5 pixels",
               made_of(set, KivRuns::ComponentsByArea(set, Connectivity::Eight, 5))),
         panel("LargestComponent", made_of(set, KivRuns::LargestComponent(set, Connectivity::Eight)))},
        fmt::format("{} components, {} pixels of holes", parts.size(), holes.Area()),
        cv::connectedComponents(mask_of(set), labels, 8) == static_cast<int>(parts.size()) + 1 &&
            filled == (set | holes)};
}

Entry morphology(const KivRunSet& set)
{
    const KivRuns::Element square = KivRuns::Element::Rectangle(3, 3);
    const KivRunSet larger = KivRuns::Dilate(set, square);
    const KivRunSet smaller = KivRuns::Erode(set, square);
    const KivRunSet opened = KivRuns::Open(set, square);
    const KivRunSet closed = KivRuns::Close(set, square);
    const cv::Mat kernel = cv::getStructuringElement(cv::MORPH_RECT, {3, 3});
    cv::Mat dilated;
    cv::dilate(mask_of(set), dilated, kernel);
    cv::Mat eroded;
    cv::erode(mask_of(set), eroded, kernel, {-1, -1}, 1, cv::BORDER_CONSTANT, 0);
    const auto grown = [&set](const KivRunSet& result) {
        return drawing().pixels(region_of(result - set), "result").pixels(region_of(set), "a");
    };
    return {
        "KivRuns::Dilate",
        "Dilation, erosion, opening, closing and gradient by a square of 3 × 3. The plane has no border: nothing at "
        "the frame is special.",
        {panel("Dilation", grown(larger)), panel("Erosion", made_of(set, smaller)),
         panel("Opening: thin parts and specks go", made_of(set, opened)),
         panel("Closing: gaps and notches go", grown(closed)),
         panel("Gradient: a band along the border", made_of(set | larger, KivRuns::Gradient(set, square))),
         panel("Dilation by a disk of radius 2.5", grown(KivRuns::Dilate(set, KivRuns::Element::Disk(2.5))))},
        fmt::format("{} pixels; dilated {}, eroded {}, opened {}, closed {}", set.Area(), larger.Area(), smaller.Area(),
                    opened.Area(), closed.Area()),
        is_mask(KivRuns::Crop(larger, frame_box), dilated) && is_mask(smaller, eroded) && opened.IsSubsetOf(set) &&
            set.IsSubsetOf(closed)};
}

Entry outlines(const KivRunSet& set)
{
    const KivRuns::Outlines rings = KivRuns::OutlinesOf(set);
    const auto expected = static_cast<std::size_t>(KivRuns::NumberComponents(set, KivRuns::Connectivity::Four).count +
                                                   KivRuns::HoleCount(set, KivRuns::Connectivity::Four));
    Drawing drawn = drawing().pixels(region_of(set), "a");
    for (const KivRuns::OutlineRing& ring : rings.rings) {
        std::vector<cv::Point2d> corners;
        for (std::size_t i = ring.begin; i < ring.end; ++i) {
            corners.emplace_back(rings.corners[i].x - 0.5, rings.corners[i].y - 0.5);
        }
        drawn.border(line_of(corners), ring.isHole ? "hole" : "outer");
    }
    return {"KivRuns::OutlinesOf",
            "The border along the edges of pixels: rings with whole numbers as corners, valid polygons with holes.",
            {panel("Outer rings and those of holes", drawn)},
            fmt::format("{} rings, {} corners", rings.rings.size(), rings.corners.size()),
            rings.rings.size() == expected};
}

} // namespace

Chapter run_set_chapter()
{
    const KivRunSet a = set_of(bracket);
    const KivRunSet b = set_of(disk);
    return {"run-sets",
            "Plain run sets",
            {algebra(a, b), transforms(a), measures(a), components(a), morphology(a), outlines(a)}};
}

} // namespace gallery
