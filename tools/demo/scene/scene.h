// SPDX-License-Identifier: MIT
#pragma once

#include <opencv2/core.hpp>

namespace demo::scene
{

/// A picture of machined parts on a table, as an inspection camera takes it: 1280 x 960, 8-bit grey, always the same.
cv::Mat draw();

} // namespace demo::scene
