// SPDX-License-Identifier: MIT
#include "kivconvert/shape_text.h"

#include "kivconvert/errors.h"
#include "kivconvert/numbers.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

constexpr std::string_view prefix = "roi:";

using Numbers = std::vector<double>;

struct ShapeKind {
    std::string_view name;
    std::string_view parameters;
    KivShape::Any (*make)(const Numbers& n);
};

KivShape::Any make_polygon(const Numbers& n)
{
    KivShape::Polygon polygon;
    for (std::size_t i = 0; i + 1 < n.size(); i += 2) {
        polygon.points.emplace_back(n[i], n[i + 1]);
    }
    return polygon;
}

/// Any number of corners. All other shapes have as many numbers as parameters.
constexpr ShapeKind polygon_kind = {"polygon", "x1,y1,x2,y2,...", make_polygon};

const ShapeKind shape_kinds[] = {
    {"rectangle", "left,top,right,bottom",
     [](const Numbers& n) -> KivShape::Any {
         return KivShape::Rectangle{n[0], n[1], n[2], n[3]};
     }},
    {"rotated-rectangle", "cx,cy,length,breadth,angle",
     [](const Numbers& n) -> KivShape::Any {
         return KivShape::RotatedRectangle{n[0], n[1], n[2], n[3], n[4]};
     }},
    {"circle", "cx,cy,radius",
     [](const Numbers& n) -> KivShape::Any {
         return KivShape::Circle{n[0], n[1], n[2]};
     }},
    {"ellipse", "cx,cy,radius1,radius2,angle",
     [](const Numbers& n) -> KivShape::Any {
         return KivShape::Ellipse{n[0], n[1], n[2], n[3], n[4]};
     }},
    {"ring", "cx,cy,inner,outer",
     [](const Numbers& n) -> KivShape::Any {
         return KivShape::Ring{n[0], n[1], n[2], n[3]};
     }},
    {"ring-sector", "cx,cy,inner,outer,start,sweep",
     [](const Numbers& n) -> KivShape::Any { return KivShape::RingSector{n[0], n[1], n[2], n[3], n[4], n[5]}; }},
    polygon_kind,
};

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (auto stop = text.find(separator); stop != text.npos; stop = text.find(separator)) {
        parts.push_back(text.substr(0, stop));
        text.remove_prefix(stop + 1);
    }
    parts.push_back(text);
    return parts;
}

const ShapeKind& kind_of(std::string_view name, const std::string& text)
{
    const auto found = std::find_if(std::begin(shape_kinds), std::end(shape_kinds),
                                    [name](const ShapeKind& kind) { return kind.name == name; });
    if (found == std::end(shape_kinds)) {
        throw InputError(text, fmt::format("\"{}\" is no shape; there are {}", name, known_shapes("  ")));
    }
    return *found;
}

Numbers parse_numbers(std::string_view list, const std::string& text)
{
    Numbers numbers;
    for (const std::string_view part : split(list, ',')) {
        const Parsed<double> number = parse_double(part);
        if (number.error != std::errc()) {
            throw InputError(text, fmt::format("\"{}\" is not a number", part));
        }
        numbers.push_back(number.value);
    }
    return numbers;
}

void expect_count(const ShapeKind& kind, std::size_t count, const std::string& text)
{
    const bool fits = kind.name == polygon_kind.name ? count % 2 == 0 : count == split(kind.parameters, ',').size();
    if (!fits) {
        throw InputError(text, fmt::format("a {} is {}, not {} numbers", kind.name, kind.parameters, count));
    }
}

} // namespace

bool is_shape(const std::string& text)
{
    return text.rfind(prefix, 0) == 0;
}

KivROI parse_shape(const std::string& text, int width, int height)
{
    const std::string_view shape = std::string_view(text).substr(prefix.size());
    const auto colon = std::min(shape.find(':'), shape.size());
    const ShapeKind& kind = kind_of(shape.substr(0, colon), text);
    const Numbers numbers = parse_numbers(shape.substr(std::min(colon + 1, shape.size())), text);
    expect_count(kind, numbers.size(), text);
    try {
        return KivROI(kind.make(numbers), width, height);
    } catch (const std::invalid_argument& error) {
        throw InputError(text, error.what());
    }
}

std::string known_shapes(std::string_view separator)
{
    std::string list;
    for (const ShapeKind& kind : shape_kinds) {
        fmt::format_to(std::back_inserter(list), "{}{}:{}", list.empty() ? "" : separator, kind.name, kind.parameters);
    }
    return list;
}

} // namespace kivconvert
