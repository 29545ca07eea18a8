// SPDX-License-Identifier: MIT
// Contours: contours, edit.
#include "kivconvert/commands.h"
#include "kivconvert/contour_files.h"
#include "kivconvert/conversion_command.h"
#include "kivconvert/conversions.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_files.h"
#include "kivconvert/operands.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

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
                   [options](const std::string& input, const std::string& output) {
                       Content content = read_operand(input, options->frame);
                       TracedContours traced = contours_of(content, input);
                       write_contours(output, traced, options->picture);
                   });
    command->add_option("--image", options->picture, "picture to show below the paths of an .svg")->type_name("FILE");
    add_frame_options(*command, options->frame);
}

/// Draws all contours into the image, one after the other.
KivImage edited(KivImage& image, const KivContourArray& contours, bool add, const std::string& subject)
{
    TracedContours traced = contours_of(image, subject);
    KivImage mask = mask_of(traced, subject);
    for (KivContour contour : contours) {
        expect_success(KIVMV::KivMergContour(mask, contour, add, &traced.contours), subject);
        mask = mask_of(traced, subject);
    }
    return mask;
}

struct EditOptions {
    std::string image;
    std::string contours;
    std::string output;
    bool add = false;
    bool cut = false;
};

void edit(const EditOptions& options)
{
    expect_lossless_image(options.output);
    KivImage image = read_grey_image(options.image);
    const TracedContours drawn = read_contours(options.contours);
    write_image(options.output, edited(image, drawn.contours, options.add, options.image));
}

void add_edit_command(CLI::App& app)
{
    const auto options = std::make_shared<EditOptions>();
    CLI::App* const command = app.add_subcommand("edit", "Fills contours in a mask image, or cuts them out of it");
    command->footer(example("edit mask.png scratches.json --cut -o clean.png"));
    command->add_option("IMAGE", options->image, "mask image")->required();
    command->add_option("CONTOURS", options->contours, "contours, .json or .geojson")->required();
    command->add_option("-o,--output", options->output, any_image)->required();
    CLI::Option_group* const mode = command->add_option_group("mode", "What becomes of the pixels in the contours");
    mode->add_flag("--add", options->add, "they become foreground");
    mode->add_flag("--cut", options->cut, "they become background");
    mode->require_option(1);
    command->callback([options] { edit(*options); });
}

} // namespace

void add_contour_commands(CLI::App& app)
{
    add_trace_command(app);
    add_edit_command(app);
}

} // namespace kivconvert
