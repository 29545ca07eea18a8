// SPDX-License-Identifier: MIT
// How parts and table look under the lamp.
#pragma once

#include "demo/scene/part.h"

#include <opencv2/core.hpp>

namespace demo::scene
{

/// Gaussian noise of mean 0 and deviation 1, smoothed to the given grain (in oversampled pixels) and scaled back to 1.
cv::Mat1f smooth_noise(cv::Size size, cv::Size2d grain, cv::RNG& random);

/// A dark, slightly fibrous mat with dust on it. Brightness: 0 black, 1 white.
cv::Mat1f table_surface(cv::Size size, cv::RNG& random);

/// Lays a part on the picture: its shadow first, then its lit surface.
void lay_down(const Part& part, cv::Mat1f& picture, cv::RNG& random);

} // namespace demo::scene
