// SPDX-License-Identifier: MIT
#pragma once

#include <opencv2/core.hpp>

namespace kiv
{

/// An 8-bit copy of a matrix of reals: rounded to the nearest, ties to even, then clamped to 0 to 255. NaN gives 0, and
/// so does what no int can hold.
cv::Mat rounded_bytes(const cv::Mat& reals);

/// The copy that cv::Mat::convertTo() makes.
cv::Mat converted_bytes(const cv::Mat& matrix);

/// Whether cv::Mat::convertTo() gives the same for reals on this machine. It does where it is made of the machine's own
/// rounding to int; on arm64 it takes ties away from zero.
bool opencv_rounds_alike();

} // namespace kiv
