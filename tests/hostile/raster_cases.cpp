// SPDX-License-Identifier: MIT
#include "cases.h"

#include <climits>

namespace
{

using hostile::outcome;

cv::Mat pixels(int width, int height, int type, double value)
{
    return cv::Mat(height, width, type, cv::Scalar::all(value));
}

cv::Mat cube()
{
    const int sizes[] = {2, 2, 2};
    return cv::Mat(3, sizes, CV_8UC1, cv::Scalar(1));
}

std::string region_of(KivImage image)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivImageToRegion(image, &region);
    return outcome(code, region);
}

std::string region_of_binary(KivImage image)
{
    KivRegion region(2, 2, {});
    const int code = KIVMV::KivBinImageToRegion(image, &region);
    return outcome(code, region);
}

std::string image_of(KivRegion region, int foreground, int background, int width, int height)
{
    KivImage image(pixels(1, 1, CV_8UC1, 5));
    const int code = KIVMV::KivRegionToImage(&image, region, foreground, background, width, height);
    return outcome(code, image);
}

std::string binary_image_of(KivRegion region)
{
    KivImage image(pixels(1, 1, CV_8UC1, 5));
    const int code = KIVMV::KivRegionToBinImage(&image, region);
    return outcome(code, image);
}

std::string matrix_of(KivImage image)
{
    KivMatrix matrix(pixels(1, 1, CV_8UC1, 5));
    const int code = KIVMV::KivImageToMatrix(image, &matrix);
    return outcome(code, matrix);
}

std::string image_of(KivMatrix matrix)
{
    KivImage image(pixels(1, 1, CV_8UC1, 5));
    const int code = KIVMV::KivMatrixToImage(&image, matrix);
    return outcome(code, image);
}

KivRegion far_reaching()
{
    return KivRegion(1, 1,
                     {{INT_MIN, INT_MIN, INT_MAX},
                      {INT_MAX, 0, 0},
                      {0, INT_MIN, 0},
                      {1, 1, INT_MAX},
                      {1, INT_MAX, INT_MIN},
                      {0, INT_MAX, INT_MAX}});
}

const std::string old_region = "; 2 x 2: no runs";
const std::string old_image = "; 1 x 1, element type 0\n 5";

} // namespace

