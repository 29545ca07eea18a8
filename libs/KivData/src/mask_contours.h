// SPDX-License-Identifier: MIT
// The borders of a mask's foreground, and masks filled from borders: one the inverse of the other.
#pragma once

#include <KivData/KivContour.h>

#include <opencv2/core.hpp>

namespace kivdata
{

/// All outer borders and all hole borders of the mask's non-zero pixels, each a contour of its own.
KivContourArray trace_contours(const cv::Mat& mask);

/// The contours that tracing a mask of height x width pixels with the runs painted into it gives; refuses the frames of
/// which no mask can be, or can be traced.
KivContourArray trace_contours(KivRunView runs, int width, int height);

/// A new mask of height x width pixels in which the contours together are filled with 255.
cv::Mat fill_contours(const KivContourArray& contours, int width, int height);

} // namespace kivdata
