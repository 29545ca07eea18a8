// SPDX-License-Identifier: MIT
#include "kivconvert/image_files.h"
#include "kivconvert/region_files.h"
#include "kivconvert/result_codes.h"
#include "tools/scratch_folder.h"

#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>

#include <string>
#include <vector>

namespace
{

using ImageFiles = tools_tests::ScratchFolder;
using tools_tests::complaint_of;

KivImage small_image()
{
    return KivImage((cv::Mat_<uchar>(2, 3) << 0, 1, 127, 128, 254, 255));
}

TEST_F(ImageFiles, AreReadAsTheyWereWritten)
{
    for (const char* name : {"a.png", "a.bmp", "a.pgm", "a.tif", "a.tiff", "A.PNG"}) {
        kivconvert::write_image(path(name), small_image());
        EXPECT_EQ(kivconvert::read_grey_image(path(name)), small_image()) << name;
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

TEST_F(ImageFiles, AreReadAsGreyWhenTheyAreColoured)
{
    const std::string pixels("\xff\xff\xff\x00\x00\x00", 6);
    const KivImage image = kivconvert::read_grey_image(put("a.ppm", "P6\n2 1\n255\n" + pixels));
    EXPECT_EQ(image, KivImage((cv::Mat_<uchar>(1, 2) << 255, 0)));
}

TEST_F(ImageFiles, AreReadAsGreyWhenTheyAreColouredFloats)
{
    std::vector<uchar> bytes;
    ASSERT_TRUE(cv::imencode(".hdr", cv::Mat(2, 3, CV_32FC3, cv::Scalar::all(0.5)), bytes));
    const KivImage image = kivconvert::read_grey_image(put("a.hdr", std::string(bytes.begin(), bytes.end())));
    EXPECT_EQ(image.Mat().type(), CV_32FC1);
    EXPECT_LT(cv::norm(image.Mat(), cv::Mat1f(2, 3, 0.5F), cv::NORM_INF), 1e-6);
}

TEST_F(ImageFiles, KeepTheirBitDepth)
{
    const std::string pixels("\x01\x00\x00\x07", 4);
    KivImage image = kivconvert::read_grey_image(put("a.pgm", "P5\n2 1\n65535\n" + pixels));
    EXPECT_EQ(image, KivImage((cv::Mat_<ushort>(1, 2) << 256, 7)));
    EXPECT_THROW(kivconvert::region_of(image, "a.pgm"), kivconvert::ResultError);
}

TEST_F(ImageFiles, ThatAreNoneOrDamagedAreNamed)
{
    kivconvert::write_image(path("whole.png"), small_image());
    put("text.png", "not an image");
    put("cut.png", get("whole.png").substr(0, 30));
    std::vector<uchar> jpeg;
    ASSERT_TRUE(cv::imencode(".jpg", cv::Mat(64, 64, CV_8UC1, cv::Scalar(99)), jpeg));
    const std::string bytes(jpeg.begin(), jpeg.end());
    put("whole.jpg", bytes);
    EXPECT_EQ(kivconvert::read_grey_image(path("whole.jpg")).Width(), 64);
    put("cut.jpg", bytes.substr(0, bytes.size() - 2));

    const std::string preview("\xff\xff\xe1\0\6\xff\xd8\xff\xd9", 9); // in a segment that a fill byte precedes
    put("previewed.jpg", bytes.substr(0, 2) + preview + bytes.substr(2) + "\xff\xda behind");
    EXPECT_EQ(kivconvert::read_grey_image(path("previewed.jpg")).Width(), 64);
    put("previewed_cut.jpg", bytes.substr(0, 2) + preview + bytes.substr(2, bytes.size() - 4));
    put("begun.jpg", bytes.substr(0, 2) + preview);
    for (const char* name : {"text.png", "cut.png", "cut.jpg", "previewed_cut.jpg", "begun.jpg"}) {
        EXPECT_EQ(complaint_of([&] { kivconvert::read_grey_image(path(name)); }),
                  path(name) + ": is not an image of a known format, or a damaged or too large one");
    }
}

TEST_F(ImageFiles, HoldRegions)
{
    KivRegion region(4, 3, {{0, 1, 2}, {2, 0, 3}});
    kivconvert::write_region(path("a.png"), region);
    EXPECT_EQ(kivconvert::read_region(path("a.png")), region);
    kivconvert::write_painted(path("b.png"), region, {.foreground = 9, .background = 0, .width = 2, .height = 1},
                              "runs");
    EXPECT_EQ(kivconvert::read_grey_image(path("b.png")), KivImage((cv::Mat_<uchar>(1, 2) << 0, 9)));
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
