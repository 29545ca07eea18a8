// SPDX-License-Identifier: MIT
// Count and measure: how many parts a mask shows, how large each is, and where.
#include <KivDataConvert/KivDataConvert.h>

#include <iostream>

int main()
{
    KivImage mask(cv::Mat(20, 40, CV_8UC1, cv::Scalar(0)));
    mask.Mat()(cv::Rect(2, 3, 10, 8)) = 255; // a part
    mask.Mat()(cv::Rect(5, 5, 3, 3)) = 0;    // with a hole, which counts as part of it
    mask.Mat()(cv::Rect(20, 6, 5, 12)) = 255;

    KivContourArray contours;
    if (KIVMV::KivBinImageToContourArray(mask, &contours) != KIVMV::KIVMV_OK) {
        return 1;
    }
    int holes = 0;
    for (KivContour contour : contours) {
        if (contour.IsHole()) {
            ++holes;
            continue;
        }
        KivRegion part; // its border and all that it encloses
        if (KIVMV::KivContourToRegion(contour, &part) != KIVMV::KIVMV_OK) {
            return 1;
        }
        int pixels = 0;
        double sum_x = 0.0;
        double sum_y = 0.0;
        for (const Run& run : part.Runs()) {
            const int length = run.colEnd - run.colBegin + 1;
            pixels += length;
            sum_x += length * 0.5 * (run.colBegin + run.colEnd);
            sum_y += length * 1.0 * run.row;
        }
        std::cout << "part of " << pixels << " pixels about (" << sum_x / pixels << ", " << sum_y / pixels << ")\n";
    }
    std::cout << contours.Length() - holes << " parts, " << holes << " hole\n";
}
// Prints:
//   part of 60 pixels about (22, 11.5)
//   part of 80 pixels about (6.5, 6.5)
//   2 parts, 1 hole
