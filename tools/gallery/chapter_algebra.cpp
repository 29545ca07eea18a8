// SPDX-License-Identifier: MIT
// Each set operation twice, on the same two shapes: as regions and as regions of interest. They differ at the
// ends of the run lists.
#include "demo/pictures.h"
#include "gallery/gallery.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/visible_pixels.h"

#include <KivDataConvert/KivDataConvert.h>

#include <fmt/format.h>

namespace gallery
{
namespace
{

KivROI as_roi(KivRegion& region)
{
    KivROI roi;
    kivconvert::expect_success(KIVMV::KivRegionToROI(region, &roi), "KivRegionToROI");
    return roi;
}

KivRegion as_region(KivROI& roi)
{
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivROIToRegion(roi, &region), "KivROIToRegion");
    return region;
}

using RegionOperation = int (*)(KivRegion&, KivRegion&, KivRegion*);
using RoiOperation = int (*)(KivROI&, KivROI&, KivROI*);

KivRegion combined(RegionOperation operation, KivRegion& a, KivRegion& b)
{
    KivRegion result;
    kivconvert::expect_success(operation(a, b, &result), "set operation");
    return result;
}

KivRegion combined(RoiOperation operation, KivRegion& a, KivROI& b)
{
    KivROI first = as_roi(a);
    KivROI result;
    kivconvert::expect_success(operation(first, b, &result), "set operation");
    return as_region(result);
}

/// A result beside the pixels that the same operation has on masks.
struct Comparison {
    KivRegion region;
    cv::Mat missing;
    cv::Mat extra;

    Comparison(KivRegion result, const cv::Mat& expected) : region(std::move(result))
    {
        const cv::Mat pixels = demo::mask_of(region);
        missing = expected & ~pixels;
        extra = pixels & ~expected;
    }

    Drawing drawn() const
    {
        return Drawing(part).pixels(region, "result").pixels(extra, "extra").pixels(missing, "missing");
    }

