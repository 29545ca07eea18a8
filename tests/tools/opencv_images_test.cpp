// SPDX-License-Identifier: MIT
// Pictures that are made for pages, as OpenCV reads them.
#include "kivconvert/image_files.h"
#include "tools/made_images.h"
#include "tools/scratch_folder.h"

#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>

#include <string>
#include <vector>

namespace
{

using PagePictures = tools_tests::ScratchFolder;

TEST_F(PagePictures, KeepColoursAndOpacity)
{
    tools_tests::MadePng image{.width = 2, .height = 1, .type = 3, .samples = std::string("\0\1", 2)};
    image.palette = {{{1, 2, 3}}, {{4, 5, 6}}};
    image.opacities = "\x40";
    const kivconvert::PngPicture picture = kivconvert::read_as_png(put("a.png", tools_tests::make_png(image)));
    EXPECT_EQ(picture.width, 2);
    EXPECT_EQ(picture.height, 1);
    const std::vector<uchar> bytes(picture.bytes.begin(), picture.bytes.end());
    const cv::Mat pixels = cv::imdecode(bytes, cv::IMREAD_UNCHANGED); // blue first
    ASSERT_EQ(pixels.type(), CV_8UC4);
    EXPECT_EQ(pixels.at<cv::Vec4b>(0), cv::Vec4b(3, 2, 1, 0x40));
    EXPECT_EQ(pixels.at<cv::Vec4b>(1), cv::Vec4b(6, 5, 4, 255));

    const std::string deep("P6 1 1 65535\n\xff\xff\x80\x80\0\0", 19);
    const std::string made = kivconvert::read_as_png(put("b.ppm", deep)).bytes;
    EXPECT_EQ(cv::imdecode(std::vector<uchar>(made.begin(), made.end()), cv::IMREAD_UNCHANGED).at<cv::Vec3b>(0),
              cv::Vec3b(0, 128, 255));
}

} // namespace
