// SPDX-License-Identifier: MIT
#include "cases.h"

#include <climits>

namespace
{

using hostile::outcome;

std::string region_of(KivROI roi)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivROIToRegion(roi, &region);
    return outcome(code, region);
}

std::string image_of(KivROI roi)
{
    KivImage image(cv::Mat(1, 1, CV_8UC1, cv::Scalar(5)));
    const int code = KIVMV::KivROIToBinImage(&image, roi);
    return outcome(code, image);
}

std::string outlines_of(KivROI roi)
{
    KivContourArray contours = {KivContour()};
    const int code = KIVMV::KivROIToContourArray(roi, &contours);
    return outcome(code, contours);
}

std::string roi_of(KivRegion region)
{
    KivROI roi = KivROI::Mask({}, 2, 2);
    const int code = KIVMV::KivRegionToROI(region, &roi);
    return outcome(code, roi);
}

std::string roi_of(KivImage image)
{
    KivROI roi = KivROI::Mask({}, 2, 2);
    const int code = KIVMV::KivBinImageToROI(image, &roi);
    return outcome(code, roi);
}

KivImage image(int width, int height, int type)
{
    return KivImage(cv::Mat(height, width, type, cv::Scalar::all(1)));
}

KivROI open_curve()
{
    return KivROI::OpenCurve({{0, 0}, {1, 1}}, 2, 2);
}

const std::string old_region = "; 2 x 2: no runs";
const std::string old_image = "; 1 x 1, element type 0\n 5";
const std::string old_contours = "; 1 contours\n  0 points:";
const std::string old_roi = "; type 8, 2 x 2: no runs";
const std::string all_of_3_by_2 = "ok; 3 x 2: (0, 0, 2) (1, 0, 2)";

} // namespace

