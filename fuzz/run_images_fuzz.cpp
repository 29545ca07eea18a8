// SPDX-License-Identifier: MIT
// Ranges of grey values and labels of every depth are those of each pixel, and painted they are the pixels again.
//
// Input: the least and the greatest value, then the image as a picture.
#include "inputs.h"
#include "target.h"

#include "run_sets.h"

#include <KivRLC/KivRunMat.h>

#include <gtest/gtest.h>

namespace
{

void expect_labels(const cv::Mat& image)
{
    cv::Mat painted = cv::Mat::zeros(image.size(), CV_32SC1);
    KivRunSet all;
    int last = 0;
    for (const KivRuns::LabelledSet& labelled : KivRuns::FromLabels(image)) {
        EXPECT_LT(last, labelled.label);
        last = labelled.label;
        all |= labelled.set;
        KivRuns::Paint(labelled.set, KivRuns::ViewOf<std::int32_t>(painted), labelled.label);
    }
    cv::Mat labels;
    image.convertTo(labels, CV_32S);
    EXPECT_EQ(cv::norm(painted, labels, cv::NORM_INF), 0);
    EXPECT_EQ(all, run_sets::set_of(image != 0));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const double least = input.byte();
    const double greatest = input.byte();
    const cv::Mat image = input.picture();
    EXPECT_EQ(KivRuns::FromMask(image), run_sets::set_of(image));
    EXPECT_EQ(cv::norm(KivRuns::ToMask(run_sets::set_of(image), image.cols, image.rows), image != 0, cv::NORM_INF), 0);

    EXPECT_EQ(KivRuns::FromRange(image, least, greatest), run_sets::range_of<uchar>(image, least, greatest));
    cv::Mat deep;
    image.convertTo(deep, CV_16U, 257);
    EXPECT_EQ(KivRuns::FromRange(deep, 257 * least, 257 * greatest),
              run_sets::range_of<ushort>(deep, 257 * least, 257 * greatest));
    expect_labels(image);
    expect_labels(deep);
    image.convertTo(deep, CV_32F, 0.1, -3);
    EXPECT_EQ(KivRuns::FromRange(deep, least / 10 - 3, greatest / 10 - 3),
              run_sets::range_of<float>(deep, least / 10 - 3, greatest / 10 - 3));
    image.convertTo(deep, CV_32S);
    expect_labels(deep);
    return 0;
}
