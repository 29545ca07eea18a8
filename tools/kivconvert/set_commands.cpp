// SPDX-License-Identifier: MIT
// Set algebra on files and shapes: union, intersection, difference, complement.
#include "kivconvert/commands.h"
#include "kivconvert/failure.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_options.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/operands.h"
#include "kivconvert/region_files.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/set_costs.h"

#include <CLI/CLI.hpp>

#include <KivDataConvert/KivDataConvert.h>

#include <fmt/format.h>
#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

struct Combination {
    const char* name;
    const char* description;
    const char* example;
    int (*combine_regions)(KivRegion& a, KivRegion& b, KivRegion* out);
    int (*combine_shapes)(KivROI& a, KivROI& b, KivROI* out);
    double (*most_runs)(const KivRegion& a, const KivRegion& b);
};

constexpr Combination combinations[] = {
    {"union", "The pixels of A or B", "union left.csv right.csv -o both.csv", KIVMV::KivRegionAdd, KIVMV::KivROIAdd,
     most_runs_of_union},
    {"intersection", "The pixels of both A and B", "intersection parts.png --roi circle:320,240,100 -o inside.png",
     KIVMV::KivRegionAnd, KIVMV::KivROIAnd, most_runs_of_intersection},
    {"difference", "The pixels of A that are not in B", "difference before.png after.png -o gone.png",
     KIVMV::KivRegionSub, KIVMV::KivROISub, most_runs_of_difference},
};

struct Arguments {
    std::string a;
    std::string b;
    std::string output;
    bool as_roi = false;
    Frame frame;
    ImagePart part;
};

CLI::App* add_command(CLI::App& app, const std::string& name, const std::string& description, Arguments& arguments)
{
    CLI::App* const command = app.add_subcommand(name, description);
    command->add_option("A", arguments.a, any_content)->required();
    command->add_option("-o,--output", arguments.output, "run file or mask image")->required();
    command->add_flag("--as-roi", arguments.as_roi, "by the rules of regions of interest, as between two shapes");
    add_frame_options(*command, arguments.frame);
    add_image_options(*command, arguments.part);
    return command;
}

/// The operation in words; which operand is refused, the result code says.
std::string subject_of(const char* name, const Arguments& arguments)
{
    return fmt::format("{} of {} and {}", name, arguments.a, arguments.b);
}

bool is_roi(const Content& content)
{
    return std::holds_alternative<KivROI>(content);
}

/// The result of an operation on ROIs lies in the frame of the first one, also when nothing is left of it.
KivRegion region_in(const Frame& frame, KivROI& result, const std::string& subject)
{
    KivRegion region = region_of(result, subject);
    return region.Width() > 0 ? region : KivRegion(frame.width, frame.height, {});
}

KivRegion runs_of(const KivROI& roi)
{
    return KivRegion(roi.Parameters().Width(), roi.Parameters().Height(), roi.Parameters().MaskRuns());
}

KivRegion combined_as_roi(const Combination& combination, Operands& operands, const Arguments& arguments)
{
    KivROI a = roi_of(operands.a, arguments.a);
    KivROI b = roi_of(operands.b, arguments.b);
    const std::string subject = subject_of(combination.name, arguments);
    const double most_runs = combination.most_runs(runs_of(a), runs_of(b));
    expect_affordable(subject, most_runs, "runs", bytes_per_run);
    KivROI result;
    expect_success(combination.combine_shapes(a, b, &result), subject);
    return region_in(frame_of(operands.a), result, subject);
}

KivRegion combined_as_regions(const Combination& combination, Operands& operands, const Arguments& arguments)
{
    KivRegion a = region_of(operands.a, arguments.a);
    KivRegion b = region_of(operands.b, arguments.b);
    const std::string subject = subject_of(combination.name, arguments);
    expect_affordable(subject, combination.most_runs(a, b), "runs", bytes_per_run);
    KivRegion result;
    expect_success(combination.combine_regions(a, b, &result), subject);
    return result;
}

KivRegion combined(const Combination& combination, const Arguments& arguments)
{
    Operands operands = read_operands(arguments.a, arguments.b, arguments.frame, arguments.part);
    const bool as_roi = arguments.as_roi || (is_roi(operands.a) && is_roi(operands.b));
    return as_roi ? combined_as_roi(combination, operands, arguments)
                  : combined_as_regions(combination, operands, arguments);
}

void add_combination(CLI::App& app, const Combination& combination)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = add_command(app, combination.name, combination.description, *arguments);
    command->footer(example_with_shapes(combination.example));
    command->add_option("B", arguments->b, any_content)->required();
    command->callback([arguments, combination] {
        report_under(subject_of(combination.name, *arguments), [&] {
            KivRegion result = combined(combination, *arguments);
            write_region(arguments->output, result);
        });
    });
}

KivRegion complement_of(const Arguments& arguments)
{
    Content content = read_operand(arguments.a, arguments.frame, arguments.part);
    if (auto* const region = std::get_if<KivRegion>(&content)) {
        *region = with_rows_at_frame(*region);
    }
    if (arguments.as_roi || is_roi(content)) {
        KivROI roi = roi_of(content, arguments.a);
        KivROI result;
        expect_success(KIVMV::KivROINot(roi, &result), arguments.a);
        return region_in(frame_of(content), result, arguments.a);
    }
    KivRegion region = region_of(content, arguments.a);
    KivRegion complement;
    expect_success(KIVMV::KivRegionNot(region, &complement), arguments.a);
    return complement;
}

void add_complement(CLI::App& app)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = add_command(
        app, "complement", "The pixels of A's frame that are not in A, except for its last row of runs", *arguments);
    command->footer(example_with_shapes("complement parts.csv -o rest.csv"));
    command->callback([arguments] {
        report_under(arguments->a, [&] {
            KivRegion result = complement_of(*arguments);
            write_region(arguments->output, result);
        });
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
