// SPDX-License-Identifier: MIT
// What is in a file, as names and values.
#pragma once

#include "kivconvert/contents.h"
#include "kivconvert/image_files.h"

#include <nlohmann/json.hpp>

#include <string>

namespace kivconvert
{

/// The names and values, in the order in which they are printed.
using Description = nlohmann::ordered_json;

/// @param text a file or a shape @throws InputError, ResultError
Description description_of(const std::string& text, const Frame& frame, const ImagePart& part);

/// A line per value, for people.
std::string as_lines(const Description& description);

} // namespace kivconvert
