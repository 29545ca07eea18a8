// SPDX-License-Identifier: MIT
#include "kivconvert/contour_files.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/image_files.h"

#include <fmt/format.h>
#include <utility>

namespace kivconvert
{
namespace
{

std::string picture_below(const std::string& path, const TracedContours& traced)
{
    if (path.empty()) {
        return {};
    }
    const PngPicture picture = read_as_png(path);
    if (picture.width != traced.width || picture.height != traced.height) {
        throw FileError(path, fmt::format("has {} x {} pixels, but the contours' frame has {} x {}", picture.width,
                                          picture.height, traced.width, traced.height));
    }
    return picture.bytes;
}

} // namespace

TracedContours read_contours(const std::string& path)
{
    Content content = read_content(path);
    if (auto* const traced = std::get_if<TracedContours>(&content)) {
        return std::move(*traced);
    }
    throw FileError(path, "holds no contours");
}

KivContour contour_at(const Content& content, int index, const std::string& subject)
{
    const auto* const traced = std::get_if<TracedContours>(&content);
    if (traced == nullptr) {
        throw InputError(subject, "holds no contours");
    }
    if (index >= traced->contours.Length()) {
        throw InputError(subject, fmt::format("has {} contours, counted from 0", traced->contours.Length()));
    }
    return traced->contours[index];
}

void write_contours(const std::string& path, const TracedContours& traced, const std::string& picture)
{
    const std::string extension = extension_of(path);
    const bool svg = extension == ".svg";
    const bool geojson = extension == ".geojson";
    if (!svg && !geojson && extension != ".json") {
        throw FileError(path, "is not named like an output of contours; those end in .json, .geojson or .svg");
    }
    if (!svg && !picture.empty()) {
        throw FileError(path, "cannot hold a picture; only .svg can");
    }
    write_file(path, svg       ? contours_as_svg(traced, picture_below(picture, traced))
                     : geojson ? contours_as_geojson(traced)
                               : contours_as_json(traced));
}

} // namespace kivconvert
