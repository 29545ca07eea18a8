// SPDX-License-Identifier: MIT
// Contours: contours, edit.
#include "kivconvert/commands.h"
#include "kivconvert/contour_files.h"
#include "kivconvert/image_files.h"
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
        std::string input;
        std::string output;
        std::string picture;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* const command = app.add_subcommand("contours", "Traces the outer borders and the borders of holes");
    command->add_option("IN", options->input, "run file or mask image")->required();
    command->add_option("-o,--output", options->output, "contours, .json or .svg")->required();
    command->add_option("--image", options->picture, "picture to show below the paths of an .svg")->type_name("FILE");
    command->callback([options] {
        TracedContours traced = trace_file(options->input);
        write_contours(options->output, traced, options->picture);
    });
}

/// The mask that the contours were traced from.
KivImage filled(TracedContours& traced, const std::string& subject)
{
    if (traced.contours.Length() == 0) {
        cv::Mat nothing(traced.height, traced.width, CV_8UC1, cv::Scalar(0));
        return KivImage(nothing);
    }
    KivImage mask;
    const int code = KIVMV::KivContourArrayToBinImage(&mask, traced.contours, traced.width, traced.height);
    expect_success(code, subject);
    return mask;
}

/// Draws all contours into the image, one after the other.
KivImage edited(KivImage& image, const KivContourArray& contours, bool add, const std::string& subject)
{
    TracedContours traced = contours_of(image, subject);
    KivImage mask = filled(traced, subject);
    for (KivContour contour : contours) {
        expect_success(KIVMV::KivMergContour(mask, contour, add, &traced.contours), subject);
        mask = filled(traced, subject);
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
    command->add_option("IMAGE", options->image, "mask image")->required();
    command->add_option("CONTOURS", options->contours, "contours, .json")->required();
    command->add_option("-o,--output", options->output, "image, .png, .bmp, .pgm or .tif")->required();
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
