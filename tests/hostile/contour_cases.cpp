// SPDX-License-Identifier: MIT
#include "cases.h"

#include "support/pages.h"
#include "support/pictures.h"

#include <climits>

namespace
{

using hostile::outcome;

std::string arrays_of(KivContour contour)
{
    KivVarArray xs = {9};
    KivVarArray ys = {"text"};
    const int code = KIVMV::KivContourToVarArray(contour, &xs, &ys);
    return outcome(code, xs, ys);
}

std::string contour_of(KivVarArray xs, KivVarArray ys)
{
    KivContour contour = {{9, 9}};
    const int code = KIVMV::KivVarArrayToContour(xs, ys, &contour);
    return outcome(code, contour);
}

std::string contour_of_twice(KivVarArray both)
{
    KivContour contour;
    const int code = KIVMV::KivVarArrayToContour(both, both, &contour);
    return outcome(code, contour);
}

std::string points_of(KivContour contour)
{
    KivPointArray points = {{9, 9}};
    const int code = KIVMV::KivContourToPointArray(contour, &points);
    return outcome(code, points);
}

std::string contour_of(KivPointArray points)
{
    KivContour contour = {{9, 9}};
    const int code = KIVMV::KivPointArrayToContour(points, &contour);
    return outcome(code, contour);
}

std::string outlines_of(KivRegion region)
{
    KivContourArray contours = {KivContour()};
    const int code = KIVMV::KivRegionToContourArray(region, &contours);
    return outcome(code, contours);
}

std::string outlines_of(KivImage image)
{
    KivContourArray contours = {KivContour()};
    const int code = KIVMV::KivBinImageToContourArray(image, &contours);
    return outcome(code, contours);
}

std::string region_of(KivContour contour)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivContourToRegion(contour, &region);
    return outcome(code, region);
}

/// Into a region alone: that takes no mask.
std::string filled_region(KivContourArray contours, int width, int height)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivContourArrayToRegion(contours, width, height, &region);
    return outcome(code, region);
}

/// Into an image alone.
std::string filled_image(KivContourArray contours, int width, int height)
{
    KivImage image(cv::Mat(1, 1, CV_8UC1, cv::Scalar(5)));
    const int code = KIVMV::KivContourArrayToBinImage(&image, contours, width, height);
    return outcome(code, image);
}

/// Both ways of filling contours, which must agree.
std::string filled(KivContourArray contours, int width, int height)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivContourArrayToRegion(contours, width, height, &region);
    KivImage image(cv::Mat(1, 1, CV_8UC1, cv::Scalar(5)));
    const int image_code = KIVMV::KivContourArrayToBinImage(&image, contours, width, height);
    const bool agree = code == KIVMV::KIVMV_OK ? region.Runs() == support::plain_runs(image.Mat())
                                               : image.Mat().at<unsigned char>(0, 0) == 5;
    return code == image_code && agree ? outcome(code, region) : "the two differ";
}

/// The pixels that the result has when it is filled again.
std::string merged(KivImage image, KivContour contour, bool add)
{
    KivContourArray contours = {KivContour()};
    const int code = KIVMV::KivMergContour(image, contour, add, &contours);
    if (code != KIVMV::KIVMV_OK) {
        return outcome(code, contours);
    }
    return "ok\n" + support::picture_of(IKivROIPara::ToMAT(contours, image.Width(), image.Height()));
}

KivContour box(double left, double top, double right, double bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

/// As many pixels as an int can count. Their pages are never touched, so they cost no memory.
class MostPixels
{
public:
    KivImage column() const { return KivImage(cv::Mat(INT_MAX, 1, CV_8UC1, pages_.data())); }
    KivImage row() const { return KivImage(cv::Mat(1, INT_MAX, CV_8UC1, pages_.data())); }

private:
    support::Pages pages_{std::size_t{1} << 31};
};

KivImage image(int width, int height, int type, double value)
{
    return KivImage(cv::Mat(height, width, type, cv::Scalar::all(value)));
}

const std::string old_region = "; 2 x 2: no runs";
const std::string old_contours = "; 1 contours\n  0 points:";

} // namespace

