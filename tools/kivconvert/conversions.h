// SPDX-License-Identifier: MIT
// From any content to regions, masks, regions of interest and contours.
//
// All of them throw ResultError if the library refuses, and InputError if the result would exceed the memory limit;
// messages begin with `subject`, the file or the shape concerned.
#pragma once

#include "kivconvert/contents.h"

#include <string>

namespace kivconvert
{

KivRegion region_of(KivImage& image, const std::string& subject);
KivRegion region_of(KivRegion& region, const std::string& subject);
KivRegion region_of(KivROI& roi, const std::string& subject);
KivRegion region_of(TracedContours& traced, const std::string& subject);
KivRegion region_of(KivPointArray& points, const std::string& subject);
KivRegion region_of(Content& content, const std::string& subject);

/// A mask: 255 where the shape is, 0 elsewhere.
KivImage mask_of(KivRegion& region, const std::string& subject);
KivImage mask_of(KivROI& roi, const std::string& subject);
KivImage mask_of(TracedContours& traced, const std::string& subject);
KivImage mask_of(Content& content, const std::string& subject);

KivROI roi_of(Content& content, const std::string& subject);

/// Points are one contour.
TracedContours contours_of(KivImage& image, const std::string& subject);
TracedContours contours_of(KivRegion& region, const std::string& subject);
TracedContours contours_of(KivROI& roi, const std::string& subject);
TracedContours contours_of(TracedContours& traced, const std::string& subject);
TracedContours contours_of(KivPointArray& points, const std::string& subject);
TracedContours contours_of(Content& content, const std::string& subject);

} // namespace kivconvert
