// SPDX-License-Identifier: MIT
// What stands for a shape on the command line, in the frame that is meant.
#pragma once

#include "kivconvert/contents.h"

#include <functional>
#include <string>
#include <vector>

namespace kivconvert
{

/// Reads a file, or a shape as text. Contents that can lie in any frame are placed in the given one.
/// @param part what is read of an image
/// @throws InputError, also if it needs a frame and has none, or has one of its own and is given another; and if parts
/// are asked for of what is no image
Content read_operand(const std::string& text, const Frame& frame, const ImagePart& part = {});

/// Makes an operand take less memory as soon as it is read; it keeps its pixels and its frame.
using Reduction = std::function<Content(Content content, const std::string& text)>;

/// The operands of a set operation. Where one of them lacks a frame, and none is given, it gets that of the first one
/// that has one. The part of an image is that of all; one of them must be an image then.
std::vector<Content> read_operands(const std::vector<std::string>& texts, const Frame& frame,
                                   const ImagePart& part = {}, const Reduction& reduce = {});

} // namespace kivconvert
