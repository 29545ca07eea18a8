// SPDX-License-Identifier: MIT
// What a contestant made, in a form in which all contestants' results can be compared byte by byte.
#pragma once

#include "shape.h"

#include <KivData/KivData.h>
#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunSet.h>

#include <opencv2/core.hpp>

#include <vector>

namespace bench
{

struct Outcome {
    cv::Mat shown;     // pixels of a mask, or a list of coordinates
    double runs = 0.0; // the runs it is made of, where it is made of runs
};

/// A set of which what lies in a mask's frame can be compared.
struct InFrame {
    KivRunSet set;
    cv::Size frame;
};

/// The components of a mask, as OpenCV describes them; the background is the first one.
struct ComponentStats {
    cv::Mat labels;
    cv::Mat stats;
    cv::Mat centroids;
};

/// A mask with the runs painted by a plain loop.
cv::Mat painted(const std::vector<Run>& runs, cv::Size frame);

Outcome outcome_of(const KivRegion& region);
Outcome outcome_of(const KivROI& roi);
Outcome outcome_of(const InFrame& in_frame);
Outcome outcome_of(const ComponentStats& components);
Outcome outcome_of(const std::vector<KivRuns::ComponentSummary>& components);
Outcome outcome_of(const KivImage& image);
Outcome outcome_of(const KivMatrix& matrix);
Outcome outcome_of(const cv::Mat& matrix);
Outcome outcome_of(const KivContourArray& contours);
Outcome outcome_of(const std::vector<std::vector<cv::Point>>& chains);
Outcome outcome_of(const KivContour& contour);
Outcome outcome_of(const KivPointArray& points);
Outcome outcome_of(const std::vector<cv::Point>& pixels);
Outcome outcome_of(const std::vector<cv::Point2d>& points);
Outcome outcome_of(const Pixels& pixels);

} // namespace bench
