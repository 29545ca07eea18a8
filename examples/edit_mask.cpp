// SPDX-License-Identifier: MIT
// Edit a mask by a contour: cut a drawn outline out of it.
#include "show.h"

int main()
{
    KivImage mask(cv::Mat(8, 16, CV_8UC1, cv::Scalar(0)));
    mask.Mat()(cv::Rect(1, 1, 14, 6)) = 255;
    KivContour triangle{{4.2, 2.8}, {11.9, 2.8}, {8.0, 6.6}}; // is drawn from (4, 3) to (12, 3) and (8, 7)

    const bool add = false; // true would fill the triangle instead
    KivContourArray contours;
    KivImage edited;
    if (KIVMV::KivMergContour(mask, triangle, add, &contours) != KIVMV::KIVMV_OK || // `mask` stays as it is
        KIVMV::KivContourArrayToBinImage(&edited, contours, mask.Width(), mask.Height()) != KIVMV::KIVMV_OK) {
        return 1;
    }
    show(edited);
}
// Prints:
//   ................
//   .##############.
//   .##############.
//   .###.........##.
//   .####.......###.
//   .#####.....####.
//   .######...#####.
//   ................
