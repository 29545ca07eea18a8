// SPDX-License-Identifier: MIT
// Contours as GeoJSON: a polygon for each outer border, with the borders of its holes as its inner rings. Positions are
// pixels; the frame stands beside the features.
//
// A ring repeats its first position at the end, has at least four of them, and goes round the other way than a traced
// border: GeoJSON takes y for pointing up.
#include "kivconvert/errors.h"
#include "kivconvert/json_formats.h"
#include "kivconvert/outlines.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <utility>

namespace kivconvert
{
namespace
{

constexpr std::size_t shortest_ring = 4;

void turn_round(KivContour::Points& points)
{
    std::reverse(points.begin() + 1, points.end());
}

KivContour::Points ring_of(const KivContour& border)
{
    KivContour::Points ring = border.AllPoints();
    turn_round(ring);
    do {
        ring.push_back(ring.front());
    } while (ring.size() < shortest_ring);
    return ring;
}

void append_ring(std::string& text, const KivContour& border)
{
    const char* separator = "[";
    for (const auto& point : ring_of(border)) {
        fmt::format_to(std::back_inserter(text), "{}[{},{}]", separator, point.x, point.y);
        separator = ",";
    }
    text += "]";
}

void append_feature(std::string& text, const Outline& outline)
{
    text += R"({"type":"Feature","properties":{},"geometry":{"type":"Polygon","coordinates":[)";
    append_ring(text, *outline.outer);
    for (const KivContour* hole : outline.holes) {
        text += ",";
        append_ring(text, *hole);
    }
    text += "]}}";
}

/// The border that is the ring, as tracing gives it: outer borders one way round, holes the other.
KivContour border_of(const Json& ring, bool hole, const std::string& subject)
{
    if (!ring.is_array() || ring.empty()) {
        throw InputError(subject, "is not a ring, an array of positions");
    }
    KivContour::Points points = read_positions(ring, subject);
    if (points.front() != points.back()) {
        throw InputError(subject, "is not closed; its last position must be its first");
    }
    while (points.size() > 1 && points.back() == points.front()) {
        points.pop_back();
    }
    turn_round(points);
    KivContour border(points);
    if (border.IsHole() != hole) {
        turn_round(points);
        border = KivContour(points);
    }
    return border;
}

void read_polygon(const Json& rings, const std::string& subject, TracedContours& read)
{
    if (!rings.is_array()) {
        throw InputError(subject, "is not an array of rings");
    }
    const int outer = read.contours.Length();
    for (std::size_t i = 0; i < rings.size(); ++i) {
        read.contours.Append(border_of(rings[i], i > 0, fmt::format("{}[{}]", subject, i)));
        read.outers.push_back(outer);
    }
}

/// Of what is no object, or has no type, it is empty.
std::string type_of(const Json& value)
{
    const auto member = value.find("type"); // no member of what is not an object
    return member != value.end() && member->is_string() ? member->get<std::string>() : std::string();
}

void read_geometry(const Json& geometry, const std::string& subject, TracedContours& read)
{
    const std::string type = type_of(geometry);
    if (type != "Polygon" && type != "MultiPolygon") {
        throw InputError(subject, "is neither a Polygon nor a MultiPolygon");
    }
    const Json& coordinates = read_array(geometry, "coordinates", subject);
    const std::string name = subject + ": \"coordinates\"";
    if (type == "Polygon") {
        read_polygon(coordinates, name, read);
        return;
    }
    for (std::size_t i = 0; i < coordinates.size(); ++i) {
        read_polygon(coordinates[i], fmt::format("{}[{}]", name, i), read);
    }
}

void read_feature(const Json& value, const std::string& subject, TracedContours& read)
{
    if (type_of(value) != "Feature") {
        read_geometry(value, subject, read);
        return;
    }
    const auto geometry = value.find("geometry");
    if (geometry != value.end() && !geometry->is_null()) { // a feature may be nowhere
        read_geometry(*geometry, subject, read);
    }
}

/// The frame is no member of GeoJSON proper.
int read_optional_size(const Json& document, const char* name, const std::string& file)
{
    return document.contains(name) ? read_size(document, name, file) : 0;
}

} // namespace

std::string contours_as_geojson(const TracedContours& traced)
{
    std::string text = fmt::format("{{\"type\":\"FeatureCollection\",\"width\":{},\"height\":{},\"features\":[",
                                   traced.width, traced.height);
    const char* separator = "\n";
    for (const Outline& outline : outlines_of(traced)) {
        text += separator;
        append_feature(text, outline);
        separator = ",\n";
    }
    return text + "\n]}\n";
}

TracedContours read_polygons(const Json& document, const std::string& file)
{
    TracedContours read{read_optional_size(document, "width", file), read_optional_size(document, "height", file), {}};
    if (type_of(document) != "FeatureCollection") {
        read_feature(document, file, read);
        return read;
    }
    const Json& features = read_array(document, "features", file);
    for (std::size_t i = 0; i < features.size(); ++i) {
        read_feature(features[i], fmt::format("{}: \"features\"[{}]", file, i), read);
    }
    return read;
}

TracedContours parse_contours_geojson(std::string_view text, const std::string& file)
{
    return read_polygons(parse_json_object(text, file), file);
}

} // namespace kivconvert
