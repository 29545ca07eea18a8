// SPDX-License-Identifier: MIT
#include "kivconvert/contour_files.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/image_files.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/run_files.h"

#include <KivDataConvert/KivDataConvert.h>

#include <fmt/format.h>

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

TracedContours contours_of(KivImage& image, const std::string& subject)
{
    TracedContours traced{image.Width(), image.Height(), {}};
    expect_success(KIVMV::KivBinImageToContourArray(image, &traced.contours), subject);
    return traced;
}

TracedContours contours_of(KivRegion& region, const std::string& subject)
{
    TracedContours traced{region.Width(), region.Height(), {}};
    expect_success(KIVMV::KivRegionToContourArray(region, &traced.contours), subject);
    return traced;
}

TracedContours trace_file(const std::string& path)
{
    if (is_run_file(path)) {
        KivRegion region = read_runs(path);
        return contours_of(region, path);
    }
    KivImage image = read_grey_image(path);
    return contours_of(image, path);
}

TracedContours read_contours(const std::string& path)
{
    if (extension_of(path) != ".json") {
        throw FileError(path, "is not named like a file of contours; those end in .json");
    }
    return parse_contours_json(read_file(path), path);
}

void write_contours(const std::string& path, TracedContours& traced, const std::string& picture)
{
    const bool svg = extension_of(path) == ".svg";
    if (!svg && extension_of(path) != ".json") {
        throw FileError(path, "is not named like an output of contours; those end in .json or .svg");
    }
    if (!svg && !picture.empty()) {
        throw FileError(path, "cannot hold a picture; only .svg can");
    }
    write_file(path, svg ? contours_as_svg(traced, picture_below(picture, traced)) : contours_as_json(traced));
}

} // namespace kivconvert
