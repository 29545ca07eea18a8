// SPDX-License-Identifier: MIT
// Pictures of regions.
#pragma once

#include "demo/inspection.h"

namespace demo
{

/// Reads any picture that OpenCV reads as 8-bit grey values, by luminance.
/// @throws kivconvert::FileError, also for pictures smaller than 2 x 2 pixels
KivImage read_camera_picture(const std::string& path);

/// The pixels of a region as a new mask of the region's frame.
cv::Mat mask_of(KivRegion& region);

/// The camera's picture, darkened, with a region tinted in a colour (blue, green, red).
cv::Mat tinted(const Inspection& inspection, KivRegion& region, const cv::Scalar& colour);

/// Draws a contour on a picture in colour.
void draw_contour(cv::Mat& picture, const KivContour& contour, const cv::Scalar& colour, int thickness = 3);

/// Writes a picture as NN-name.png into the inspection's folder and remembers it for the contact sheet.
/// @returns the file
std::string add_picture(Inspection& inspection, const std::string& name, const std::string& caption,
                        const cv::Mat& pixels);

/// Writes all pictures of the inspection, small and side by side, as contact-sheet.jpg.
void write_contact_sheet(const Inspection& inspection);

} // namespace demo
