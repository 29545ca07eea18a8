// SPDX-License-Identifier: MIT
// Set algebra on files and shapes: union, intersection, difference, complement.
#include "kivconvert/commands.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/operands.h"
#include "kivconvert/region_files.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

struct Combination {
    const char* name;
    const char* description;
    int (*combine_regions)(KivRegion& a, KivRegion& b, KivRegion* out);
    int (*combine_shapes)(KivROI& a, KivROI& b, KivROI* out);
};

constexpr Combination combinations[] = {
    {"union", "The pixels of A or B", KIVMV::KivRegionAdd, KIVMV::KivROIAdd},
    {"intersection", "The pixels of both A and B", KIVMV::KivRegionAnd, KIVMV::KivROIAnd},
    {"difference", "The pixels of A that are not in B", KIVMV::KivRegionSub, KIVMV::KivROISub},
};

struct Arguments {
    std::string a;
    std::string b;
    std::string output;
    Frame frame;
};

constexpr const char* operand_description = "run file, mask image or shape (--roi SHAPE:NUMBERS)";

CLI::App* add_command(CLI::App& app, const std::string& name, const std::string& description, Arguments& arguments)
{
    CLI::App* const command = app.add_subcommand(name, description);
    command->footer("Shapes: " + known_shapes());
    command->add_option("A", arguments.a, operand_description)->required();
    command->add_option("-o,--output", arguments.output, "run file or mask image")->required();
    add_frame_options(*command, arguments.frame);
    return command;
}

KivRegion combined(const Combination& combination, const Arguments& arguments)
{
    if (is_shape(arguments.a) && is_shape(arguments.b)) {
        KivROI a = read_shape(arguments.a, arguments.frame);
        KivROI b = read_shape(arguments.b, arguments.frame);
        KivROI result;
        expect_success(combination.combine_shapes(a, b, &result), combination.name);
        return region_of(result, arguments.frame);
    }
    Operands operands = read_operands(arguments.a, arguments.b, arguments.frame);
    KivRegion result;
    expect_success(combination.combine_regions(operands.a, operands.b, &result), combination.name);
    return result;
}

void add_combination(CLI::App& app, const Combination& combination)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = add_command(app, combination.name, combination.description, *arguments);
    command->add_option("B", arguments->b, operand_description)->required();
    command->callback([arguments, combination] {
        expect_shape_for_frame(arguments->frame, {arguments->a, arguments->b});
        KivRegion result = combined(combination, *arguments);
        write_region(arguments->output, result);
    });
}

KivRegion complement_of(const Arguments& arguments)
{
    if (is_shape(arguments.a)) {
        KivROI shape = read_shape(arguments.a, arguments.frame);
        KivROI result;
        expect_success(KIVMV::KivROINot(shape, &result), "complement");
        return region_of(result, arguments.frame);
    }
    KivRegion region = read_region(arguments.a);
    KivRegion result;
    expect_success(KIVMV::KivRegionNot(region, &result), "complement");
    return result;
}

void add_complement(CLI::App& app)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = add_command(app, "complement", "The pixels of A's frame that are not in A", *arguments);
    command->callback([arguments] {
        expect_shape_for_frame(arguments->frame, {arguments->a});
        KivRegion result = complement_of(*arguments);
        write_region(arguments->output, result);
    });
}

} // namespace

void add_set_commands(CLI::App& app)
{
    for (const Combination& combination : combinations) {
        add_combination(app, combination);
    }
    add_complement(app);
}

} // namespace kivconvert