hostile::Cases hostile::raster_cases()
{
    using support::nan;
    const auto image = [](int width, int height, int type, double value) {
        return KivImage(pixels(width, height, type, value));
    };
    const auto padded = [] { return KivImage(support::padded(pixels(3, 2, CV_8UC1, 1), 1, 2, 255).inner); };
    return {
        {"RegionOfEmptyImage", [] { return region_of(KivImage()); }, "no image" + old_region},
        {"RegionOfMovedFromImage", [=] { return region_of(moved_from(image(2, 2, CV_8UC1, 1))); },
         "no image" + old_region},
        {"RegionOfTwoChannels", [=] { return region_of(image(3, 1, CV_8UC2, 1)); }, "ok; 3 x 1: (0, 0, 2)"},
        {"RegionOfThreeChannels", [=] { return region_of(image(3, 1, CV_8UC3, 1)); }, "channels" + old_region},
        {"RegionOfFourChannels", [=] { return region_of(image(3, 1, CV_8UC4, 1)); }, "ok; 3 x 1: (0, 0, 2)"},
        {"RegionOf16Bits", [=] { return region_of(image(3, 1, CV_16UC1, 1)); }, "bit depth" + old_region},
        {"RegionOfSigned8Bits", [=] { return region_of(image(3, 1, CV_8SC1, -1)); }, "bit depth" + old_region},
        {"RegionOfDoubles", [=] { return region_of(image(3, 1, CV_64FC1, nan)); }, "bit depth" + old_region},
        {"RegionOfPaddedImage", [=] { return region_of(padded()); }, "ok; 3 x 2: (0, 0, 2) (1, 0, 2)"},
        {"RegionOfOneRow", [=] { return region_of(image(70, 1, CV_8UC1, 1)); }, "ok; 70 x 1: (0, 0, 69)"},
        {"RegionOfOneColumn", [=] { return region_of(image(1, 2, CV_8UC1, 1)); }, "ok; 1 x 2: (0, 0, 0) (1, 0, 0)"},

        {"BinaryRegionOfEmptyImage", [] { return region_of_binary(KivImage()); }, "no image" + old_region},
        {"BinaryRegionOfMovedFrom", [=] { return region_of_binary(moved_from(image(2, 2, CV_8UC1, 1))); },
         "no image" + old_region},
        {"BinaryRegionOfTwoChannels", [=] { return region_of_binary(image(3, 1, CV_8UC2, 1)); },
         "channels" + old_region},
        {"BinaryRegionOfFourChannelsOf16Bits", [=] { return region_of_binary(image(3, 1, CV_16UC4, 1)); },
         "channels" + old_region},
        {"BinaryRegionOf16Bits", [=] { return region_of_binary(image(3, 1, CV_16UC1, 1)); }, "bit depth" + old_region},
        {"BinaryRegionOfOneRow", [=] { return region_of_binary(image(70, 1, CV_8UC1, 1)); }, "ok; 70 x 1: (0, 0, 69)"},
        {"BinaryRegionOfOneColumn", [=] { return region_of_binary(image(1, 2, CV_8UC1, 1)); },
         "ok; 1 x 2: (0, 0, 0) (1, 0, 0)"},
        {"BinaryRegionOfSigned8Bits", [=] { return region_of_binary(image(3, 1, CV_8SC1, -1)); },
         "bit depth" + old_region},
        // Neither the width nor the height of more than two dimensions is one.
        {"RegionOfThreeDimensions", [] { return region_of(KivImage(cube())); }, "cv::Exception"},
        {"BinaryRegionOfThreeDimensions", [] { return region_of_binary(KivImage(cube())); }, "no image" + old_region},
        {"MatrixOfThreeDimensions", [] { return matrix_of(KivImage(cube())); }, "no image" + old_image},
        {"ImageOfThreeDimensions", [] { return image_of(KivMatrix(cube())); }, "parameter 1" + old_image},
        {"BinaryRegionOfPaddedImage", [=] { return region_of_binary(padded()); }, "ok; 3 x 2: (0, 0, 2) (1, 0, 2)"},

        {"ImageWithLowestForeground", [] { return image_of(far_reaching(), INT_MIN, -1, 0, 0); },
         "parameter 2" + old_image},
        {"ImageWithLargestForeground", [] { return image_of(far_reaching(), INT_MAX, 0, 1, 1); },
         "parameter 2" + old_image},
        {"ImageWithLargestBackground", [] { return image_of(far_reaching(), 255, INT_MAX, 0, 0); },
         "parameter 3" + old_image},
        {"ImageWithLowestWidth", [] { return image_of(KivRegion(), 0, 0, INT_MIN, INT_MIN); },
         "parameter 4" + old_image},
        {"ImageWithLowestHeight", [] { return image_of(KivRegion(), 0, 0, INT_MAX, INT_MIN); },
         "parameter 5" + old_image},
        {"ImageOfEmptyRegion", [] { return image_of(KivRegion(), 0, 0, INT_MAX, INT_MAX); }, "parameter 1" + old_image},
        {"ImageOfMovedFrom", [] { return image_of(moved_from(far_reaching()), 0, 0, 1, 1); },
         "parameter 1" + old_image},
        {"ImageOfLargestSize", [] { return image_of(far_reaching(), 1, 0, INT_MAX, INT_MAX); },
         "exception" + old_image},
        {"ImageOf32BitSize", [] { return image_of(far_reaching(), 1, 0, 65536, 65536); }, "exception" + old_image},
        {"ImageOfFarReachingRuns", [] { return image_of(far_reaching(), 7, 1, 3, 3); },
         "ok; 3 x 3, element type 0\n 7 1 1\n 1 7 7\n 1 1 1"},
        {"ImageOfLargestRegion",
         [] {
             return image_of(KivRegion(INT_MAX, INT_MAX, {{0, 0, 0}}), 9, 0, 2, 1);
         },
         "ok; 2 x 1, element type 0\n 9 0"},

        {"BinaryImageOfEmptyRegion", [] { return binary_image_of(KivRegion(0, 5, {})); }, "parameter 1" + old_image},
        {"BinaryImageOfFarReachingRuns", [] { return binary_image_of(KivRegion(2, 2, far_reaching().Runs())); },
         "ok; 2 x 2, element type 0\n 255 0\n 0 255"},
        {"BinaryImageWithoutRows",
         [] {
             return binary_image_of(KivRegion(7, 0, {{0, 0, 3}}));
         },
         "ok; 7 x 0, element type 0"},
        {"BinaryImageOfLargestRegion", [] { return binary_image_of(KivRegion(INT_MAX, INT_MAX, {})); }, too_large},
        {"BinaryImageOf32BitRegion", [] { return binary_image_of(KivRegion(65536, 65536, {})); }, too_large},

        {"MatrixOfEmptyImage", [] { return matrix_of(KivImage()); }, "no image" + old_image},
        {"MatrixOfMovedFrom", [=] { return matrix_of(moved_from(image(2, 2, CV_8UC1, 1))); }, "no image" + old_image},
        {"MatrixOfTwoChannels", [=] { return matrix_of(image(1, 1, CV_8UC2, 1)); }, "channels" + old_image},
        {"MatrixOfFourChannels", [=] { return matrix_of(image(1, 1, CV_16UC4, 1)); }, "channels" + old_image},
        {"MatrixOf16Bits", [=] { return matrix_of(image(2, 1, CV_16UC1, 1)); }, "ok; 2 x 1, element type 2"},
        {"MatrixOfPaddedImage", [=] { return matrix_of(padded()); }, "ok; 3 x 2, element type 0\n 1 1 1\n 1 1 1"},

        {"ImageOfEmptyMatrix", [] { return image_of(KivMatrix()); }, "parameter 1" + old_image},
        {"ImageOfMovedFromMatrix", [] { return image_of(moved_from(KivMatrix(pixels(1, 1, CV_8UC1, 1)))); },
         "parameter 1" + old_image},
        {"ImageOfMatrixOfFourChannels", [] { return image_of(KivMatrix(pixels(1, 1, CV_16UC4, 65535))); },
         "ok; 1 x 1, element type 24\n 255 255 255 255"},
        {"ImageOfLowestInts", [] { return image_of(KivMatrix(pixels(1, 1, CV_32SC1, INT_MIN))); },
         "ok; 1 x 1, element type 0\n 0"},
        {"ImageOfLargestInts", [] { return image_of(KivMatrix(pixels(1, 1, CV_32SC1, INT_MAX))); },
         "ok; 1 x 1, element type 0\n 255"},
        {"ImageOfLowFloats", [] { return image_of(KivMatrix(pixels(1, 1, CV_32FC1, -1e30))); },
         "ok; 1 x 1, element type 0\n 0"},
    };
}
