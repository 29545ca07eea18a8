// SPDX-License-Identifier: MIT
// What stands for a shape on the command line, in the frame that is meant.
#pragma once

#include "kivconvert/contents.h"

#include <string>

namespace kivconvert
{

/// Reads a file, or a shape as text. Contents that can lie in any frame are placed in the given one.
/// @param part what is read of an image
/// @throws InputError, also if it needs a frame and has none, or has one of its own and is given another; and if parts
/// are asked for of what is no image
Content read_operand(const std::string& text, const Frame& frame, const ImagePart& part = {});

/// The two operands of a set operation. Where one of them lacks a frame, and none is given, it gets that of the other.
/// The part of an image is that of both; one of them must be an image then.
struct Operands {
    Content a;
    Content b;
};
Operands read_operands(const std::string& a, const std::string& b, const Frame& frame, const ImagePart& part = {});

} // namespace kivconvert
