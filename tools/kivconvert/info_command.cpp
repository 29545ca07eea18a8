// SPDX-License-Identifier: MIT
// What is in a file: info.
#include "kivconvert/commands.h"
#include "kivconvert/conversions.h"
#include "kivconvert/failure.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_options.h"
#include "kivconvert/operands.h"
#include "kivconvert/visible_pixels.h"

#include <KivRLC/KivRunMeasures.h>

#include <algorithm>
#include <CLI/CLI.hpp>
#include <cstddef>
#include <fmt/format.h>
#include <iterator>
#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

/// How many runs reach outside the frame or cover nothing.
std::ptrdiff_t count_outside(const KivRegion& region)
{
    return std::count_if(region.Runs().begin(), region.Runs().end(), [&region](const Run& run) {
        return run.row < 0 || run.row >= region.Height() || run.colBegin < 0 || run.colEnd >= region.Width() ||
               run.colBegin > run.colEnd;
    });
}

void append_facts(std::string& text, const KivRegion& region)
{
    const KivRunSet pixels = visible_pixels(region);
    const auto out = std::back_inserter(text);
    fmt::format_to(out, "frame      {} x {}\n", region.Width(), region.Height());
    fmt::format_to(out, "runs       {}\n", region.Runs().size());
    fmt::format_to(out, "pixels     {}\n", pixels.Area());
    if (!pixels.Empty()) {
        const KivRunBox box = KivRuns::BoundingBox(pixels);
        fmt::format_to(out, "columns    {} to {}\n", box.colBegin, box.colEnd);
        fmt::format_to(out, "rows       {} to {}\n", box.rowBegin, box.rowEnd);
    }
    if (const std::ptrdiff_t outside = count_outside(region); outside > 0) {
        fmt::format_to(out, "outside    {} runs reach outside the frame or cover nothing\n", outside);
    }
}

const char* kind_of(const Content& content)
{
    constexpr const char* kinds[] = {
        "image; the runs are those of its non-zero pixels",
        "runs",
        "shape; the runs are those of its pixels",
        "contours; the runs are those of what they enclose",
        "points; the runs are those of the pixels they fall on",
    };
    static_assert(std::size(kinds) == std::variant_size_v<Content>);
    return kinds[content.index()];
}

struct InfoOptions {
    std::string input;
    Frame frame;
    ImagePart part;
    bool all_pages = false;
};

std::string description_of(const std::string& text, const Frame& frame, const ImagePart& part)
{
    Content content = read_operand(text, frame, part);
    const KivRegion region = region_of(content, text);
    std::string description = fmt::format("kind       {}\n", kind_of(content));
    if (const auto* const traced = std::get_if<TracedContours>(&content)) {
        description += fmt::format("contours   {}\n", traced->contours.Length());
    }
    if (const auto* const points = std::get_if<KivPointArray>(&content)) {
        description += fmt::format("points     {}\n", points->Length());
    }
    append_facts(description, region);
    return description;
}

std::string description_of_pages(const InfoOptions& options)
{
    std::string description;
    ImagePart part = options.part;
    const int pages = count_pages(options.input);
    for (part.page = 1; part.page <= pages; ++part.page) {
        description += fmt::format("page       {}\n", part.page);
        description += description_of(options.input, options.frame, part);
    }
    return description;
}

std::string description_of(const InfoOptions& options)
{
    return options.all_pages ? description_of_pages(options)
                             : description_of(options.input, options.frame, options.part);
}

} // namespace

void add_info_command(CLI::App& app, Outcome& outcome)
{
    const auto options = std::make_shared<InfoOptions>();
    CLI::App* const command = app.add_subcommand("info", "Prints the frame, runs and pixels of a file or a shape");
    command->footer(example_with_shapes("info parts.csv"));
    command->add_option("FILE", options->input, any_content)->required();
    add_frame_options(*command, options->frame);
    add_image_options(*command, options->part, options->all_pages);
    command->callback(
        [options, &outcome] { report_under(options->input, [&] { outcome.out += description_of(*options); }); });
}

} // namespace kivconvert
