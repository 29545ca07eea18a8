// SPDX-License-Identifier: MIT
#include "kivconvert/structuring_element.h"

#include "kivconvert/errors.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/numbers.h"
#include "kivconvert/placed_pixels.h"

#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunTransforms.h>

#include <CLI/CLI.hpp>

#include <cmath>
#include <fmt/format.h>

namespace kivconvert
{
namespace
{

/// 0 unless the text is a possible side.
int side_of(std::string_view text)
{
    const Parsed<int> side = parse_int(text);
    return side.error == std::errc() && side.value <= max_frame_side ? std::max(side.value, 0) : 0;
}

StructuringElement rectangle_of(const std::string& size)
{
    const auto cross = size.find('x');
    const int width = side_of(size.substr(0, cross));
    const int height = cross == size.npos ? 0 : side_of(size.substr(cross + 1));
    if (width == 0 || height == 0) {
        throw InputError("--size",
                         fmt::format("\"{}\" is not WIDTHxHEIGHT, two numbers from 1 to {}", size, max_frame_side));
    }
    return {KivRuns::Element::Rectangle(width, height), static_cast<std::size_t>(height), {width, height}};
}

StructuringElement disk_of(double radius)
{
    if (std::isnan(radius)) { // which is in every range
        throw InputError("--disk", "is not a number");
    }
    const int side = 2 * static_cast<int>(radius) + 1;
    return {KivRuns::Element::Disk(radius), static_cast<std::size_t>(side), {side, side}};
}

StructuringElement element_in(const std::string& file)
{
    const PlacedPixels placed = read_pixels(file, {}, {});
    if (placed.pixels.Empty()) {
        throw InputError(file, "has no pixels; an element has at least one");
    }
    const KivRunBox box = KivRuns::BoundingBox(placed.pixels);
    return {KivRuns::Translate(placed.pixels, -(placed.frame.width / 2), -(placed.frame.height / 2)),
            placed.pixels.Runs().size(),
            {box.colEnd - box.colBegin + 1, box.rowEnd - box.rowBegin + 1}};
}

} // namespace

void add_element_options(CLI::App& command, ElementOptions& options)
{
    CLI::Option_group* const element = command.add_option_group("element", "The structuring element, one of");
    element->add_option("--size", options.size, "a rectangle about its centre")->type_name("WIDTHxHEIGHT");
    element->add_option("--disk", options.disk, "the pixels whose centres are at most R from the origin")
        ->type_name("R")
        ->check(CLI::Range(0.0, static_cast<double>(max_frame_side)));
    element->add_option("--element", options.file, "the pixels of a file, the origin in the middle of its frame")
        ->type_name("FILE");
    element->require_option(1);
}

StructuringElement element_of(const ElementOptions& options)
{
    if (options.disk) {
        return disk_of(*options.disk);
    }
    return options.file.empty() ? rectangle_of(options.size) : element_in(options.file);
}

} // namespace kivconvert
