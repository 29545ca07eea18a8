// SPDX-License-Identifier: MIT
// The one thing that Exif data of a picture say about its pixels.
#pragma once

#include <string_view>

namespace kivconvert
{

/// How the picture is to be turned and mirrored, 1 (not at all) to 8. Data that are no Exif or do not say it give 1.
/// @param segment the data of a JPEG's first application segment
int exif_orientation(std::string_view segment);

} // namespace kivconvert
