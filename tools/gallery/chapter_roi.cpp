// SPDX-License-Identifier: MIT
#include "gallery/borders.h"
#include "gallery/gallery.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <cmath>
#include <fmt/format.h>

namespace gallery
{
namespace
{

const cv::Point2d centre(27.5, 30.5);
constexpr double inner = 9.3;
constexpr double outer = 23.7;
const std::string ring_in_lines = "Two dashed circles about one centre.";

KivROI ring()
{
    return KivROI::Ring(centre.x, centre.y, inner, outer, part.width, part.height);
}

Drawing ideal_ring()
{
    return Drawing(part).circle(centre, inner).circle(centre, outer);
}

/// 255 where a pixel's centre lies in the ring, computed pixel by pixel.
cv::Mat ring_mask()
{
    cv::Mat1b mask(part);
    for (int row = 0; row < mask.rows; ++row) {
        for (int column = 0; column < mask.cols; ++column) {
            const double distance = std::hypot(column - centre.x, row - centre.y);
            mask(row, column) = distance >= inner && distance <= outer ? 255 : 0;
        }
    }
    return mask;
}

Entry roi_to_region()
{
    KivROI roi = ring();
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivROIToRegion(roi, &region), "KivROIToRegion");
    return {"KivROIToRegion",
            "The region of an ROI: exactly the runs of its mask, in their order. A pixel belongs to a shape when its "
            "centre lies in it, the border included.",
            {{"A ring", ring_in_lines, ideal_ring()},
             {"Its region", "The ring in blue bars; knobs mark the first and last pixel of each.",
              ideal_ring().runs(region)}},
            counted(region.Runs().size(), "run"),
            region.Runs() == roi.Parameters().MaskRuns()};
}

Entry region_to_roi(Stage& stage)
{
    KivROI roi;
    kivconvert::expect_success(KIVMV::KivRegionToROI(stage.part, &roi), "KivRegionToROI");
    return {"KivRegionToROI",
            "An ROI of the kind mask, in the region's frame. It keeps the runs as they are, in their order.",
            {{"A region", part_in_bars, Drawing(part).runs(stage.part)},
             {"The pixels of the ROI", "The same shape in plain amber pixels.",
              Drawing(part).pixels(KivRegion(part.width, part.height, roi.Parameters().MaskRuns()), "b")}},
            fmt::format("type {}, {}", roi.ROIType(), counted(roi.Parameters().MaskRuns().size(), "run")),
            roi == KivROI::Mask(stage.part.Runs(), part.width, part.height)};
}

Entry roi_to_image()
{
    KivROI roi = ring();
    KivImage image;
    kivconvert::expect_success(KIVMV::KivROIToBinImage(&image, roi), "KivROIToBinImage");
    return {"KivROIToBinImage",
            "The mask of an ROI: 255 where it is, 0 elsewhere.",
            {{"A ring", ring_in_lines, ideal_ring()},
             {"Its mask", "A white ring on black, with steps of one pixel.", Drawing(part).grey(image.Mat())}},
            "the same pixels as those whose distance from the centre is between the two radii",
            cv::countNonZero(image.Mat() != ring_mask()) == 0};
}

Entry image_to_roi(Stage& stage)
{
    KivROI roi;
    kivconvert::expect_success(KIVMV::KivBinImageToROI(stage.mask, &roi), "KivBinImageToROI");
    return {"KivBinImageToROI",
            "An ROI of the kind mask that has exactly the mask's non-zero pixels, in the image's frame.",
            {{"A mask", part_in_white, Drawing(part).grey(stage.mask.Mat())},
             {"The pixels of the ROI", "The same shape in plain amber pixels.",
              Drawing(part).pixels(KivRegion(part.width, part.height, roi.Parameters().MaskRuns()), "b")}},
            "equal to the ROI of the mask's region",
            roi == KivROI::Mask(stage.part.Runs(), part.width, part.height)};
}

Entry roi_to_contours()
{
    KivROI roi = ring();
    KivContourArray contours;
    kivconvert::expect_success(KIVMV::KivROIToContourArray(roi, &contours), "KivROIToContourArray");
    return {"KivROIToContourArray",
            "The borders of an ROI's pixels. Filled together they give its mask back.",
            {{"A ring", ring_in_lines, ideal_ring()},
             {"Its contours", "A green chain of pixels along the outer circle, an orange one along the inner.",
              drawn(contours)}},
            counted(static_cast<std::size_t>(contours.Length()), "contour"),
            contours.Length() == 2 && cv::countNonZero(enclosed_by(contours).Mat() != ring_mask()) == 0};
}

} // namespace

Chapter roi_chapter(Stage& stage)
{
    return {"rois",
            "Regions of interest",
            {roi_to_region(), region_to_roi(stage), roi_to_image(), image_to_roi(stage), roi_to_contours()}};
}

} // namespace gallery
