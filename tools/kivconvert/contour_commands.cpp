// SPDX-License-Identifier: MIT
// Contours: contours, edit.
#include "kivconvert/commands.h"
#include "kivconvert/contour_files.h"
#include "kivconvert/conversion_command.h"
#include "kivconvert/conversions.h"
#include "kivconvert/failure.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_files.h"
#include "kivconvert/image_options.h"
#include "kivconvert/operands.h"
#include "kivconvert/standard_streams.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

void add_trace_command(CLI::App& app)
{
    struct Options {
        std::string picture;
        Frame frame;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* const command = app.add_subcommand("contours", "Traces the outer borders and the borders of holes");
    command->footer(example_with_shapes("contours mask.png -o mask.svg --image photo.png"));
    add_conversion(*command, {any_content, "contours, .json, .geojson or .svg", ".json", expect_contour_output},
                   [options](const std::string& input, const std::string& output, const ImagePart& part) {
                       Content content = read_operand(input, options->frame, part);
                       TracedContours traced = contours_of(content, input);
                       write_contours(output, traced, options->picture);
                   });
    command->add_option("--image", options->picture, "picture to show below the paths of an .svg")->type_name("FILE");
    add_frame_options(*command, options->frame);
}

void fill(cv::Mat& mask, const KivContour& contour, unsigned char value)
{
    for (const Run& run : KivContourArray({contour}).FilledRuns(mask.cols, mask.rows)) {
        unsigned char* const row = mask.ptr(run.row);
        std::fill(row + run.colBegin, row + run.colEnd + 1, value);
    }
}

struct EditOptions {
    std::string image;
    std::string contours;
    std::string output;
    ImagePart part;
    bool add = false;
    bool cut = false;
};

void edit(const EditOptions& options)
{
    expect_lossless_image(options.output);
    Content content = read_operand(options.image, {}, options.part);
    KivImage mask = mask_of(content, options.image);
    for (const KivContour& contour : read_contours(options.contours).contours) {
        fill(mask.Mat(), contour, options.add ? 255 : 0);
    }
    write_image(options.output, mask);
}

void add_edit_command(CLI::App& app)
{
    const auto options = std::make_shared<EditOptions>();
    CLI::App* const command = app.add_subcommand("edit", "Fills contours in a mask image, or cuts them out of it");
    command->footer(example("edit mask.png scratches.json --cut -o clean.png"));
    command->add_option("IMAGE", options->image, "mask image")->required();
    command->add_option("CONTOURS", options->contours, "contours, .json or .geojson")->required();
    add_single_output(*command, options->output, any_image);
    CLI::Option_group* const mode = command->add_option_group("mode", "What becomes of the pixels in the contours");
    mode->add_flag("--add", options->add, "they become foreground");
    mode->add_flag("--cut", options->cut, "they become background");
    mode->require_option(1);
    add_image_options(*command, options->part);
    command->callback([options] { report_under(options->image, [&] { edit(*options); }); });
}

} // namespace

void add_contour_commands(CLI::App& app)
{
    add_trace_command(app);
    add_edit_command(app);
}

} // namespace kivconvert
