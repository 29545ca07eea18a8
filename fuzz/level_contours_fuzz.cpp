// SPDX-License-Identifier: MIT
// Lines at a level enclose the pixels that are at least as bright, and no others.
//
// Input: the level in quarters, then the image as a picture.
#include "inputs.h"
#include "target.h"

#include "level_contour_laws.h"

#include <algorithm>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    constexpr int side = 20; // every pixel is asked of every line
    fuzz::FuzzedBytes input(bytes, size);
    const double level = input.byte() + input.digit() / 4.0;
    const cv::Mat picture = input.picture();
    const cv::Mat image = picture(cv::Rect(0, 0, std::min(side, picture.cols), std::min(side, picture.rows)));
    level_contour_laws::expect_bright_inside(image, level);
    return 0;
}
