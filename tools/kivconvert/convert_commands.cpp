// SPDX-License-Identifier: MIT
// From an image or a shape to runs, and from runs or a shape to an image: region, image.
#include "kivconvert/commands.h"
#include "kivconvert/errors.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/image_files.h"
#include "kivconvert/operands.h"
#include "kivconvert/region_files.h"
#include "kivconvert/run_files.h"

#include <limits>
#include <memory>
#include <opencv2/imgproc.hpp>
#include <optional>
#include <string>

namespace kivconvert
{
namespace
{

/// Keeps the pixels of at least the given value, in the image's own bit depth.
void threshold(KivImage& image, int least)
{
    cv::threshold(image.Mat(), image.Mat(), least - 1.0, 255.0, cv::THRESH_BINARY);
}

struct RegionOptions {
    std::string input;
    std::string output;
    std::optional<int> least;
    Frame frame;
};

void expect_no_threshold(const RegionOptions& options)
{
    if (options.least) {
        throw InputError("--threshold", "is for images; a shape has no grey values");
    }
}

KivRegion region_for(const RegionOptions& options)
{
    expect_shape_for_frame(options.frame, {options.input});
    if (is_shape(options.input)) {
        expect_no_threshold(options);
        return read_operand(options.input, options.frame);
    }
    KivImage image = read_grey_image(options.input);
    threshold(image, options.least.value_or(1));
    return region_of(image, options.input);
}

void add_region_command(CLI::App& app)
{
    const auto options = std::make_shared<RegionOptions>();
    CLI::App* const command = app.add_subcommand("region", "Writes the runs of an image's foreground, or of a shape");
    command->footer("Shapes: " + known_shapes());
    command->add_option("IN", options->input, "8-bit image, colour is read as grey; or shape (--roi SHAPE:NUMBERS)")
        ->required();
    command->add_option("-o,--output", options->output, "run file, .csv or .json")->required();
    command
        ->add_option("--threshold", options->least, "foreground is what is at least N; without it, all non-zero pixels")
        ->type_name("N")
        ->check(CLI::Range(0, 255));
    add_frame_options(*command, options->frame);
    command->callback([options] { write_runs(options->output, region_for(*options)); });
}

void add_image_command(CLI::App& app)
{
    struct Options {
        std::string input;
        std::string output;
        Painting painting;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* const command = app.add_subcommand("image", "Paints runs or a shape into an image");
    command->footer("Shapes: " + known_shapes());
    command->add_option("IN", options->input, "run file, .csv or .json; or shape (--roi SHAPE:NUMBERS)")->required();
    command->add_option("-o,--output", options->output, "image, .png, .bmp, .pgm or .tif")->required();

    const auto add_number = [&](const char* name, int& value, int least, int most, const char* description) {
        command->add_option(name, value, description)->type_name("N")->check(CLI::Range(least, most));
    };
    Painting& painting = options->painting;
    const int most = std::numeric_limits<int>::max();
    add_number("--foreground", painting.foreground, 0, 255, "grey value of the runs, 255 by default");
    add_number("--background", painting.background, 0, 255, "grey value of the rest, 0 by default");
    add_number("--width", painting.width, 1, most, "columns, those of a file's frame by default");
    add_number("--height", painting.height, 1, most, "rows, those of a file's frame by default");
    command->callback([options] {
        KivRegion region = is_shape(options->input)
                               ? read_operand(options->input, {options->painting.width, options->painting.height})
                               : read_runs(options->input);
        write_painted(options->output, region, options->painting);
    });
}

} // namespace

void add_convert_commands(CLI::App& app)
{
    add_region_command(app);
    add_image_command(app);
}

} // namespace kivconvert
