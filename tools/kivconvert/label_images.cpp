// SPDX-License-Identifier: MIT
#include "kivconvert/label_images.h"

#include "kivconvert/errors.h"
#include "kivconvert/image_files.h"
#include "kivconvert/memory_limit.h"

#include <KivRLC/KivRunMat.h>

#include <cstdint>
#include <limits>

namespace kivconvert
{
namespace
{

/// Numbers of 32 bits are read as doubles, which hold all of them.
cv::Mat as_ints(const cv::Mat& values, const std::string& subject)
{
    cv::Mat ints;
    values.convertTo(ints, CV_32S);
    cv::Mat back;
    ints.convertTo(back, values.depth());
    cv::Mat differs;
    cv::compare(values, back, differs, cv::CMP_NE);
    double least = 0.0;
    cv::minMaxLoc(ints, &least);
    if (least < 0.0 || cv::countNonZero(differs) > 0) {
        throw InputError(subject, "has values that are no labels: those are whole numbers from 0 to 2147483647");
    }
    return ints;
}

int depth_for(std::int32_t label)
{
    return label <= std::numeric_limits<std::uint8_t>::max()    ? CV_8U
           : label <= std::numeric_limits<std::uint16_t>::max() ? CV_16U
                                                                : CV_32S;
}

template <class Pixel>
void paint_labels(const std::vector<KivRuns::LabelledSet>& sets, cv::Mat& image)
{
    for (const auto& [label, set] : sets) {
        KivRuns::Paint(set, KivRuns::ViewOf<Pixel>(image), static_cast<Pixel>(label));
    }
}

} // namespace

std::vector<KivRuns::LabelledSet> labels_of(const cv::Mat& values, const std::string& subject)
{
    const bool has_label_depth = values.depth() == CV_8U || values.depth() == CV_16U;
    return KivRuns::FromLabels(has_label_depth ? values : as_ints(values, subject));
}

cv::Mat label_image_of(const std::vector<KivRuns::LabelledSet>& sets, const Frame& frame, const std::string& subject)
{
    expect_paintable(subject, frame);
    std::int32_t greatest = 0;
    for (const KivRuns::LabelledSet& labelled : sets) {
        greatest = std::max(greatest, labelled.label);
    }
    cv::Mat image = cv::Mat::zeros(frame.height, frame.width, depth_for(greatest));
    switch (image.depth()) {
    case CV_8U:
        paint_labels<std::uint8_t>(sets, image);
        break;
    case CV_16U:
        paint_labels<std::uint16_t>(sets, image);
        break;
    default:
        paint_labels<std::int32_t>(sets, image);
    }
    return image;
}

void expect_label_image(const std::string& path)
{
    expect_image_of_depth(path, CV_16U);
}

void write_label_image(const Output& output, const cv::Mat& labels)
{
    cv::Mat as_written = labels;
    if (output.page != nullptr) {
        labels.convertTo(as_written, CV_32S);
    }
    write_image(output, KivImage(as_written));
}

} // namespace kivconvert
