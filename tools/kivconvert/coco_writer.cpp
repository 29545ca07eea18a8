// SPDX-License-Identifier: MIT
#include "kivconvert/coco_writer.h"

#include "kivconvert/json_reader.h"
#include "kivconvert/run_files.h"

#include <KivData/KivRunBridges.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunOutlines.h>

#include <fmt/format.h>
#include <iterator>
#include <vector>

namespace kivconvert
{
namespace
{

void append_corner(std::string& text, int x, int y)
{
    fmt::format_to(std::back_inserter(text), "{}{},{}", text.back() == '[' ? "" : ",", x, y);
}

void append_ring(std::string& text, const KivRuns::Outlines& outlines, const KivRuns::OutlineRing& ring)
{
    for (std::size_t i = ring.begin; i < ring.end; ++i) {
        append_corner(text, outlines.corners[i].x, outlines.corners[i].y);
    }
}

/// A polygon cannot have holes, but it can go to the border of a hole, around it, and back the same way: along edges of
/// pixels, so that no centre lies on the way.
void append_hole(std::string& text, const KivRuns::Outlines& outlines, const KivRuns::OutlineRing& outer,
                 const KivRuns::OutlineRing& hole)
{
    const KivRuns::PixelCorner& from = outlines.corners[outer.begin];
    const KivRuns::PixelCorner& to = outlines.corners[hole.begin];
    append_corner(text, from.x, from.y);
    append_corner(text, to.x, from.y);
    append_ring(text, outlines, hole);
    append_corner(text, to.x, to.y);
    append_corner(text, to.x, from.y);
}

std::string polygons_text(const KivRunSet& pixels)
{
    const KivRuns::Outlines outlines = KivRuns::OutlinesOf(pixels);
    std::vector<std::string> polygons(outlines.rings.size()); // of outer rings
    for (std::size_t i = 0; i < outlines.rings.size(); ++i) {
        const KivRuns::OutlineRing& ring = outlines.rings[i];
        if (ring.isHole) {
            append_hole(polygons[ring.outer], outlines, outlines.rings[ring.outer], ring);
        } else {
            polygons[i] = "[";
            append_ring(polygons[i], outlines, ring);
        }
    }
    std::string text = "[";
    for (const std::string& polygon : polygons) {
        if (!polygon.empty()) {
            text += (text.size() == 1 ? "" : ",") + polygon + "]";
        }
    }
    return text + "]";
}

std::string counts_text(const PlacedPixels& placed)
{
    std::string text = runs_as_coco(KivRuns::RegionOf(placed.pixels, placed.frame.width, placed.frame.height));
    text.pop_back(); // the end of the line
    return text;
}

std::string box_text(const KivRunSet& pixels)
{
    if (pixels.Empty()) {
        return "[0,0,0,0]";
    }
    const KivRunBox box = KivRuns::BoundingBox(pixels);
    return fmt::format("[{},{},{},{}]", box.colBegin, box.rowBegin, box.colEnd - box.colBegin + 1,
                       box.rowEnd - box.rowBegin + 1);
}

constexpr const char* json_blanks = " \t\r\n";

/// Behind a string that begins at `at`.
std::size_t string_stop(std::string_view json, std::size_t at)
{
    for (++at; json[at] != '"'; ++at) {
        at += json[at] == '\\' ? 1 : 0;
    }
    return at + 1;
}

/// Behind a value that begins at `at`.
std::size_t value_stop(std::string_view json, std::size_t at)
{
    if (json[at] == '"') {
        return string_stop(json, at);
    }
    if (json[at] != '{' && json[at] != '[') {
        return json.find_first_of(" \t\r\n,]}", at);
    }
    int depth = 0;
    do {
        at = json.find_first_of("\"{}[]", at);
        if (json[at] == '"') {
            at = string_stop(json, at);
            continue;
        }
        depth += json[at] == '{' || json[at] == '[' ? 1 : -1;
        ++at;
    } while (depth > 0);
    return at;
}

/// Replaces the value of a member of an object, or appends the member.
/// @param json valid JSON
std::string with_member(std::string json, std::string_view name, std::string_view value)
{
    std::size_t at = json.find_first_not_of(json_blanks, 1);
    const bool is_empty = json[at] == '}';
    while (json[at] == '"') {
        const std::size_t name_stop = string_stop(json, at);
        const bool found = Json::parse(json.substr(at, name_stop - at)) == name; // which may have escapes
        const std::size_t begin = json.find_first_not_of(json_blanks, json.find(':', name_stop) + 1);
        const std::size_t stop = value_stop(json, begin);
        if (found) {
            return json.replace(begin, stop - begin, value);
        }
        at = json.find_first_not_of(json_blanks, json.find_first_of(",}", stop) + 1);
        if (at == json.npos) {
            break;
        }
    }
    return json.insert(json.rfind('}'), fmt::format("{}\"{}\":{}", is_empty ? "" : ",", name, value));
}

bool is_crowd(const std::string& text)
{
    const Json annotation = Json::parse(text);
    const auto crowd = annotation.find("iscrowd");
    return crowd != annotation.end() && *crowd == 1;
}

} // namespace

std::string segmentation_text(const PlacedPixels& placed, Segmentation segmentation)
{
    return segmentation == Segmentation::polygons ? polygons_text(placed.pixels) : counts_text(placed);
}

std::string annotation_members(const PlacedPixels& placed, Segmentation segmentation, int category)
{
    return fmt::format("\"category_id\":{},\"segmentation\":{},\"area\":{},\"bbox\":{},\"iscrowd\":0}}", category,
                       segmentation_text(placed, segmentation), placed.pixels.Area(), box_text(placed.pixels));
}

std::string changed_annotation(std::string_view text, const PlacedPixels& placed, const CocoChange& change)
{
    std::string changed(text);
    const bool stays = change.segmentation == Segmentation::polygons && is_crowd(changed);
    if (change.segmentation != Segmentation::as_is && !stays) {
        changed = with_member(std::move(changed), "segmentation", segmentation_text(placed, change.segmentation));
    }
    if (change.measures) {
        changed = with_member(std::move(changed), "area", std::to_string(placed.pixels.Area()));
        changed = with_member(std::move(changed), "bbox", box_text(placed.pixels));
    }
    return changed;
}

} // namespace kivconvert
