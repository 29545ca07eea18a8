// SPDX-License-Identifier: MIT
// Shared by the steps of the demo: the picture, the results so far, and the reports.
#pragma once

#include "kivconvert/contour_files.h"

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <chrono>
#include <string>
#include <vector>

namespace demo
{

/// A picture for people, written by the steps and shown again on the contact sheet.
struct Picture {
    std::string name;
    std::string file;
    std::string caption;
    cv::Mat pixels;
};

struct Inspection {
    std::string folder;                  ///< where pictures are written
    KivImage camera;                     ///< as it was taken, 8-bit grey
    std::string camera_file;             ///< the same as a file
    KivImage mask;                       ///< 255 where the parts are, 0 elsewhere
    KivRegion parts;                     ///< the same as a region
    KivRegion filled;                    ///< the parts without their holes
    KivRegion holes;                     ///< the holes alone
    KivRegion selected;                  ///< the parts inside of the ring; later, without the star
    kivconvert::TracedContours outlines; ///< of what is selected
    std::vector<Picture> pictures;
};

/// One line of the table.
struct Report {
    KivRegion region;          ///< whose pixels and runs are told
    double milliseconds = 0.0; ///< of the work itself, without checks and pictures
    bool passed = true;
    std::string remark;
};

struct Step {
    const char* name;
    Report (*run)(Inspection& inspection);
};

/// The time that some work takes, in milliseconds.
template <class Work>
double time_of(Work work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

} // namespace demo
