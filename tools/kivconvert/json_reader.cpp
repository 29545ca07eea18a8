// SPDX-License-Identifier: MIT
#include "kivconvert/json_reader.h"

#include "kivconvert/errors.h"
#include "kivconvert/point_files.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <utility>

namespace kivconvert
{
namespace
{

Json parsed(std::string_view text, const std::string& file)
{
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {
        const auto stop = text.begin() + static_cast<std::ptrdiff_t>(std::min(error.byte, text.size()));
        const auto line_ends = std::count(text.begin(), stop, '\n');
        throw FileError(file, static_cast<std::size_t>(line_ends) + 1, "is not valid JSON from here on");
    } catch (const Json::exception&) {
        throw FileError(file, "is JSON with a number that is out of range");
    }
}

bool is_coordinate(const Json& value)
{
    return value.is_number() && std::abs(value.get<double>()) <= farthest_coordinate;
}

bool is_position(const Json& value)
{
    return value.is_array() && value.size() == 2 && is_coordinate(value[0]) && is_coordinate(value[1]);
}

} // namespace

Json parse_json_object(std::string_view text, const std::string& file)
{
    Json document = parsed(text, file);
    if (!document.is_object()) {
        throw FileError(file, "is not a JSON object");
    }
    return document;
}

std::optional<int> as_int(const Json& value)
{
    if (!value.is_number_integer()) {
        return std::nullopt;
    }
    const bool fits = value.is_number_unsigned() ? std::in_range<int>(value.get<Json::number_unsigned_t>())
                                                 : std::in_range<int>(value.get<Json::number_integer_t>());
    return fits ? std::optional(value.get<int>()) : std::nullopt;
}

int read_size(const Json& document, const char* name, const std::string& file)
{
    const auto member = document.find(name);
    const std::optional<int> value = member == document.end() ? std::nullopt : as_int(*member);
    if (!value || *value < 0) {
        throw FileError(file, fmt::format("\"{}\" is not an int of at least 0", name));
    }
    return *value;
}

const Json& read_array(const Json& document, const char* name, const std::string& file)
{
    const auto member = document.find(name);
    if (member == document.end() || !member->is_array()) {
        throw FileError(file, fmt::format("\"{}\" is not an array", name));
    }
    return *member;
}

KivContour::Points read_positions(const Json& values, const std::string& subject)
{
    KivContour::Points points;
    points.reserve(values.size());
    for (const Json& value : values) {
        if (!is_position(value)) {
            throw InputError(fmt::format("{}[{}]", subject, points.size()),
                             fmt::format("is not an array of two numbers from -{0} to {0}", farthest_coordinate));
        }
        points.emplace_back(value[0].get<double>(), value[1].get<double>());
    }
    return points;
}

} // namespace kivconvert