hostile::Cases hostile::roi_cases()
{
    using support::infinity;
    using support::nan;
    constexpr double huge = 1.7e308;
    return {
        {"RegionOfEmptyRoi", [] { return region_of(KivROI()); }, "parameter 1" + old_region},
        {"RegionOfMovedFromRoi",
         [] {
             return region_of(moved_from(KivROI::Mask({{0, 0, 0}}, 2, 2)));
         },
         "parameter 1" + old_region},
        {"RegionOfOpenCurve", [] { return region_of(open_curve()); }, "parameter 1" + old_region},
        {"RegionOfMaskWithoutColumns",
         [] {
             return region_of(KivROI::Mask({{0, 0, 0}}, 0, INT_MAX));
         },
         "parameter 1" + old_region},
        {"RegionOfMaskWithoutRows",
         [] {
             return region_of(KivROI::Mask({{INT_MAX, INT_MIN, INT_MAX}}, INT_MAX, 0));
         },
         "ok; 2147483647 x 0: (2147483647, -2147483648, 2147483647)"},
        {"RegionOfFarReachingMask",
         [] {
             return region_of(KivROI::Mask({{INT_MIN, INT_MAX, INT_MIN}, {0, INT_MIN, INT_MAX}}, 1, 1));
         },
         "ok; 1 x 1: (-2147483648, 2147483647, -2147483648) (0, -2147483648, 2147483647)"},
        {"RegionOfLargestMask", [] { return region_of(KivROI::Mask({}, INT_MAX, INT_MAX)); }, too_large},
        {"RegionOf32BitMask", [] { return region_of(KivROI::Mask({}, 65536, 65536)); }, "ok; 65536 x 65536: no runs"},
        {"RegionOfSmallCircleInLargestFrame",
         [] { return region_of(KivROI::Circle(INT_MAX, INT_MAX, 2, INT_MAX, INT_MAX)); }, too_large},
        {"RegionOfLargeCircleInTallestFrame", [] { return region_of(KivROI::Circle(0, 0, 1e300, 1, INT_MAX)); },
         too_large},
        {"RegionOfHugeRectangle", [] { return region_of(KivROI::Rectangle(-huge, -huge, huge, huge, 3, 2)); },
         all_of_3_by_2},
        {"RegionOfInvertedRectangle", [] { return region_of(KivROI::Rectangle(huge, huge, -huge, -huge, 3, 2)); },
         "ok; 3 x 2: no runs"},
        {"RegionOfHugeCircle", [] { return region_of(KivROI::Circle(0, 0, huge, 3, 2)); }, all_of_3_by_2},
        {"RegionOfSmallestCircle", [] { return region_of(KivROI::Circle(1, 1, 5e-324, 3, 2)); },
         "ok; 3 x 2: (1, 1, 1)"},
        {"RegionOfHugeEllipse", [] { return region_of(KivROI::Ellipse(0, 0, huge, huge, 1e300, 3, 2)); },
         all_of_3_by_2},
        {"RegionOfFarRing", [] { return region_of(KivROI::Ring(huge, -huge, 0, 1, 3, 2)); }, "ok; 3 x 2: no runs"},
        {"RegionOfPolygonWithoutPoints", [] { return region_of(KivROI::Polygon({}, 3, 2)); }, "ok; 3 x 2: no runs"},
        {"RegionOfHugePolygon",
         [=] {
             return region_of(KivROI::Polygon({{-huge, -huge}, {huge, -huge}, {huge, huge}, {-huge, huge}}, 3, 2));
         },
         all_of_3_by_2},

        {"RoiWithNaN", [] { return region_of(KivROI::Circle(nan, 0, 1, 3, 2)); }, "std::invalid_argument"},
        {"RoiWithInfinity",
         [] {
             return region_of(KivROI::Polygon({{infinity, 0}}, 3, 2));
         },
         "std::invalid_argument"},
        {"RoiWithNegativeRadius", [] { return region_of(KivROI::Circle(0, 0, -5e-324, 3, 2)); },
         "std::invalid_argument"},
        {"RoiWithLargeSweep", [] { return region_of(KivROI::RingSector(0, 0, 0, 1, 0, 360.001, 3, 2)); },
         "std::invalid_argument"},
        {"RoiWithNegativeFrame", [] { return region_of(KivROI::Mask({}, 3, INT_MIN)); }, "std::invalid_argument"},

        {"ImageOfEmptyRoi", [] { return image_of(KivROI()); }, "parameter 1" + old_image},
        {"ImageOfOpenCurve", [] { return image_of(open_curve()); }, "parameter 1" + old_image},
        {"ImageOfMaskWithoutColumns",
         [] {
             return image_of(KivROI::Mask({{0, 0, 0}}, 0, 5));
         },
         "ok; 0 x 5, element type 0\n\n\n\n\n"},
        {"ImageOfFarReachingMask",
         [] {
             return image_of(KivROI::Mask({{0, INT_MIN, 0}, {0, INT_MAX, INT_MIN}, {INT_MAX, 0, 1}}, 2, 1));
         },
         "ok; 2 x 1, element type 0\n 255 0"},
        {"ImageOfLargestMask", [] { return image_of(KivROI::Mask({}, INT_MAX, INT_MAX)); }, too_large},
        {"ImageOf32BitMask", [] { return image_of(KivROI::Mask({}, 65536, 65536)); }, too_large},

        {"OutlinesOfEmptyRoi", [] { return outlines_of(KivROI()); }, "parameter 1" + old_contours},
        {"OutlinesOfOpenCurve", [] { return outlines_of(open_curve()); }, "parameter 1" + old_contours},
        {"OutlinesOfMaskWithoutColumns", [] { return outlines_of(KivROI::Mask({}, 0, INT_MAX)); }, "ok; 0 contours"},
        {"OutlinesOfMaskWithoutRows", [] { return outlines_of(KivROI::Mask({}, INT_MAX, 0)); }, "ok; 0 contours"},
        {"OutlinesOfFarReachingMask",
         [] {
             return outlines_of(KivROI::Mask({{0, INT_MIN, 0}, {0, INT_MAX, 1}}, 2, 1));
         },
         "ok; 1 contours\n  1 points: (0, 0)"},
        {"OutlinesOfLargestMask", [] { return outlines_of(KivROI::Mask({}, INT_MAX, INT_MAX)); }, too_large},

        {"RoiOfEmptyRegion",
         [] {
             return roi_of(KivRegion(0, 5, {{0, 0, 0}}));
         },
         "parameter 1" + old_roi},
        {"RoiOfMovedFromRegion", [] { return roi_of(moved_from(KivRegion(3, 3, {}))); }, "parameter 1" + old_roi},
        {"RoiOfLargestRegion",
         [] {
             return roi_of(KivRegion(INT_MAX, INT_MAX, {{INT_MIN, INT_MAX, INT_MIN}}));
         },
         "ok; type 8, 2147483647 x 2147483647: (-2147483648, 2147483647, -2147483648)"},

        {"RoiOfEmptyImage", [] { return roi_of(KivImage()); }, "no image" + old_roi},
        {"RoiOfTwoChannels", [] { return roi_of(image(2, 1, CV_8UC2)); }, "channels" + old_roi},
        {"RoiOfFourChannels", [] { return roi_of(image(2, 1, CV_16UC4)); }, "channels" + old_roi},
        {"RoiOfOneRow", [] { return roi_of(image(70, 1, CV_8UC1)); }, "ok; type 8, 70 x 1: (0, 0, 69)"},
        {"RoiOfOneColumn", [] { return roi_of(image(1, 2, CV_8UC1)); }, "ok; type 8, 1 x 2: (0, 0, 0) (1, 0, 0)"},
        {"RoiOf16Bits", [] { return roi_of(image(2, 1, CV_16UC1)); }, "bit depth" + old_roi},
        {"RoiOfPaddedImage",
         [] { return roi_of(KivImage(support::padded(cv::Mat(1, 2, CV_8UC1, cv::Scalar(1)), 1, 2, 255).inner)); },
         "ok; type 8, 2 x 1: (0, 0, 1)"},
    };
}
