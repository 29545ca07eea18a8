// SPDX-License-Identifier: MIT
// Contours as JSON: an object with width, height and the contours, each with its kind and its points.
#include "kivconvert/contour_files.h"
#include "kivconvert/errors.h"
#include "kivconvert/json_formats.h"

#include <fmt/format.h>
#include <iterator>

namespace kivconvert
{
namespace
{

KivContour read_contour(const Json& value, const std::string& subject)
{
    const auto member = value.find("points"); // no member of what is not an object
    if (member == value.end() || !member->is_array() || member->empty()) {
        throw InputError(subject, "is not an object with \"points\"");
    }
    return KivContour(read_positions(*member, subject + ": \"points\""));
}

void append_contour(std::string& text, const KivContour& contour)
{
    const auto out = std::back_inserter(text);
    fmt::format_to(out, "{{\"hole\":{},\"points\":[", contour.IsHole());
    const char* separator = "";
    for (const auto& point : contour.AllPoints()) {
        fmt::format_to(out, "{}[{},{}]", separator, point.x, point.y);
        separator = ",";
    }
    text += "]}";
}

} // namespace

std::string contours_as_json(const TracedContours& traced)
{
    std::string text = fmt::format("{{\"width\":{},\"height\":{},\"contours\":[", traced.width, traced.height);
    const char* separator = "\n";
    for (const KivContour& contour : traced.contours) {
        text += separator;
        append_contour(text, contour);
        separator = ",\n";
    }
    return text + "\n]}\n";
}

TracedContours read_contours(const Json& document, const std::string& file)
{
    TracedContours traced{read_size(document, "width", file), read_size(document, "height", file), {}};
    for (const Json& value : read_array(document, "contours", file)) {
        const std::string subject = fmt::format("{}: \"contours\"[{}]", file, traced.contours.Length());
        traced.contours.Append(read_contour(value, subject));
    }
    return traced;
}

TracedContours parse_contours_json(std::string_view text, const std::string& file)
{
    return read_contours(parse_json_object(text, file), file);
}

} // namespace kivconvert
