// SPDX-License-Identifier: MIT
// Images whose values say which object a pixel belongs to; 0 is the background.
#pragma once

#include "kivconvert/contents.h"
#include "kivconvert/output.h"

#include <KivRLC/KivRunImages.h>

#include <opencv2/core.hpp>
#include <string>
#include <vector>

namespace kivconvert
{

/// The pixels of each label of an image, in ascending order of the labels.
/// @throws InputError if a value is negative, has a fraction or is more than 2^31 - 1
std::vector<KivRuns::LabelledSet> labels_of(const cv::Mat& values, const std::string& subject);

/// An image of the given sets, each with its label; of two that share a pixel, the later one gets it. The depth is the
/// least that holds all labels: 8, 16 or 32 bits. @throws InputError if that would exceed the memory limit
cv::Mat label_image_of(const std::vector<KivRuns::LabelledSet>& sets, const Frame& frame, const std::string& subject);

/// @throws FileError unless the name is that of an image that labels are written to: .png or .tif.
void expect_label_image(const std::string& path);

/// Writes an image made by label_image_of(); a page with 32 bits, so that all pages of a file have as many.
/// @throws FileError, also if it is too deep for the format
void write_label_image(const Output& output, const cv::Mat& labels);

} // namespace kivconvert
