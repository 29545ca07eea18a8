// SPDX-License-Identifier: MIT
// Plain sets of pixels in a frame: what the plain operations take and give.
#pragma once

#include "kivconvert/contents.h"
#include "kivconvert/image_files.h"
#include "kivconvert/output.h"

#include <KivRLC/KivRunSet.h>

#include <string>

namespace kivconvert
{

/// Pixels, all of them in the frame.
struct PlacedPixels {
    KivRunSet pixels;
    Frame frame;

    KivRunBox box() const { return {0, frame.height - 1, 0, frame.width - 1}; }
};

/// The pixels of any content in its frame; what lies outside of it is left out. @throws as region_of()
PlacedPixels pixels_of(Content& content, const std::string& subject);

/// Reads an operand as read_operand() does. @throws InputError, ResultError
PlacedPixels read_pixels(const std::string& text, const Frame& frame, const ImagePart& part);

/// Writes a run file or a mask image, as the name says. @throws FileError, ResultError
void write_pixels(const Output& output, const PlacedPixels& placed);

} // namespace kivconvert
