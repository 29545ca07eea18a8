// SPDX-License-Identifier: MIT
/// @file
/// Sub-pixel contours of a grey image: the lines on which it has a given level.
#pragma once

#include <KivData/KivContour.h>
#include <KivData/KivDataExport.h>

#include <opencv2/core.hpp>

namespace KivContours
{

/// The closed lines around everything that is at least as bright as `level`, by marching squares: between a pixel that
/// is and a neighbour above, below, left or right that is not, the line passes where linear interpolation from centre
/// to centre has the level.
///
/// Outer lines run counterclockwise as seen on the screen and those around holes clockwise, so KivContour::IsHole()
/// tells them apart. The image ends at the centres of its outermost pixels, and what is bright there is closed along
/// them. Where two bright pixels meet two dark ones crosswise, the bright ones are joined if the mean of the four is at
/// least the level. Points that would follow an equal one are left out.
///
/// Lines come in the order of their uppermost, then leftmost bright pixels below a dark one or the upper end of the
/// image, and start above that pixel. Cost: one pass over the pixels, one bit each, and the points.
///
/// @param image one channel of 8- or 16-bit unsigned integers or 32-bit floats; any stride
/// @param level in grey values of the image; need not be one that a pixel can have
/// @throws std::invalid_argument if the image is of another type or has more than two dimensions, or if the level or a
/// pixel is NaN or infinite.
/// @throws std::bad_alloc if memory runs out.
KIVDATA_API KivContourArray AtLevel(const cv::Mat& image, double level);

} // namespace KivContours
