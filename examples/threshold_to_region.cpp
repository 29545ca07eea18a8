// SPDX-License-Identifier: MIT
// Threshold to region: the bright pixels of a grey picture become runs.
#include <KivDataConvert/KivDataConvert.h>

#include <iostream>

int main()
{
    KivImage picture(cv::Mat(6, 12, CV_8UC1, cv::Scalar(40))); // a dark ground,
    picture.Mat()(cv::Rect(2, 1, 3, 2)) = 200;                 // a bright part,
    picture.Mat()(cv::Rect(7, 2, 4, 2)) = 128;                 // and one that is just bright enough

    KivImage bright(cv::Mat(picture.Mat() >= 128)); // 255 where that holds, 0 elsewhere
    KivRegion region;
    if (KIVMV::KivImageToRegion(bright, &region) != KIVMV::KIVMV_OK) {
        return 1;
    }

    for (const Run& run : region.Runs()) { // both ends are pixels of the run
        std::cout << "row " << run.row << ": columns " << run.colBegin << " to " << run.colEnd << '\n';
    }
}
// Prints:
//   row 1: columns 2 to 4
//   row 2: columns 2 to 4
//   row 2: columns 7 to 10
//   row 3: columns 7 to 10
