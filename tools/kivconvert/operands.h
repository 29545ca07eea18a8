// SPDX-License-Identifier: MIT
// What may stand for a region on the command line: a run file, a mask image or a shape ("roi:circle:320,240,100"). The
// place where a further kind of operand is added.
#pragma once

#include "kivconvert/shape_text.h"

#include <KivData/KivData.h>

#include <string>

namespace kivconvert
{

/// The size of a frame in pixels; 0 x 0 where none is given.
struct Frame {
    int width = 0;
    int height = 0;
};

/// A shape in the given frame. @throws InputError if no whole frame is given, or it is too large
KivROI read_shape(const std::string& text, const Frame& frame);

/// The pixels of a shape; those of the empty shape are none, in the given frame. @throws ResultError
KivRegion region_of(KivROI& roi, const Frame& frame);

/// A shape's pixels in the given frame, or what is in a file, for which the frame does not matter.
/// @throws InputError, ResultError
KivRegion read_operand(const std::string& text, const Frame& frame);

/// The two operands of a set operation, of which at least one is a file. A shape without a frame of its own gets that
/// of the other.
struct Operands {
    KivRegion a;
    KivRegion b;
};
Operands read_operands(const std::string& a, const std::string& b, const Frame& frame);

} // namespace kivconvert
