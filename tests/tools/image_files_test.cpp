// SPDX-License-Identifier: MIT
#include "kivconvert/image_files.h"
#include "kivconvert/region_files.h"
#include "kivconvert/result_codes.h"
#include "tools/made_images.h"
#include "tools/scratch_folder.h"

#include <opencv2/core.hpp>

#include <string>
#include <vector>

namespace
{

using ImageFiles = tools_tests::ScratchFolder;
using tools_tests::complaint_of;

KivImage small_image()
{
    return KivImage(cv::Mat_<uchar>({2, 3}, {0, 1, 127, 128, 254, 255}));
}

TEST_F(ImageFiles, AreReadAsTheyWereWritten)
{
    for (const char* name : {"a.png", "a.bmp", "a.pgm", "a.tif", "a.tiff", "A.PNG"}) {
        kivconvert::write_image(path(name), small_image());
        EXPECT_EQ(kivconvert::read_image(path(name)), small_image()) << name;
    }
}

TEST_F(ImageFiles, AreWrittenInFormatsThatKeepEveryPixel)
{
    for (const char* name : {"a.jpg", "a.csv", "a"}) {
        EXPECT_EQ(complaint_of([&] { kivconvert::write_image(path(name), small_image()); }),
                  path(name) +
                      ": is not named like an image that keeps every pixel; those end in .png, .bmp, .pgm, .tif");
    }
    EXPECT_EQ(files(), 0);
}

TEST_F(ImageFiles, ThatAreNoneOrDamagedAreNamed)
{
    kivconvert::write_image(path("whole.png"), small_image());
    put("text.png", "not an image");
    put("cut.png", get("whole.png").substr(0, 30));
    EXPECT_EQ(complaint_of([&] { kivconvert::read_image(path("text.png")); }),
              path("text.png") + ": is no image of a known format; PNG, TIFF, JPEG, BMP and PNM are read");
    EXPECT_EQ(complaint_of([&] { kivconvert::read_image(path("cut.png")); }),
              path("cut.png") + ": is a damaged or cut off PNG file: its end is missing");
}

TEST_F(ImageFiles, OfJpegMayHoldPreviewsAndGoOnBehindTheirEnd)
{
    const std::string bytes = tools_tests::make_jpeg(64, 64, 1, std::string(4096, 'c'));
    const std::string preview("\xff\xff\xe1\0\6\xff\xd8\xff\xd9", 9); // in a segment that a fill byte precedes
    put("previewed.jpg", bytes.substr(0, 2) + preview + bytes.substr(2) + "\xff\xda behind");
    EXPECT_EQ(kivconvert::read_image(path("previewed.jpg")).Width(), 64);
    put("cut.jpg", bytes.substr(0, 2) + preview + bytes.substr(2, bytes.size() - 4));
    put("begun.jpg", bytes.substr(0, 2) + preview);
    for (const char* name : {"cut.jpg", "begun.jpg"}) {
        const std::string complaint = complaint_of([&] { kivconvert::read_image(path(name)); });
        EXPECT_EQ(complaint.find(path(name) + ": is a damaged or cut off JPEG file: "), 0U) << complaint;
    }
}

TEST_F(ImageFiles, HoldRegions)
{
    KivRegion region(4, 3, {{0, 1, 2}, {2, 0, 3}});
    kivconvert::write_region(path("a.png"), region);
    EXPECT_EQ(kivconvert::read_region(path("a.png")), region);
    kivconvert::write_painted(path("b.png"), region, {.foreground = 9, .background = 0, .width = 2, .height = 1},
                              "runs");
    EXPECT_EQ(kivconvert::read_image(path("b.png")), KivImage(cv::Mat_<uchar>({1, 2}, {0, 9})));
}

TEST_F(ImageFiles, HaveBoundedSizes)
{
    KivRegion region(1, 1, {{0, 0, 0}});
    const auto paint = [&](int width, int height) {
        return complaint_of(
            [&] { kivconvert::write_painted(path("a.png"), region, {.width = width, .height = height}, "runs"); });
    };
    EXPECT_EQ(paint(2147483647, 2147483647),
              path("a.png") + ": a frame of 2147483647 x 2147483647 is too large; 1048576 columns, 1048576 rows and "
                              "1073741824 pixels are the most");
    EXPECT_NE(paint(1, (1 << 20) + 1), "no complaint");
    EXPECT_EQ(files(), 0);
}

TEST_F(ImageFiles, CannotHoldAnEmptyRegion)
{
    KivRegion empty;
    EXPECT_THROW(kivconvert::write_region(path("a.png"), empty), kivconvert::ResultError);
    EXPECT_EQ(files(), 0);
}

} // namespace
