// SPDX-License-Identifier: MIT
// Count and measure: how many parts a mask shows, how large each is, where, and which way it lies.
#include <KivRLC/KivRLC.h>
#include <KivRLC/KivRunComponents.h>

#include <iostream>

int main()
{
    cv::Mat mask(20, 40, CV_8UC1, cv::Scalar(0));
    mask(cv::Rect(2, 3, 10, 8)) = 255; // a part
    mask(cv::Rect(5, 5, 3, 3)) = 0;    // with a hole
    mask(cv::Rect(20, 6, 5, 12)) = 255;
    mask(cv::Rect(33, 2, 1, 1)) = 255; // dust

    std::vector<Run> runs;
    KivRLC::AppendRuns(mask, runs);
    const auto connectivity = KivRuns::Connectivity::Eight; // corners connect
    const KivRunSet parts = KivRuns::ComponentsByArea(KivRunSet(runs), connectivity, 10);

    int count = 0;
    for (const KivRuns::Measures& part : KivRuns::MeasureComponents(parts, connectivity)) {
        const KivRuns::Moments& moments = part.moments;
        const KivRuns::Ellipse ellipse = KivRuns::EllipseOf(moments);
        std::cout << "part of " << moments.area << " pixels about (" << moments.centroid.x << ", " << moments.centroid.y
                  << "), " << part.edgePerimeter << " pixel edges around it, holes: " << 1 - part.eulerNumber << ", "
                  << (ellipse.angle > 1 ? "upright" : "level") << '\n';
        ++count;
    }
    std::cout << count << " parts\n";
}
// Prints:
//   part of 71 pixels about (6.56338, 6.56338), 48 pixel edges around it, holes: 1, level
//   part of 60 pixels about (22, 11.5), 34 pixel edges around it, holes: 0, upright
//   2 parts
