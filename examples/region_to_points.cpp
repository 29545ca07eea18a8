// SPDX-License-Identifier: MIT
// Region to points and back: every pixel becomes a point at its centre.
#include <KivDataConvert/KivDataConvert.h>

#include <iostream>

int main()
{
    KivRegion region(8, 6, {{2, 3, 5}, {4, 4, 4}}); // 8 columns, 6 rows; row 2: columns 3 to 5, row 4: column 4
    KivPointArray points;
    KivRegion back;
    if (KIVMV::KivRegionToPointArray(region, &points) != KIVMV::KIVMV_OK ||
        KIVMV::KivPointArrayToRegion(points, &back) != KIVMV::KIVMV_OK) {
        return 1;
    }

    for (const KivPoint& point : points) {
        std::cout << '(' << point.x << ", " << point.y << ")\n";
    }
    std::cout << (back.Runs() == region.Runs() ? "the same runs" : "other runs") << " in a frame of " << back.Width()
              << " x " << back.Height() << '\n'; // points know no frame: it reaches just past the last ones
}
// Prints:
//   (3, 2)
//   (4, 2)
//   (5, 2)
//   (4, 4)
//   the same runs in a frame of 6 x 5