hostile::Cases hostile::contour_cases()
{
    using support::infinity;
    using support::nan;
    const auto padded = [] {
        return KivImage(support::padded(cv::Mat(1, 2, CV_8UC1, cv::Scalar(1)), 1, 2, 255).inner);
    };
    return {
        {"ArraysOfNoPoints", [] { return arrays_of(KivContour()); }, "parameter 1; {}; {}"},
        {"ArraysOfMovedFrom",
         [] {
             return arrays_of(moved_from(KivContour{{1, 1}}));
         },
         "parameter 1; {}; {}"},
        {"ArraysOfExtremes",
         [] {
             return arrays_of({{infinity, -infinity}, {nan, 1e300}, {-1e300, -0.5}});
         },
         "ok; {2147483647, 0, -2147483648}; {-2147483648, 2147483647, 0}"},

        {"ContourOfNothing", [] { return contour_of(KivVarArray(), {}); }, "parameter 1; 0 points:"},
        {"ContourOfUnequalArrays",
         [] {
             return contour_of({1, 2}, {1});
         },
         "length; 0 points:"},
        {"ContourOfMovedFromArray", [] { return contour_of({1}, moved_from(KivVarArray{1})); }, "length; 0 points:"},
        {"ContourOfTextColumn",
         [] {
             return contour_of({1, "x"}, {2, "y"});
         },
         "parameter 1; 1 points: (1, 2)"},
        {"ContourOfTextRow",
         [] {
             return contour_of({1, 3, "x"}, {2, "y", 4});
         },
         "parameter 2; 1 points: (1, 2)"},
        {"ContourOfExtremes",
         [] {
             return contour_of({INT_MIN, INT_MAX, nan}, {infinity, -infinity, -1e300});
         },
         "ok; 3 points: (-2147483648, 2147483647) (2147483647, -2147483648) (0, -2147483648)"},
        {"ContourOfOneArrayTwice",
         [] {
             return contour_of_twice({INT_MIN, 2});
         },
         "ok; 2 points: (-2147483648, -2147483648) (2, 2)"},

        {"PointsOfNoContour", [] { return points_of(KivContour()); }, "parameter 1; 0 points:"},
        {"PointsOfMovedFromContour",
         [] {
             return points_of(moved_from(KivContour{{1, 1}}));
         },
         "parameter 1; 0 points:"},
        {"PointsOfExtremes",
         [] {
             return points_of({{infinity, -infinity}, {nan, 1e300}});
         },
         "ok; 2 points: (inf, -inf) (nan, 1.0000000000000001e+300)"},
        {"ContourOfNoPoints", [] { return contour_of(KivPointArray()); }, "parameter 1; 0 points:"},
        {"ContourOfMovedFromPoints",
         [] {
             return contour_of(moved_from(KivPointArray{{1, 1}}));
         },
         "parameter 1; 0 points:"},
        {"ContourOfExtremePoints",
         [] {
             return contour_of({{infinity, -infinity}, {nan, 0.5}});
         },
         "ok; 2 points: (inf, -inf) (nan, 0.5)"},

        {"OutlinesOfEmptyRegion", [] { return outlines_of(KivRegion()); }, "parameter 1" + old_contours},
        {"OutlinesOfMovedFrom", [] { return outlines_of(moved_from(KivRegion(2, 2, {}))); },
         "parameter 1" + old_contours},
        {"OutlinesWithoutRows",
         [] {
             return outlines_of(KivRegion(INT_MAX, 0, {{0, 0, 0}}));
         },
         "ok; 0 contours"},
        {"OutlinesOfFarReachingRuns",
         [] {
             return outlines_of(
                 KivRegion(2, 1, {{0, INT_MIN, 0}, {INT_MAX, 0, 0}, {INT_MIN, 0, 0}, {0, INT_MAX, INT_MIN}}));
         },
         "ok; 1 contours\n  1 points: (0, 0)"},
        {"OutlinesOfLargestRegion", [] { return outlines_of(KivRegion(INT_MAX, INT_MAX, {})); }, too_large},
        {"OutlinesOf32BitRegion", [] { return outlines_of(KivRegion(65536, 65536, {})); }, "ok; 0 contours"},

        {"OutlinesOfEmptyImage", [] { return outlines_of(KivImage()); }, "no image" + old_contours},
        {"OutlinesOfMovedFromImage", [] { return outlines_of(moved_from(image(2, 2, CV_8UC1, 1))); },
         "no image" + old_contours},
        {"OutlinesOfTwoChannels", [] { return outlines_of(image(2, 2, CV_8UC2, 1)); }, "channels" + old_contours},
        {"OutlinesOf16Bits", [] { return outlines_of(image(2, 2, CV_16UC1, 1)); }, "bit depth" + old_contours},
        {"OutlinesOfPaddedImage", [=] { return outlines_of(padded()); }, "ok; 1 contours\n  2 points: (0, 0) (1, 0)"},
        {"OutlinesOfFourChannels", [] { return outlines_of(image(2, 2, CV_16UC4, 1)); }, "channels" + old_contours},
        {"OutlinesOfOneRow", [] { return outlines_of(image(2, 1, CV_8UC1, 1)); },
         "ok; 1 contours\n  2 points: (0, 0) (1, 0)"},
        {"OutlinesOfOneColumn", [] { return outlines_of(image(1, 2, CV_8UC1, 1)); },
         "ok; 1 contours\n  2 points: (0, 0) (0, 1)"},

        {"RegionOfNoContour", [] { return region_of(KivContour()); }, "parameter 1" + old_region},
        {"RegionOfMovedFromContour",
         [] {
             return region_of(moved_from(KivContour{{1, 1}}));
         },
         "parameter 1" + old_region},
        {"RegionOfOnePoint",
         [] {
             return region_of({{2, 1}});
         },
         "ok; 3 x 2: (1, 2, 2)"},
        {"RegionOfTwoPoints",
         [] {
             return region_of({{0, 1}, {2, 1}});
         },
         "ok; 3 x 2: (1, 0, 2)"},
        {"RegionOfNaNs",
         [] {
             return region_of({{nan, nan}});
         },
         "ok; 1 x 1: (0, 0, 0)"},
        {"RegionOfInfinities",
         [] {
             return region_of({{infinity, infinity}, {0, 0}});
         },
         "cv::Exception"},
        {"RegionOfNegativeInfinities",
         [] {
             return region_of({{-infinity, -infinity}});
         },
         "cv::Exception"},
        {"RegionJustOutside",
         [] {
             return region_of({{-1, -1}});
         },
         "ok; 0 x 0: no runs"},
        {"RegionOfLargestRow",
         [] {
             return region_of({{1, INT_MAX}});
         },
         "cv::Exception"},
        {"RegionOfContourOf32BitFrame",
         [] {
             return region_of({{65535, 65535}});
         },
         too_large},
        {"RegionOfFarBox", [] { return region_of(box(-1e300, -infinity, 2, 1)); }, "ok; 3 x 2: (0, 0, 2) (1, 0, 2)"},
        {"RegionOfFarDiagonal",
         [] {
             return region_of({{-infinity, 1}, {1, -infinity}});
         },
         "ok; 2 x 2: no runs"},

        {"FilledNothing", [] { return filled({}, INT_MAX, INT_MAX); }, "parameter 1" + old_region},
        {"FilledInLowestWidth", [] { return filled({KivContour()}, INT_MIN, INT_MIN); }, "parameter 2" + old_region},
        {"FilledInOneColumn", [] { return filled({KivContour()}, 1, INT_MAX); }, "parameter 2" + old_region},
        {"FilledInOneRow", [] { return filled({KivContour()}, INT_MAX, 1); }, "parameter 3" + old_region},
        {"FilledInLargestFrame", [] { return filled({box(0, 0, 1, 1)}, INT_MAX, INT_MAX); }, "exception" + old_region},
        {"RegionFilledIn32BitFrame", [] { return filled_region({box(0, 0, 1, 1)}, 65536, 65536); },
         "ok; 65536 x 65536: (0, 0, 1) (1, 0, 1)"},
        {"ImageFilledIn32BitFrame", [] { return filled_image({box(0, 0, 1, 1)}, 65536, 65536); },
         "exception; 1 x 1, element type 0\n 5"},
        {"FilledWithoutPoints",
         [] {
             return filled({KivContour(), moved_from(KivContour{{1, 1}})}, 2, 2);
         },
         "ok; 2 x 2: no runs"},
        {"FilledNaNs",
         [] {
             return filled({{{nan, 0}, {0, nan}}}, 2, 2);
         },
         "ok; 2 x 2: no runs"},
        {"FilledOnePointAndTwoPoints",
         [] {
             return filled({{{0, 0}}, {{2, 1}, {3, 1}}}, 4, 2);
         },
         "ok; 4 x 2: (0, 0, 0) (1, 2, 3)"},
        {"FilledFarBox", [] { return filled({box(-infinity, -1e300, infinity, 1e300)}, 3, 2); },
         "ok; 3 x 2: (0, 0, 2) (1, 0, 2)"},
        {"FilledFarCorner", [] { return filled({box(INT_MIN, INT_MIN, 0, 0)}, 3, 2); }, "ok; 3 x 2: (0, 0, 0)"},
        {"FilledFarAway", [] { return filled({box(INT_MAX - 5, INT_MAX - 5, INT_MAX, INT_MAX)}, 3, 2); },
         "ok; 3 x 2: no runs"},

        {"MergedIntoNothing",
         [] {
             return merged(KivImage(), {{1, 1}}, true);
         },
         "no image" + old_contours},
        {"MergedIntoMovedFrom",
         [] {
             return merged(moved_from(image(2, 2, CV_8UC1, 1)), {{1, 1}}, true);
         },
         "no image" + old_contours},
        {"MergedIntoTwoChannels", [] { return merged(image(2, 2, CV_8UC2, 1), KivContour(), true); },
         "channels" + old_contours},
        {"MergedIntoFourChannels",
         [] {
             return merged(image(2, 2, CV_8UC4, 1), {{1, 1}}, true);
         },
         "channels" + old_contours},
        {"MergedIntoOneColumn", [] { return merged(image(1, 2, CV_8UC1, 0), box(0, 1, 5, 9), true); }, "ok\n.\n#\n"},
        {"MergedNoPoints", [] { return merged(image(2, 2, CV_8UC1, 1), KivContour(), true); },
         "parameter 1" + old_contours},
        {"MergedPoint",
         [] {
             return merged(image(3, 2, CV_8UC1, 0), {{1, 1}}, true);
         },
         "ok\n...\n.#.\n"},
        {"CutPoint",
         [] {
             return merged(image(3, 3, CV_8UC1, 1), {{1, 1}}, false);
         },
         "ok\n###\n#.#\n###\n"},
        {"MergedIntoPaddedImage",
         [=] {
             return merged(padded(), {{nan, 0}}, false);
         },
         "ok\n.#\n"},
        {"MergedFarBox", [] { return merged(image(3, 2, CV_8UC1, 0), box(-1e300, -infinity, 1e300, infinity), true); },
         "ok\n###\n###\n"},
        {"CutFarBox", [] { return merged(image(3, 2, CV_8UC1, 1), box(INT_MIN, INT_MIN, 0, 0), false); },
         "ok\n.##\n###\n"},
        {"MergedFarAway",
         [] {
             return merged(image(2, 1, CV_8UC1, 0), {{infinity, infinity}}, true);
         },
         "ok\n..\n"},
        {"MergedInto16Bits", [] { return merged(image(2, 2, CV_16UC1, 0), box(0, 0, 1, 1), true); }, "ok\n##\n##\n"},
        {"MergedFarAbove", [] { return merged(image(2, 1, CV_8UC1, 1), box(0, -4e6, 1, -2e6), false); }, "ok\n##\n"},
        {"MergedBeside", [] { return merged(image(2, 2, CV_8UC1, 0), box(2, 0, 9, 1), true); }, "ok\n..\n..\n"},
        {"MergedTwoPoints",
         [] {
             return merged(image(3, 2, CV_8UC1, 0), {{0.5, 0.5}, {2.5, 0.5}}, true);
         },
         "ok\n###\n...\n"},
        // The size of a frame around these is no int.
        {"OutlinesOfTallestImage", [] { return outlines_of(MostPixels().column()); }, "std::invalid_argument"},
        {"OutlinesOfWidestImage", [] { return outlines_of(MostPixels().row()); }, "std::invalid_argument"},
    };
}
