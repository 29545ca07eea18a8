// SPDX-License-Identifier: MIT
// From a shape to an image of its connected parts: components.
#include "kivconvert/commands.h"
#include "kivconvert/connectivity_option.h"
#include "kivconvert/conversion_command.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/label_images.h"
#include "kivconvert/part_sets.h"
#include "kivconvert/placed_pixels.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

struct ComponentOptions {
    KivRuns::Connectivity connectivity = default_connectivity;
    Frame frame;
};

} // namespace

void add_components_command(CLI::App& app)
{
    const auto options = std::make_shared<ComponentOptions>();
    CLI::App* const command = app.add_subcommand("components", "Numbers the connected parts of a shape in an image");
    command->footer(example_with_shapes("components mask.png -o labels.png"));
    add_conversion(*command, {any_content, any_label_image, ".png", expect_label_image, true},
                   [options](const std::string& input, const Output& output, const ImagePart& part) {
                       const PlacedPixels placed = read_pixels(input, options->frame, part);
                       write_label_image(output,
                                         label_image_of(numbered_components(placed.pixels, options->connectivity),
                                                        placed.frame, input));
                   });
    add_connectivity_option(*command, options->connectivity);
    add_frame_options(*command, options->frame);
}

} // namespace kivconvert
