// SPDX-License-Identifier: MIT
// What is in a file: info.
#include "kivconvert/commands.h"
#include "kivconvert/conversions.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/operands.h"
#include "kivconvert/region_facts.h"

#include <fmt/format.h>
#include <iterator>
#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

void print_region(const KivRegion& region)
{
    const RegionFacts facts = facts_of(region);
    fmt::print("frame      {} x {}\n", region.Width(), region.Height());
    fmt::print("runs       {}\n", facts.runs);
    fmt::print("pixels     {}\n", facts.pixels);
    if (facts.pixels > 0) {
        fmt::print("columns    {} to {}\n", facts.columns.first, facts.columns.last);
        fmt::print("rows       {} to {}\n", facts.rows.first, facts.rows.last);
    }
    if (facts.outside > 0) {
        fmt::print("outside    {} runs reach outside the frame or cover nothing\n", facts.outside);
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

void print_content(const std::string& text, const Frame& frame)
{
    Content content = read_operand(text, frame);
    const KivRegion region = region_of(content, text);
    fmt::print("kind       {}\n", kind_of(content));
    if (const auto* const traced = std::get_if<TracedContours>(&content)) {
        fmt::print("contours   {}\n", traced->contours.Length());
    }
    if (const auto* const points = std::get_if<KivPointArray>(&content)) {
        fmt::print("points     {}\n", points->Length());
    }
    print_region(region);
}

} // namespace

void add_info_command(CLI::App& app)
{
    struct Options {
        std::string input;
        Frame frame;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* const command = app.add_subcommand("info", "Tells the frame, runs and pixels of a file or a shape");
    command->footer(example_with_shapes("info parts.csv"));
    command->add_option("FILE", options->input, any_content)->required();
    add_frame_options(*command, options->frame);
    command->callback([options] { print_content(options->input, options->frame); });
}

} // namespace kivconvert
