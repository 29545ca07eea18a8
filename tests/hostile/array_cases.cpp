// SPDX-License-Identifier: MIT
#include "cases.h"

#include <climits>

namespace
{

using hostile::outcome;

std::string digits(KivVarArray values)
{
    return std::to_string(KIVMV::maxbit(std::move(values)));
}

std::string sorted(KivVarArray rows, KivVarArray begins, KivVarArray ends)
{
    KIVMV::radixsort(rows, begins, ends);
    return support::text_of(rows) + support::text_of(begins) + support::text_of(ends);
}

std::string pixel_list(KivRegion region)
{
    KivVarArray xs = {9, 9, 9};
    KivVarArray ys = {"text"};
    const int code = KIVMV::KivRegionToVarArray(region, &xs, &ys);
    return outcome(code, xs, ys);
}

std::string point_list(KivRegion region)
{
    KivPointArray points = {{9, 9}};
    const int code = KIVMV::KivRegionToPointArray(region, &points);
    return outcome(code, points);
}

std::string region_of(KivVarArray xs, KivVarArray ys)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivVarArrayToRegion(xs, ys, &region);
    return outcome(code, region);
}

std::string region_of_twice(KivVarArray both)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivVarArrayToRegion(both, both, &region);
    return outcome(code, region);
}

std::string region_of(KivPointArray points)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivPointArrayToRegion(points, &region);
    return outcome(code, region);
}

} // namespace

