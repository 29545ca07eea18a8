// SPDX-License-Identifier: MIT
#include "kivconvert/contents.h"

#include "kivconvert/coco_data_set.h"
#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/image_files.h"
#include "kivconvert/json_formats.h"
#include "kivconvert/point_files.h"
#include "kivconvert/run_files.h"
#include "kivconvert/shape_text.h"

#include <KivData/KivRunBridges.h>

#include <algorithm>
#include <iterator>

namespace kivconvert
{
namespace
{

/// Each kind of JSON file has a member that no other kind has.
struct JsonKind {
    const char* member;
    Content (*read)(const Json& document, const std::string& file);
};

constexpr JsonKind json_kinds[] = {
    {"runs", [](const Json& document, const std::string& file) -> Content { return read_runs(document, file); }},
    {"counts", [](const Json& document, const std::string& file) -> Content { return read_coco(document, file); }},
    {"contours",
     [](const Json& document, const std::string& file) -> Content { return read_contours(document, file); }},
    {"type", [](const Json& document, const std::string& file) -> Content { return read_polygons(document, file); }},
};

Content parse_json(std::string_view text, const std::string& file)
{
    const Json document = parse_json_object(text, file);
    const auto kind = std::find_if(std::begin(json_kinds), std::end(json_kinds),
                                   [&](const JsonKind& entry) { return document.contains(entry.member); });
    if (kind == std::end(json_kinds)) {
        throw FileError(file, "holds neither \"runs\" nor \"counts\" nor \"contours\" nor a \"type\" of GeoJSON");
    }
    return kind->read(document, file);
}

Content parse_csv(std::string_view text, const std::string& file)
{
    if (looks_like_points(text)) {
        return parse_points_csv(text, file);
    }
    if (looks_like_runs(text)) {
        return parse_runs_csv(text, file);
    }
    throw FileError(
        file, "holds neither runs, which begin with \"# width=\" or \"row,colBegin,colEnd\", nor points, which begin "
              "with \"x,y\"");
}

Content read_file_content(const std::string& path, const ImagePart& part)
{
    const std::string extension = extension_of(path);
    if (extension == ".csv") {
        return parse_csv(read_text(path), path);
    }
    if (is_data_set(path)) {
        const PlacedPixels chosen = CocoDataSet(path).pixels_of(part.choice);
        return KivRuns::RegionOf(chosen.pixels, chosen.frame.width, chosen.frame.height);
    }
    if (extension == ".json" || extension == ".geojson") {
        return parse_json(read_text(path), path);
    }
    return read_image(path, part);
}

struct FrameOf {
    Frame operator()(const KivImage& image) const { return {image.Width(), image.Height()}; }
    Frame operator()(const KivRegion& region) const { return {region.Width(), region.Height()}; }
    Frame operator()(const KivROI& roi) const { return {roi.Parameters().Width(), roi.Parameters().Height()}; }
    Frame operator()(const TracedContours& traced) const { return {traced.width, traced.height}; }
    Frame operator()(const KivPointArray& points) const { return extent_of(points); }
};

} // namespace

Content read_content(const std::string& text, const ImagePart& part)
{
    if (is_shape(text)) {
        return parse_shape(text, 0, 0);
    }
    Content content = read_file_content(text, part);
    const Frame frame = frame_of(content);
    expect_possible_frame(text, frame.width, frame.height);
    return content;
}

bool is_data_set(const std::string& text)
{
    return !is_shape(text) && extension_of(text) == ".json" && is_coco_data_set(text);
}

void expect_use_for_part(const std::string& text, const Content& content, const ImagePart& part)
{
    if (!std::holds_alternative<KivImage>(content)) {
        expect_no_image_part(part);
    }
    if (part.choice.is_made() && !is_data_set(text)) {
        expect_no_choice(part.choice);
    }
}

Frame extent_of(const KivPointArray& points)
{
    Frame extent;
    for (const KivPoint& point : points) {
        extent.width = std::max(extent.width, static_cast<int>(point.x) + 1);
        extent.height = std::max(extent.height, static_cast<int>(point.y) + 1);
    }
    return extent;
}

Frame frame_of(const Content& content)
{
    return std::visit(FrameOf(), content);
}

bool is_placeable(const Content& content)
{
    const auto* const region = std::get_if<KivRegion>(&content);
    return std::holds_alternative<KivROI>(content) || std::holds_alternative<TracedContours>(content) ||
           (region != nullptr && region->Width() == 0 && region->Height() == 0);
}

void place(Content& content, const Frame& frame)
{
    if (!frame.is_known()) {
        return;
    }
    if (auto* const roi = std::get_if<KivROI>(&content)) {
        *roi = KivROI(roi->Parameters().Shape(), frame.width, frame.height);
    } else if (auto* const traced = std::get_if<TracedContours>(&content)) {
        traced->width = frame.width;
        traced->height = frame.height;
    } else if (auto* const region = std::get_if<KivRegion>(&content); is_placeable(content)) {
        *region = KivRegion(frame.width, frame.height, region->Runs());
    }
}

void require_frame(const Content& content, const std::string& subject)
{
    const Frame frame = frame_of(content);
    if (is_placeable(content) && !frame.is_known()) {
        throw InputError(subject, "is in no frame; give --width and --height");
    }
    expect_possible_frame(subject, frame.width, frame.height);
}

} // namespace kivconvert
