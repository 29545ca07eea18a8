// SPDX-License-Identifier: MIT
#include "kivconvert/conversions.h"

#include "kivconvert/memory_limit.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <type_traits>

namespace kivconvert
{
namespace
{

/// Whole numbers are what the library's pixel arrays hold; fractions need its points.
bool are_whole(const KivPointArray& points)
{
    return std::all_of(points.begin(), points.end(), [](const KivPoint& point) {
        return point.x == std::trunc(point.x) && point.y == std::trunc(point.y);
    });
}

struct PixelArrays {
    KivVarArray xs;
    KivVarArray ys;
};

PixelArrays pixel_arrays_of(const KivPointArray& points)
{
    PixelArrays arrays;
    for (const KivPoint& point : points) {
        arrays.xs.Append(static_cast<int>(point.x));
        arrays.ys.Append(static_cast<int>(point.y));
    }
    return arrays;
}

/// The library takes 8-bit images; of deeper ones, whatever is not 0 is foreground.
KivImage& eight_bit(KivImage& image)
{
    if (image.Mat().depth() != CV_8U) {
        cv::Mat foreground;
        cv::compare(image.Mat(), 0.0, foreground, cv::CMP_NE);
        image.Mat() = foreground;
    }
    return image;
}

/// Why contours cannot be filled, if it is the frame.
std::string complaint_about_frame(const TracedContours& traced)
{
    return traced.width >= 2 && traced.height >= 2
               ? std::string()
               : fmt::format("a frame of {} x {} is too small to fill contours in; 2 x 2 is the least", traced.width,
                             traced.height);
}

/// Why points make no region, if it is where they lie.
std::string complaint_about_points(const KivPointArray& points)
{
    const Frame frame = extent_of(points);
    return points.Length() == 0 || (frame.width > 1 && frame.height > 1)
               ? ""
               : "points in row 0 or column 0 alone, or before them, make no region";
}

} // namespace

KivRegion region_of(KivImage& image, const std::string& subject)
{
    KivRegion region;
    expect_success(KIVMV::KivImageToRegion(eight_bit(image), &region), subject);
    return region;
}

KivRegion region_of(KivRegion& region, const std::string&)
{
    return region;
}

KivRegion region_of(KivROI& roi, const std::string& subject)
{
    if (roi.ROIType() == KivShape::Empty::type) { // the result of a set operation that leaves nothing
        return KivRegion(roi.Parameters().Width(), roi.Parameters().Height(), {});
    }
    expect_paintable(subject, frame_of(roi));
    KivRegion region;
    expect_success(KIVMV::KivROIToRegion(roi, &region), subject);
    return region;
}

KivRegion region_of(TracedContours& traced, const std::string& subject)
{
    if (traced.contours.Length() == 0) { // the library refuses none, which is what an empty mask is traced to
        return KivRegion(traced.width, traced.height, {});
    }
    expect_paintable(subject, frame_of(traced));
    KivRegion region;
    const int code = KIVMV::KivContourArrayToRegion(traced.contours, traced.width, traced.height, &region);
    expect_success(code, subject, complaint_about_frame(traced));
    return region;
}

KivRegion region_of(KivPointArray& points, const std::string& subject)
{
    expect_paintable(subject, extent_of(points));
    KivRegion region;
    int code = KIVMV::KIVMV_OK;
    if (are_whole(points)) {
        PixelArrays pixels = pixel_arrays_of(points);
        code = KIVMV::KivVarArrayToRegion(pixels.xs, pixels.ys, &region);
    } else {
        code = KIVMV::KivPointArrayToRegion(points, &region);
    }
    expect_success(code, subject, complaint_about_points(points));
    return region;
}

KivRegion region_of(Content& content, const std::string& subject)
{
    return std::visit([&](auto& value) { return region_of(value, subject); }, content);
}

KivImage mask_of(KivRegion& region, const std::string& subject)
{
    expect_paintable(subject, frame_of(region));
    KivImage mask;
    expect_success(KIVMV::KivRegionToBinImage(&mask, region), subject);
    return mask;
}

KivImage mask_of(KivROI& roi, const std::string& subject)
{
    expect_paintable(subject, frame_of(roi));
    KivImage mask;
    expect_success(KIVMV::KivROIToBinImage(&mask, roi), subject);
    return mask;
}

KivImage mask_of(TracedContours& traced, const std::string& subject)
{
    expect_paintable(subject, frame_of(traced));
    KivImage mask;
    if (traced.contours.Length() == 0) { // as above
        mask.Mat() = cv::Mat::zeros(traced.height, traced.width, CV_8UC1);
        return mask;
    }
    const int code = KIVMV::KivContourArrayToBinImage(&mask, traced.contours, traced.width, traced.height);
    expect_success(code, subject, complaint_about_frame(traced));
    return mask;
}

KivImage mask_of(Content& content, const std::string& subject)
{
    if (auto* const roi = std::get_if<KivROI>(&content)) {
        return mask_of(*roi, subject);
    }
    if (auto* const traced = std::get_if<TracedContours>(&content)) {
        return mask_of(*traced, subject);
    }
    KivRegion region = region_of(content, subject);
    return mask_of(region, subject);
}

KivROI roi_of(Content& content, const std::string& subject)
{
    if (const auto* const roi = std::get_if<KivROI>(&content)) {
        return *roi;
    }
    KivROI roi;
    if (auto* const image = std::get_if<KivImage>(&content)) {
        expect_success(KIVMV::KivBinImageToROI(eight_bit(*image), &roi), subject);
        return roi;
    }
    KivRegion region = region_of(content, subject);
    expect_success(KIVMV::KivRegionToROI(region, &roi), subject);
    return roi;
}

TracedContours contours_of(KivImage& image, const std::string& subject)
{
    TracedContours traced{image.Width(), image.Height(), {}};
    expect_success(KIVMV::KivBinImageToContourArray(eight_bit(image), &traced.contours), subject);
    return traced;
}

TracedContours contours_of(KivRegion& region, const std::string& subject)
{
    expect_paintable(subject, frame_of(region));
    TracedContours traced{region.Width(), region.Height(), {}};
    expect_success(KIVMV::KivRegionToContourArray(region, &traced.contours), subject);
    return traced;
}

TracedContours contours_of(KivROI& roi, const std::string& subject)
{
    expect_paintable(subject, frame_of(roi));
    TracedContours traced{roi.Parameters().Width(), roi.Parameters().Height(), {}};
    expect_success(KIVMV::KivROIToContourArray(roi, &traced.contours), subject);
    return traced;
}

TracedContours contours_of(TracedContours& traced, const std::string&)
{
    return traced;
}

TracedContours contours_of(KivPointArray& points, const std::string& subject)
{
    KivContour contour;
    if (are_whole(points)) {
        PixelArrays pixels = pixel_arrays_of(points);
        expect_success(KIVMV::KivVarArrayToContour(pixels.xs, pixels.ys, &contour), subject);
    } else {
        expect_success(KIVMV::KivPointArrayToContour(points, &contour), subject);
    }
    const Frame frame = extent_of(points);
    return {frame.width, frame.height, KivContourArray({contour})};
}

TracedContours contours_of(Content& content, const std::string& subject)
{
    return std::visit([&](auto& value) { return contours_of(value, subject); }, content);
}

} // namespace kivconvert