hostile::Cases hostile::array_cases()
{
    using support::infinity;
    using support::nan;
    return {
        {"DigitsOfNothing", [] { return digits({}); }, "1"},
        {"DigitsOfTheLimits",
         [] {
             return digits({INT_MIN, INT_MAX});
         },
         "10"},
        {"DigitsOfTheLowest", [] { return digits({INT_MIN}); }, "1"},
        {"DigitsOfTexts",
         [] {
             return digits({"123", ""});
         },
         "1"},
        {"DigitsOfDoubles",
         [] {
             return digits({1e300, -infinity, nan});
         },
         "10"},
        {"DigitsOfMovedFrom", [] { return digits(moved_from(KivVarArray{123})); }, "1"},

        {"SortOfNothing", [] { return sorted({}, {}, {}); }, "{}{}{}"},
        {"SortOfTheLimits",
         [] {
             return sorted({INT_MAX, 0, INT_MIN, -1}, {1, 2, 3, 4}, {5, 6, 7, 8});
         },
         "{-2147483648, -1, 0, 2147483647}{3, 4, 2, 1}{7, 8, 6, 5}"},
        {"SortOfTextsAndDoubles",
         [] {
             return sorted({2.9, "9", infinity, -1e99}, {1, 2, 3, 4}, {5, 6, 7, 8});
         },
         "{-2147483648, 0, 2, 2147483647}{4, 2, 1, 3}{8, 6, 5, 7}"},
        {"SortWithLongerColumns",
         [] {
             return sorted({2, 1}, {1, 2, "x"}, {3, 4, 5.5});
         },
         "{1, 2}{2, 1, \"x\"}{4, 3, double 5.5}"},
        {"SortWithShorterColumns",
         [] {
             return sorted({2, 1}, {1}, {3, 4});
         },
         "std::out_of_range"},
        {"SortInOrderWithFewerFirstColumns",
         [] {
             return sorted({1, 2}, {1}, {3, 4});
         },
         "std::out_of_range"},
        {"SortInOrderWithFewerLastColumns",
         [] {
             return sorted({1, 2}, {1, 2}, {3});
         },
         "std::out_of_range"},
        {"SortOfOneArrayThrice",
         [] {
             KivVarArray all = {3, 1, 2};
             KIVMV::radixsort(all, all, all);
             return support::text_of(all);
         },
         "{1, 2, 3}"},

        {"PixelsOfEmptyRegion", [] { return pixel_list(KivRegion()); }, "parameter 1; {}; {}"},
        {"PixelsOfMovedFrom",
         [] {
             return pixel_list(moved_from(KivRegion(3, 3, {{1, 1, 1}})));
         },
         "parameter 1; {}; {}"},
        {"PixelsWithoutColumns",
         [] {
             return pixel_list(KivRegion(0, INT_MAX, {{0, 0, 0}}));
         },
         "parameter 1; {}; {}"},
        {"PixelsWithoutRows",
         [] {
             return pixel_list(KivRegion(3, 0, {{0, 0, 0}}));
         },
         "ok; {}; {}"},
        {"PixelsWithoutRowsButAllColumns",
         [] {
             return pixel_list(KivRegion(INT_MAX, 0, {{0, 0, 0}}));
         },
         "ok; {}; {}"},
        {"PixelsOfLongestRuns",
         [] {
             return pixel_list(KivRegion(2, 2,
                                         {{INT_MIN, INT_MIN, INT_MAX},
                                          {INT_MAX, INT_MIN, INT_MAX},
                                          {1, INT_MIN, INT_MAX},
                                          {0, INT_MAX, INT_MIN},
                                          {0, 1, INT_MAX}}));
         },
         "ok; {1, 0, 1}; {0, 1, 1}"},
        {"PixelsOfLargestFrame", [] { return pixel_list(KivRegion(INT_MAX, INT_MAX, {})); }, too_large},
        {"PixelsOfFrameOf32Bits", [] { return pixel_list(KivRegion(65536, 65536, {})); }, "ok; {}; {}"},
        {"PixelsOfNegativeFrame", [] { return pixel_list(KivRegion(-1, 3, {})); }, "std::invalid_argument"},

        {"PointsOfEmptyRegion", [] { return point_list(KivRegion()); }, "parameter 1; 0 points:"},
        {"PointsOfMovedFrom", [] { return point_list(moved_from(KivRegion(3, 3, {}))); }, "parameter 1; 0 points:"},
        {"PointsAtTheLimits",
         [] {
             return point_list(KivRegion(1, 0, {{INT_MIN, INT_MAX - 1, INT_MAX}, {INT_MAX, INT_MIN, INT_MIN}}));
         },
         "ok; 3 points: (2147483646, -2147483648) (2147483647, -2147483648) (-2147483648, 2147483647)"},
        {"PointsOfInvertedRun",
         [] {
             return point_list(KivRegion(1, 1, {{0, INT_MAX, INT_MIN}}));
         },
         "ok; 0 points:"},
        {"PointsOfLongestRun",
         [] {
             return point_list(KivRegion(1, 1, {{0, INT_MIN, INT_MAX}}));
         },
         too_large},
        {"PointsOfLargestFrame",
         [] {
             return point_list(KivRegion(INT_MAX, INT_MAX, {{1, 2, 2}}));
         },
         "ok; 1 points: (2, 1)"},

        {"RegionOfNothing", [] { return region_of(KivVarArray(), {1}); }, "length; 2 x 2: no runs"},
        {"RegionOfUnequalArrays",
         [] {
             return region_of({1, 2}, {1});
         },
         "length; 2 x 2: no runs"},
        {"RegionOfMovedFromArray", [] { return region_of(moved_from(KivVarArray{1}), {1}); }, "length; 2 x 2: no runs"},
        {"RegionOfTextColumn",
         [] {
             return region_of({1, "1"}, {1, "1"});
         },
         "parameter 1; 2 x 2: no runs"},
        {"RegionOfTextRow",
         [] {
             return region_of({1, "1"}, {"1", 1});
         },
         "parameter 2; 2 x 2: no runs"},
        {"RegionOfLargestPixel", [] { return region_of(KivVarArray{INT_MAX}, {INT_MAX}); }, "cv::Exception"},
        {"RegionOfLargestRow", [] { return region_of(KivVarArray{1}, {INT_MAX}); }, "cv::Exception"},
        {"RegionOfLargestFrame", [] { return region_of(KivVarArray{INT_MAX - 1}, {INT_MAX - 1}); }, too_large},
        {"RegionOfFrameOf32Bits", [] { return region_of(KivVarArray{65535}, {65535}); },
         "ok; 65536 x 65536: (65535, 65535, 65535)"},
        {"RegionOfLowestPixel", [] { return region_of(KivVarArray{INT_MIN}, {INT_MIN}); },
         "parameter 1; 2 x 2: no runs"},
        {"RegionBesideLowestPixel",
         [] {
             return region_of({INT_MIN, 1}, {1, 1});
         },
         "ok; 2 x 2: (1, 1, 1)"},
        {"RegionOfNaN",
         [] {
             return region_of({nan, 2}, {1, nan});
         },
         "ok; 3 x 2: (0, 2, 2) (1, 0, 0)"},
        {"RegionOfInfinity", [] { return region_of(KivVarArray{infinity}, {1}); }, "cv::Exception"},
        {"RegionOfNegativeInfinity",
         [] {
             return region_of({-infinity, 1}, {1, 1});
         },
         "ok; 2 x 2: (1, 1, 1)"},
        {"RegionOfOneArrayTwice",
         [] {
             return region_of_twice({2, 0});
         },
         "ok; 3 x 3: (0, 0, 0) (2, 2, 2)"},
        {"RegionOfOneTextTwice", [] { return region_of_twice({"2"}); }, "parameter 1; 2 x 2: no runs"},

        {"RegionOfNoPoints", [] { return region_of(KivPointArray()); }, "parameter 1; 2 x 2: no runs"},
        {"RegionOfMovedFromPoints",
         [] {
             return region_of(moved_from(KivPointArray{{1, 1}}));
         },
         "parameter 1; 2 x 2: no runs"},
        {"RegionOfNaNPoints",
         [] {
             return region_of({{nan, 1}, {2, nan}});
         },
         "ok; 3 x 2: (0, 2, 2) (1, 0, 0)"},
        {"RegionOfInfinitePoint",
         [] {
             return region_of({{infinity, 1}});
         },
         "cv::Exception"},
        {"RegionOfInfiniteRow",
         [] {
             return region_of({{1, 1e300}});
         },
         "cv::Exception"},
        {"RegionOfNegativeInfinitePoint",
         [] {
             return region_of({{-infinity, -1e300}, {1, 1}});
         },
         "ok; 2 x 2: (1, 1, 1)"},
        {"RegionOfPointsOfLargestFrame",
         [] {
             return region_of({{INT_MAX - 1, INT_MAX - 1}});
         },
         too_large},
        {"RegionOfPointsOfFrameOf32Bits",
         [] {
             return region_of({{65535.9, 65535.9}});
         },
         "ok; 65536 x 65536: (65535, 65535, 65535)"},
    };
}
