// SPDX-License-Identifier: MIT
// From grey values to foreground. This is OpenCV's work, not the library's: the light is flattened by dividing by the
// background, Otsu's method chooses the threshold, and specks are removed.
#include "demo/pictures.h"
#include "demo/steps.h"
#include "kivconvert/region_files.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <opencv2/imgproc.hpp>

namespace demo
{
namespace
{

/// The picture without anything bright that is narrower than a third of it, very smooth.
cv::Mat background_of(const cv::Mat& grey)
{
    const double shrink = std::min(1.0, 160.0 / std::max(grey.cols, grey.rows));
    cv::Mat small;
    cv::resize(grey, small, {}, shrink, shrink, cv::INTER_AREA);
    const int reach = std::max(1, std::min(small.cols, small.rows) / 3) | 1;
    const cv::Mat kernel = cv::getStructuringElement(cv::MORPH_ELLIPSE, {reach, reach});
    cv::morphologyEx(small, small, cv::MORPH_OPEN, kernel);
    cv::GaussianBlur(small, small, {}, 0.5 * reach);
    cv::Mat background;
    cv::resize(small, background, grey.size(), 0.0, 0.0, cv::INTER_LINEAR);
    return background;
}

// Light multiplies, so the picture is compared with its background on a logarithmic scale: `steps_per_doubling` grey
// values for twice the brightness, and `level` where both are equal.
constexpr double steps_per_doubling = 48.0;
constexpr double level = 64.0;

cv::Mat logarithm_of(const cv::Mat& grey)
{
    cv::Mat logarithm;
    grey.convertTo(logarithm, CV_32F, 1.0, 1.0);
    cv::log(logarithm, logarithm);
    return logarithm;
}

cv::Mat flattened(const cv::Mat& grey)
{
    cv::Mat flat;
    cv::subtract(logarithm_of(grey), logarithm_of(background_of(grey)), flat);
    flat.convertTo(flat, CV_8U, steps_per_doubling / std::log(2.0), level);
    return flat;
}

void remove_specks(cv::Mat& mask)
{
    const cv::Mat kernel = cv::getStructuringElement(cv::MORPH_ELLIPSE, {5, 5});
    cv::morphologyEx(mask, mask, cv::MORPH_CLOSE, kernel);
    cv::morphologyEx(mask, mask, cv::MORPH_OPEN, kernel);
}

} // namespace

Report find_parts(Inspection& inspection)
{
    Report report;
    cv::Mat mask;
    double threshold = 0.0;
    report.milliseconds = time_of([&] {
        cv::Mat smooth;
        cv::medianBlur(flattened(inspection.camera.Mat()), smooth, 5);
        threshold = cv::threshold(smooth, mask, 0.0, 255.0, cv::THRESH_BINARY | cv::THRESH_OTSU);
        remove_specks(mask);
    });
    inspection.mask = KivImage(mask);
    report.region = kivconvert::region_of(inspection.mask, "mask");
    report.remark = fmt::format("Otsu's threshold: {:.2f} times the background",
                                std::exp2((threshold - level) / steps_per_doubling));
    inspection.camera_file = add_picture(inspection, "camera", "camera", inspection.camera.Mat());
    add_picture(inspection, "threshold", "foreground", mask);
    return report;
}

} // namespace demo