    std::string told() const
    {
        const int absent = cv::countNonZero(missing);
        const int added = cv::countNonZero(extra);
        const std::string runs = counted(region.Runs().size(), "run");
        return absent + added == 0 ? runs + "; every pixel as on masks"
                                   : fmt::format("{}; compared with masks, {} pixels are missing and {} more are there",
                                                 runs, absent, added);
    }
};

/// Whether nothing differs outside of the given rows.
bool only_in_rows(const cv::Mat& mask, std::initializer_list<int> rows)
{
    cv::Mat rest = mask.clone();
    for (const int row : rows) {
        rest.row(row).setTo(0);
    }
    return cv::countNonZero(rest) == 0;
}

int last_row(const KivRegion& region)
{
    return kivconvert::visible_pixels(region).Runs().back().row;
}

Panel operands(const KivRegion& a, const KivRegion& b, const std::string& shape)
{
    return {"A and B", fmt::format("A in blue: the end of a bar with a round hole. B in amber over it: {}.", shape),
            Drawing(part).pixels(a, "a").pixels(b, "b")};
}

void add_unions(Stage& stage, std::vector<Entry>& entries)
{
    KivROI shape = KivROI::Circle(37.5, 43.5, 15.6, part.width, part.height);
    KivRegion b = as_region(shape);
    const cv::Mat expected = stage.mask.Mat() | demo::mask_of(b);
    const Comparison regions(combined(KIVMV::KivRegionAdd, stage.part, b), expected);
    const Comparison rois(combined(KIVMV::KivROIAdd, stage.part, shape), expected);
    const std::string seen = "A and B together in green; B fills a part of the hole and bulges out below.";
    entries.push_back({"KivRegionAdd",
                       "The pixels of A or B. On a row that both have each run of A is united with each run of B, so "
                       "the result has more runs than it needs, but the pixels are right.",
                       {operands(stage.part, b, "a disc"),
                        {"The union of regions", seen, regions.drawn()},
                        {"In the scene: parts and holes", "Machined parts tinted green, their holes darker green.",
                         stage.picture("union")}},
                       regions.told(),
                       only_in_rows(regions.missing, {}) && only_in_rows(regions.extra, {})});
    entries.push_back(
        {"KivROIAdd",
         "The same of ROIs. A's last row is a single run here; it is united with B's runs on the row before instead "
         "of those on its own row (violet).",
         {operands(stage.part, b, "a disc"), {"The union of ROIs", seen, rois.drawn()}},
         rois.told(),
         only_in_rows(rois.missing | rois.extra, {last_row(stage.part)})});
}

void add_intersections(Stage& stage, std::vector<Entry>& entries)
{
    KivROI shape = KivROI::Circle(38.5, 37.5, 15.6, part.width, part.height);
    KivRegion b = as_region(shape);
    const cv::Mat expected = stage.mask.Mat() & demo::mask_of(b);
    const Comparison regions(combined(KIVMV::KivRegionAnd, stage.part, b), expected);
    const Comparison rois(combined(KIVMV::KivROIAnd, stage.part, shape), expected);
    entries.push_back(
        {"KivRegionAnd",
         "The pixels of both A and B, in A's frame. B's last row gives nothing: the red pixels would be "
         "there on masks.",
         {operands(stage.part, b, "a disc"),
          {"The intersection of regions", "The disc without the hole in green, its last row in red.", regions.drawn()},
          {"In the scene: parts in a ring",
           "Machined parts tinted blue where they lie between two circles, which are drawn in white.",
           stage.picture("ring")}},
         regions.told(),
         only_in_rows(regions.extra, {}) && only_in_rows(regions.missing, {last_row(b)})});
    entries.push_back({"KivROIAnd",
                       "The same of ROIs. Here B's last row takes part, since it is a single run.",
                       {operands(stage.part, b, "a disc"),
                        {"The intersection of ROIs", "The disc without the hole in green, complete.", rois.drawn()}},
                       rois.told(),
                       only_in_rows(rois.missing | rois.extra, {})});
}

void add_differences(Stage& stage, std::vector<Entry>& entries)
{
    KivROI shape = KivROI::Ring(34.5, 37.5, 6.2, 14.6, part.width, part.height);
    KivRegion b = as_region(shape);
    const cv::Mat expected = stage.mask.Mat() & ~demo::mask_of(b);
    const Comparison regions(combined(KIVMV::KivRegionSub, stage.part, b), expected);
    const Comparison rois(combined(KIVMV::KivROISub, stage.part, shape), expected);
    const std::string seen = "A in green with a ring-shaped gap, and an island in the middle of it.";
    entries.push_back(
        {"KivRegionSub",
         "The pixels of A that are not in B, in A's frame; the pieces of a run come from left to right.",
         {operands(stage.part, b, "a ring"),
          {"The difference of regions", seen, regions.drawn()},
          {"In the scene: the holes", "Machined parts in grey, their holes tinted amber.", stage.picture("holes")}},
         regions.told(),
         only_in_rows(regions.missing | regions.extra, {})});
    entries.push_back({"KivROISub",
                       "The same of ROIs, with the same runs.",
                       {operands(stage.part, b, "a ring"), {"The difference of ROIs", seen, rois.drawn()}},
                       rois.told(),
                       rois.region == regions.region});
}

KivRegion complement(KivRegion& a)
{
    KivRegion result;
    kivconvert::expect_success(KIVMV::KivRegionNot(a, &result), "KivRegionNot");
    return result;
}

KivRegion roi_complement(KivRegion& a)
{
    KivROI roi = as_roi(a);
    KivROI result;
    kivconvert::expect_success(KIVMV::KivROINot(roi, &result), "KivROINot");
    return as_region(result);
}

void add_complements(Stage& stage, std::vector<Entry>& entries)
{
    const Panel before("A", "A in blue: the end of a bar with a round hole.", Drawing(part).pixels(stage.part, "a"));
    const cv::Mat expected = ~stage.mask.Mat();
    const Comparison regions(complement(stage.part), expected);
    const Comparison rois(roi_complement(stage.part), expected);
    entries.push_back(
        {"KivRegionNot",
         "The pixels of the frame that are not in A. A gap between two runs reaches from the last pixel of the left "
         "one "
         "to one past the first pixel of the right one (violet), and A's last row gives nothing (red).",
         {before,
          {"The complement of a region",
           "The table and the hole in green; violet pixels left and right of the hole, one red row below.",
           regions.drawn()},
          {"In the scene: the table",
           "The table round dark machined parts tinted violet, except one row near the lower edge.",
           stage.picture("complement")}},
         regions.told(),
         only_in_rows(regions.missing, {last_row(stage.part)}) && cv::countNonZero(regions.extra & expected) == 0});
    entries.push_back(
        {"KivROINot",
         "The same of an ROI. Gaps reach into their neighbours here, too, but the last row is "
         "complemented like any other.",
         {before,
          {"The complement of an ROI",
           "The table and the hole in green, every row complete; violet pixels beside the hole.", rois.drawn()}},
         rois.told(),
         only_in_rows(rois.missing, {}) && cv::countNonZero(rois.extra & expected) == 0});
}

} // namespace

Chapter algebra_chapter(Stage& stage)
{
    Chapter chapter{"algebra", "Set algebra", {}};
    add_unions(stage, chapter.entries);
    add_intersections(stage, chapter.entries);
    add_differences(stage, chapter.entries);
    add_complements(stage, chapter.entries);
    return chapter;
}

} // namespace gallery
