// SPDX-License-Identifier: MIT
// The run-length morphology of OpenCV's contributed modules.
#include "contest.h"
#include "contestants.h"

#include <opencv2/imgproc.hpp>
#include <opencv2/ximgproc/run_length_morphology.hpp>

#include <algorithm>
#include <memory>

namespace bench
{
namespace
{

namespace rl = cv::ximgproc::rl;

struct RunImage {
    cv::Mat runs;
    cv::Size frame;
};

Outcome outcome_of(const RunImage& image)
{
    cv::Mat mask = cv::Mat::zeros(image.frame, CV_8UC1);
    rl::paint(mask, image.runs, cv::Scalar(255));
    return {mask, static_cast<double>(image.runs.total())};
}

RunImage runs_of(const cv::Mat& mask)
{
    RunImage image{cv::Mat(), mask.size()};
    rl::threshold(mask, image.runs, 0, cv::THRESH_BINARY);
    return image;
}

/// A mask just large enough for the pixels.
cv::Mat mask_of(const std::vector<KivPoint>& points)
{
    cv::Size frame;
    for (const KivPoint& point : points) {
        frame.width = std::max(frame.width, static_cast<int>(point.x) + 1);
        frame.height = std::max(frame.height, static_cast<int>(point.y) + 1);
    }
    cv::Mat mask = cv::Mat::zeros(frame, CV_8UC1);
    for (const KivPoint& point : points) {
        mask.ptr(static_cast<int>(point.y))[static_cast<int>(point.x)] = 255;
    }
    return mask;
}

} // namespace
} // namespace bench

void bench::enter_opencv_runs(Workload& work)
{
    Shape& a = work.a;
    for (const char* function : {"KivImageToRegion", "KivBinImageToRegion", "KivBinImageToROI"}) {
        enter(function, work, "peer:opencv_rl", [&a] { return runs_of(a.mask); });
    }
    auto runs = std::make_shared<Lazy<RunImage>>([&a] { return runs_of(a.mask); });
    for (const char* function : {"KivRegionToImage", "KivRegionToBinImage", "KivROIToBinImage"}) {
        enter(function, work, "peer:opencv_rl", [&a, runs] {
            cv::Mat mask = cv::Mat::zeros(a.mask.size(), CV_8UC1);
            rl::paint(mask, (*runs)().runs, cv::Scalar(255));
            return mask;
        });
    }
    for (const char* function : {"KivVarArrayToRegion", "KivPointArrayToRegion"}) {
        enter(function, work, "peer:opencv_rl", [&a] { return runs_of(mask_of(a.points().Points())); });
    }
}

void bench::enter_opencv_runs_morphology(Workload& work)
{
    auto runs = std::make_shared<Lazy<RunImage>>([&a = work.a] { return runs_of(a.mask); });
    const cv::Mat square = rl::getStructuringElement(cv::MORPH_RECT, cv::Size(15, 15));
    enter("KivRuns::Dilate", work, "peer:opencv_rl", [runs, square] {
        RunImage out{cv::Mat(), (*runs)().frame};
        rl::dilate((*runs)().runs, out.runs, square);
        return out;
    });
    enter("KivRuns::Erode", work, "peer:opencv_rl", [runs, square] {
        RunImage out{cv::Mat(), (*runs)().frame};
        rl::erode((*runs)().runs, out.runs, square, false);
        return out;
    });
}
