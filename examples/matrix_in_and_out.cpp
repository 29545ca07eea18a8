// SPDX-License-Identifier: MIT
// Matrix in and out: measured values become an 8-bit image, and an image's pixels are worked on as a matrix.
#include <KivDataConvert/KivDataConvert.h>

#include <iostream>

int main()
{
    KivMatrix measured(cv::Mat_<float>({1, 4}, {0.4F, 127.6F, 300.0F, -2.0F}));
    KivImage image;
    if (KIVMV::KivMatrixToImage(&image, measured) != KIVMV::KIVMV_OK) {
        return 1;
    }
    std::cout << image.Mat() << " rounded and clamped, in pixels of its own\n";

    KivMatrix pixels;
    if (KIVMV::KivImageToMatrix(image, &pixels) != KIVMV::KIVMV_OK) {
        return 1;
    }
    pixels.Mat() += 5; // clamped, too
    std::cout << image.Mat() << " changed through the matrix, which shares the image's pixels\n";
}
// Prints:
//   [  0, 128, 255,   0] rounded and clamped, in pixels of its own
//   [  5, 133, 255,   5] changed through the matrix, which shares the image's pixels
