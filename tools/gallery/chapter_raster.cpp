// SPDX-License-Identifier: MIT
#include "demo/pictures.h"
#include "gallery/gallery.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <fmt/format.h>

namespace gallery
{
namespace
{

Drawing shown_with_values(const KivImage& image)
{
    return Drawing(image.Mat().size()).grey(image.Mat()).values(image.Mat());
}

Entry image_to_region(Stage& stage)
{
    KivImage image(stage.lens_grey.Mat().clone());
    image.Mat().setTo(0, stage.lens_mask.Mat() == 0);
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivImageToRegion(image, &region), "KivImageToRegion");
    return {"KivImageToRegion",
            "The runs of all pixels that are not 0, whatever their grey value. They are maximal and ordered by row, "
            "then by column, and both ends of a run belong to it; the image's size becomes the region's frame.",
            {{"A grey picture, 0 in the hole", "Rows of pixels with their grey values; the hole in the middle is 0.",
              shown_with_values(image)},
             {"Its region", "A bar for each run: two on each of the upper rows, one across each of the last two.",
              Drawing(lens).runs(region)}},
            counted(region.Runs().size(), "run") + "; the same as those of the mask",
            region == stage.lens};
}

Entry bin_image_to_region(Stage& stage)
{
    KivRegion region;
    kivconvert::expect_success(KIVMV::KivBinImageToRegion(stage.mask, &region), "KivBinImageToRegion");
    const bool same = cv::countNonZero(demo::mask_of(region) != stage.mask.Mat()) == 0;
    return {"KivBinImageToRegion",
            "The same of a mask, an 8-bit image of one channel. Not a pixel is lost: painted again, the region is the "
            "mask.",
            {{"A mask", part_in_white, Drawing(part).grey(stage.mask.Mat())},
             {"Its region", "The same shape made of horizontal bars, a knob on the first and last pixel of each.",
              Drawing(part).runs(region)},
             {"The whole scene's region", "A dark picture of machined parts on a table, all parts tinted amber.",
              stage.picture("region")}},
            counted(region.Runs().size(), "run") + "; painted again: equal",
            same};
}

Entry region_to_image(Stage& stage)
{
    const cv::Size larger = lens + cv::Size(3, 2);
    KivImage image;
    kivconvert::expect_success(KIVMV::KivRegionToImage(&image, stage.lens, 230, 40, larger.width, larger.height),
                               "KivRegionToImage");
    cv::Mat expected(larger, CV_8U, cv::Scalar(40));
    expected(cv::Rect({}, lens)).setTo(230, stage.lens_mask.Mat());
    return {"KivRegionToImage",
            "A new image of any size in two grey values: here 230 on 40, and three columns and two rows larger than "
            "the region's frame. Runs are clipped to the image, and what they leave is background.",
            {{"A region", "Blue bars, two on each upper row and one on each of the last two.",
              Drawing(lens).runs(stage.lens)},
             {"The image", "Light pixels of 230 where the bars were, dark ones of 40 elsewhere.",
              shown_with_values(image)}},
            fmt::format("{} × {} pixels", image.Width(), image.Height()),
            cv::countNonZero(image.Mat() != expected) == 0};
}

Entry region_to_bin_image(Stage& stage)
{
    KivImage image;
    kivconvert::expect_success(KIVMV::KivRegionToBinImage(&image, stage.part), "KivRegionToBinImage");
    return {"KivRegionToBinImage",
            "The region's mask in its own frame: 255 where the region is, 0 elsewhere.",
            {{"A region", part_in_bars, Drawing(part).runs(stage.part)},
             {"Its mask", "The same shape in white on black.", Drawing(part).grey(image.Mat())}},
            "equal to the mask that the region was made of",
            image == stage.mask};
}

Entry image_to_matrix(Stage& stage)
{
    KivImage image(stage.lens_grey.Mat().clone());
    const Drawing before = shown_with_values(image);
    KivMatrix matrix;
    kivconvert::expect_success(KIVMV::KivImageToMatrix(image, &matrix), "KivImageToMatrix");
    matrix.Mat().row(3).setTo(255);
    return {"KivImageToMatrix",
            "A matrix that shares the image's pixels: nothing is copied or converted, and what is written through one "
            "is seen through the other.",
            {{"The image", "Rows of pixels with their grey values.", before},
             {"The image, after row 3 of the matrix was set to 255",
              "The same pixels, but one row from side to side is white and reads 255.", shown_with_values(image)}},
            "one buffer for both",
            matrix.Mat().data == image.ImageData()};
}

Entry matrix_to_image(Stage& stage)
{
    KivMatrix matrix;
    stage.lens_grey.Mat().colRange(0, 12).convertTo(matrix.Mat(), CV_64F, 2.6, -140.25);
    KivImage image;
    kivconvert::expect_success(KIVMV::KivMatrixToImage(&image, matrix), "KivMatrixToImage");
    const cv::Mat clamped = cv::min(cv::max(matrix.Mat(), 0.0), 255.0);
    cv::Mat error;
    cv::subtract(clamped, image.Mat(), error, cv::noArray(), CV_64F);
    return {"KivMatrixToImage",
            "An 8-bit copy of a matrix of any element type. Values are rounded and clamped to 0 to 255, never "
            "rescaled; the image shares nothing with the matrix.",
            {{"A matrix of doubles", "Numbers in a grid, some of them below 0 and some above 255.",
              Drawing(matrix.Mat().size()).values(matrix.Mat())},
             {"The image", "Grey pixels with the rounded numbers; none is below 0 or above 255.",
              shown_with_values(image)}},
            "no value is off by more than a half, apart from the clamped ones",
            cv::norm(error, cv::NORM_INF) <= 0.5};
}

} // namespace

Chapter raster_chapter(Stage& stage)
{
    return {"images",
            "Images, regions and matrices",
            {image_to_region(stage), bin_image_to_region(stage), region_to_image(stage), region_to_bin_image(stage),
             image_to_matrix(stage), matrix_to_image(stage)}};
}

} // namespace gallery
