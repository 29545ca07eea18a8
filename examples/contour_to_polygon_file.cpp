// SPDX-License-Identifier: MIT
// Contour to polygon file: the outlines of a shape as SVG, which browsers and drawing programs open.
//
//   contour_to_polygon_file > outline.svg
#include <KivDataConvert/KivDataConvert.h>

#include <iostream>

int main()
{
    KivROI shape = KivROI::Ring(5, 5, 1, 3, 11, 11); // centre, radii, frame
    KivContourArray contours;
    if (KIVMV::KivROIToContourArray(shape, &contours) != KIVMV::KIVMV_OK) {
        return 1;
    }

    // (0, 0) is the centre of the first pixel, so the picture begins half a pixel before it.
    std::cout << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"-0.5 -0.5 11 11\">\n";
    for (const KivContour& contour : contours) {
        std::cout << "<polygon fill=\"" << (contour.IsHole() ? "white" : "black") << "\" points=\"";
        const char* separator = "";
        for (const cv::Point2d& point : contour.AllPoints()) {
            std::cout << separator << point.x << ',' << point.y;
            separator = " ";
        }
        std::cout << "\"/>\n";
    }
    std::cout << "</svg>\n";
}
// Prints:
//   <svg xmlns="http://www.w3.org/2000/svg" viewBox="-0.5 -0.5 11 11">
//   <polygon fill="black" points="5,2 4,3 3,3 3,4 2,5 3,6 3,7 4,7 5,8 6,7 7,7 7,6 8,5 7,4 7,3 6,3"/>
//   <polygon fill="white" points="4,5 5,4 6,5 5,6"/>
//   </svg>
