// SPDX-License-Identifier: MIT
// What all JSON files have in common: one object, with a frame and arrays as members. `file` is named in error
// messages.
#pragma once

#include <KivData/KivData.h>

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace kivconvert
{

using Json = nlohmann::json;

/// @throws FileError for anything that is not one JSON object.
Json parse_json_object(std::string_view text, const std::string& file);

/// The value, if it is an integer that an int can hold.
std::optional<int> as_int(const Json& value);

/// A member that is an int of at least 0. @throws FileError
int read_size(const Json& document, const char* name, const std::string& file);

/// A member that is an array. @throws FileError
const Json& read_array(const Json& document, const char* name, const std::string& file);

/// An array of points, each an array of two numbers near the frame.
/// @throws InputError, which names the point after `subject`
KivContour::Points read_positions(const Json& values, const std::string& subject);

} // namespace kivconvert
