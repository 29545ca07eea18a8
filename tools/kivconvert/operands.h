// SPDX-License-Identifier: MIT
// What stands for a shape on the command line, in the frame that is meant.
#pragma once

#include "kivconvert/contents.h"

#include <string>

namespace kivconvert
{

/// A file or a shape in words; what can lie in any frame lies in the given one.
/// @throws InputError, also if it needs a frame and has none, or has one of its own and is given another
Content read_operand(const std::string& text, const Frame& frame);

/// The two operands of a set operation. Where one of them lacks a frame, and none is given, it gets that of the other.
struct Operands {
    Content a;
    Content b;
};
Operands read_operands(const std::string& a, const std::string& b, const Frame& frame);

} // namespace kivconvert
