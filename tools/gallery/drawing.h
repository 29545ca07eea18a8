// SPDX-License-Identifier: MIT
// Pictures of pixels, large enough to be counted, as SVG: sharp at any size.
#pragma once

#include <KivData/KivData.h>

#include <opencv2/core.hpp>

#include <string>
#include <vector>

namespace gallery
{

/// One picture. Everything is drawn in pixel coordinates: the integer point (x, y) is the centre of its pixel.
///
/// Styles are names from the style sheet in drawing.cpp, which every picture brings along.
class Drawing
{
public:
    /// Shows the frame (0, 0) to `frame`, or, with `view`, what lies beside it, too.
    explicit Drawing(cv::Size frame) : Drawing(frame, {{}, frame}) {}
    Drawing(cv::Size frame, cv::Rect view) : frame_(frame), view_(view) {}

    /// @name What is drawn, each over the one before, but all pixels below the grid and all marks above it.
    /// @{
    Drawing& grey(const cv::Mat& image);                         ///< an 8-bit image as it is
    Drawing& pixels(const cv::Mat& mask, const char* style);     ///< the non-zero pixels of a mask
    Drawing& pixels(const KivRegion& region, const char* style); ///< the pixels of all runs, also outside the frame
    Drawing& runs(const KivRegion& region);                      ///< a bar per run, a knob on its first and last pixel
    Drawing& border(const KivContour& contour, const char* style); ///< a closed line
    Drawing& points(const KivContour& contour);                    ///< a dot per point
    Drawing& circle(cv::Point2d centre, double radius);            ///< an ideal shape, dashed
    Drawing& values(const cv::Mat& image);                         ///< a number in each pixel
    Drawing& label(cv::Point2d point, const std::string& text, const char* style = "ink");
    /// @}

    cv::Size size() const; ///< of the picture, in units of the screen
    std::string svg() const;

private:
    cv::Size frame_;
    cv::Rect view_;
    std::string pixels_;
    std::string marks_;
};

} // namespace gallery
