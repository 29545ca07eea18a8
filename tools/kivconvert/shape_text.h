// SPDX-License-Identifier: MIT
// Shapes of regions of interest as text: "roi:circle:320,240,100".
#pragma once

#include <KivData/KivData.h>

#include <string>
#include <string_view>

namespace kivconvert
{

/// Whether the text begins with "roi:".
bool is_shape(const std::string& text);

/// The shape, in a frame. @throws InputError if the text names no shape, or if its numbers are not those of the shape
KivROI parse_shape(const std::string& text, int width, int height);

/// All shapes and their parameters, for help texts and messages.
std::string known_shapes(std::string_view separator);

} // namespace kivconvert
