// SPDX-License-Identifier: MIT
// Set algebra on files and shapes: union, intersection, difference, xor, complement.
#include "kivconvert/commands.h"
#include "kivconvert/conversions.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_options.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/operands.h"
#include "kivconvert/placed_pixels.h"
#include "kivconvert/region_files.h"
#include "kivconvert/set_rules.h"
#include "kivconvert/standard_streams.h"

#include <CLI/CLI.hpp>

#include <fmt/ranges.h>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

using Sets = std::vector<KivRunSet>;

template <class Combine>
KivRunSet combined_in_turn(const Sets& sets, Combine combine)
{
    return std::accumulate(std::next(sets.begin()), sets.end(), sets.front(), combine);
}

KivRunSet common_pixels(const Sets& sets)
{
    return combined_in_turn(sets, std::bit_and<>());
}

KivRunSet pixels_of_first_alone(const Sets& sets)
{
    return sets.front() - KivRunSet::Union({std::next(sets.begin()), sets.end()});
}

KivRunSet pixels_of_odd_number(const Sets& sets)
{
    return combined_in_turn(sets, std::bit_xor<>());
}

struct SetOperation {
    const char* name;
    const char* description;
    const char* example;
    KivRunSet (*combine)(const Sets& sets);
    const RuledOperation* ruled; ///< null: the library has none
};

constexpr SetOperation operations[] = {
    {"union", "The pixels of any operand", "union left.csv right.csv -o both.csv", KivRunSet::Union, &ruled_union},
    {"intersection", "The pixels of all operands", "intersection parts.png --roi circle:320,240,100 -o inside.png",
     common_pixels, &ruled_intersection},
    {"difference", "The pixels of the first operand that no other one has",
     "difference before.png after.png -o gone.png", pixels_of_first_alone, &ruled_difference},
    {"xor", "The pixels of an odd number of operands: of two, those of one only",
     "xor before.png after.png -o changed.png", pixels_of_odd_number, nullptr},
};

struct Arguments {
    std::vector<std::string> operands;
    std::string output;
    Rules rules = Rules::plain;
    Frame frame;
    ImagePart part;
};

CLI::App* add_command(CLI::App& app, const std::string& name, const std::string& description, Arguments& arguments)
{
    CLI::App* const command = app.add_subcommand(name, description);
    add_single_output(*command, arguments.output, any_region_output);
    add_frame_options(*command, arguments.frame);
    add_image_options(*command, arguments.part);
    return command;
}

void add_rules_option(CLI::App& command, Rules& rules)
{
    const auto set = [&rules](const std::string& name) { rules = name == "rois" ? Rules::rois : Rules::regions; };
    command
        .add_option_function<std::string>("--rules", set,
                                          "combine as the library combines regions, or regions of interest")
        ->type_name("regions|rois")
        ->check(CLI::IsMember({"regions", "rois"}).description(""));
}

/// The operation in words; which operand is refused, the result code says.
std::string subject_of(const char* name, const Arguments& arguments)
{
    return fmt::format("{} of {}", name, fmt::join(arguments.operands, " and "));
}

/// Images take as many bytes as they have pixels.
Content image_as_region(Content content, const std::string& text)
{
    return std::holds_alternative<KivImage>(content) ? region_of(content, text) : std::move(content);
}

void include(Frame& frame, const Frame& other)
{
    frame.width = std::max(frame.width, other.width);
    frame.height = std::max(frame.height, other.height);
}

PlacedPixels combined_plainly(const SetOperation& operation, const Arguments& arguments)
{
    std::vector<Content> contents = read_operands(arguments.operands, arguments.frame, arguments.part, image_as_region);
    Sets sets;
    Frame frame;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        PlacedPixels operand = pixels_of(contents[i], arguments.operands[i]);
        include(frame, operand.frame);
        sets.push_back(std::move(operand.pixels));
        contents[i] = KivRegion();
    }
    return {operation.combine(sets), frame};
}

KivRegion combined_by_rules(const SetOperation& operation, const Arguments& arguments)
{
    if (arguments.operands.size() > 2) {
        throw InputError("--rules", "is for two operands; the library combines no more at a time");
    }
    std::vector<Content> contents = read_operands(arguments.operands, arguments.frame, arguments.part);
    return combined(*operation.ruled, arguments.rules, {contents[0], arguments.operands[0]},
                    {contents[1], arguments.operands[1]}, subject_of(operation.name, arguments));
}

void combine_files(const SetOperation& operation, const Arguments& arguments)
{
    expect_region_output(arguments.output);
    if (arguments.rules == Rules::plain) {
        write_pixels(arguments.output, combined_plainly(operation, arguments));
        return;
    }
    KivRegion result = combined_by_rules(operation, arguments);
    write_region(arguments.output, result);
}

void add_set_operation(CLI::App& app, const SetOperation& operation)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = add_command(app, operation.name, operation.description, *arguments);
    command->footer(example_with_shapes(operation.example));
    constexpr int two_or_more = -2;
    command->add_option("IN", arguments->operands, any_content)->required()->expected(two_or_more);
    if (operation.ruled != nullptr) {
        add_rules_option(*command, arguments->rules);
    }
    command->callback([arguments, operation] {
        report_under(subject_of(operation.name, *arguments), [&] { combine_files(operation, *arguments); });
    });
}

PlacedPixels plain_complement(const std::string& input, const Arguments& arguments)
{
    PlacedPixels placed = read_pixels(input, arguments.frame, arguments.part);
    const double most_runs = static_cast<double>(placed.pixels.Runs().size()) + placed.frame.height;
    expect_affordable(input, most_runs, "runs", bytes_per_run);
    placed.pixels = placed.pixels.Complement(placed.box());
    return placed;
}

void complement_file(const std::string& input, const Arguments& arguments)
{
    expect_region_output(arguments.output);
    if (arguments.rules == Rules::plain) {
        write_pixels(arguments.output, plain_complement(input, arguments));
        return;
    }
    Content content = read_operand(input, arguments.frame, arguments.part);
    KivRegion result = complement_of(arguments.rules, {content, input});
    write_region(arguments.output, result);
}

void add_complement(CLI::App& app)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command =
        add_command(app, "complement", "The pixels of the operand's frame that are not in it", *arguments);
    command->footer(example_with_shapes("complement parts.csv -o rest.csv"));
    command->add_option("IN", arguments->operands, any_content)->required()->expected(1);
    add_rules_option(*command, arguments->rules);
    command->callback([arguments] {
        const std::string& input = arguments->operands.front();
        report_under(input, [&] { complement_file(input, *arguments); });
    });
}

} // namespace

void add_set_commands(CLI::App& app)
{
    for (const SetOperation& operation : operations) {
        add_set_operation(app, operation);
    }
    add_complement(app);
}

} // namespace kivconvert
