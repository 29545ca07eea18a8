// SPDX-License-Identifier: MIT
// The pixels of a shape, or the points of a contour, one by one: points.
#include "kivconvert/commands.h"
#include "kivconvert/contour_files.h"
#include "kivconvert/conversion_command.h"
#include "kivconvert/conversions.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/operands.h"
#include "kivconvert/point_files.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/visible_pixels.h"

#include <CLI/CLI.hpp>

#include <KivDataConvert/KivDataConvert.h>

#include <memory>
#include <optional>
#include <string>

namespace kivconvert
{
namespace
{

struct PointsOptions {
    std::optional<int> contour;
    bool rounded = false;
    bool once = false;
    Frame frame;
};

std::string points_of(KivContour contour, bool rounded, const std::string& subject)
{
    if (rounded) {
        KivVarArray xs;
        KivVarArray ys;
        expect_success(KIVMV::KivContourToVarArray(contour, &xs, &ys), subject);
        return points_as_csv(xs, ys);
    }
    KivPointArray points;
    expect_success(KIVMV::KivContourToPointArray(contour, &points), subject);
    return points_as_csv(points);
}

std::string pixels_once(KivRegion& region, const std::string& subject)
{
    KivVarArray xs;
    KivVarArray ys;
    expect_success(KIVMV::KivRegionToVarArray(region, &xs, &ys), subject);
    return points_as_csv(xs, ys);
}

void list_points(const std::string& input, const std::string& output, const PointsOptions& options,
                 const ImagePart& part)
{
    if (options.contour) {
        expect_no_part(part);
        const KivContour contour = contour_at(read_content(input), *options.contour, input);
        write_point_file(output, points_of(contour, options.rounded, input));
        return;
    }
    Content content = read_operand(input, options.frame, part);
    KivRegion region = region_of(content, input);
    if (options.once) {
        expect_paintable(input, {region.Width(), region.Height()});
        expect_listable(visible_pixels(region).Runs(), input);
        write_point_file(output, pixels_once(region, input));
    } else {
        write_points(output, region, input);
    }
}

} // namespace

void add_points_command(CLI::App& app)
{
    const auto options = std::make_shared<PointsOptions>();
    CLI::App* const command = app.add_subcommand("points", "Lists the pixels, run by run, or a contour's points");
    command->footer(example_with_shapes("points parts.csv -o pixels.csv"));
    add_conversion(*command, {any_content, "points, .csv", ".csv", expect_point_file},
                   [options](const std::string& input, const std::string& output, const ImagePart& part) {
                       list_points(input, output, *options, part);
                   });
    CLI::Option* const once =
        command->add_flag("--once", options->once, "each pixel of the frame once, row by row from left to right");
    add_frame_options(*command, options->frame);
    CLI::Option* const contour =
        add_contour_option(*command, options->contour, "the points of the contour N itself, counted from 0");
    contour->excludes(once);
    command->add_flag("--rounded", options->rounded, "the contour's points rounded to pixels, halves to the even one")
        ->needs(contour);
}

} // namespace kivconvert
