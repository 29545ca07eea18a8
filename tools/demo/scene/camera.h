// SPDX-License-Identifier: MIT
// What lamp, lens and sensor make of a picture.
#pragma once

#include <opencv2/core.hpp>

namespace demo::scene
{

/// Takes the picture: uneven light, vignetting, slight blur, the sensor's resolution and noise. Returns 8-bit grey.
cv::Mat take_picture(const cv::Mat1f& brightness, cv::Size resolution, cv::RNG& random);

} // namespace demo::scene
