// SPDX-License-Identifier: MIT
#include "kivconvert/contour_files.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/image_files.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <string_view>
#include <utility>

namespace kivconvert
{
namespace
{

constexpr std::string_view endings[] = {".json", ".geojson", ".svg"};

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

void expect_contour_output(const std::string& path)
{
    if (std::find(std::begin(endings), std::end(endings), extension_of(path)) == std::end(endings)) {
        throw FileError(path, "is not named like an output of contours; those end in .json, .geojson or .svg");
    }
}

void write_contours(const std::string& path, const TracedContours& traced, const std::string& picture)
{
    expect_contour_output(path);
    const std::string extension = extension_of(path);
    const bool svg = extension == ".svg";
    if (!svg && !picture.empty()) {
        throw FileError(path, "cannot hold a picture; only .svg can");
    }
    write_file(path, svg                       ? contours_as_svg(traced, picture_below(picture, traced))
                     : extension == ".geojson" ? contours_as_geojson(traced)
                                               : contours_as_json(traced));
}

} // namespace kivconvert
