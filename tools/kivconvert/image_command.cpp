// SPDX-License-Identifier: MIT
// From whatever a shape comes as to an image: image.
#include "kivconvert/commands.h"
#include "kivconvert/conversion_command.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_files.h"
#include "kivconvert/region_files.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

/// Whether the painting is a mask of the frame.
bool is_mask(const Painting& painting, const Frame& frame)
{
    const Painting mask;
    return painting.foreground == mask.foreground && painting.background == mask.background &&
           (painting.width == mask.width || painting.width == frame.width) &&
           (painting.height == mask.height || painting.height == frame.height);
}

/// Paints into the frame of the input unless the options give another size.
void paint(const std::string& input, const Output& output, const Painting& painting, const ImagePart& part)
{
    Content content = read_content(input, part);
    expect_use_for_part(input, content, part);
    place(content, {painting.width, painting.height});
    require_frame(content, input);
    if (is_mask(painting, frame_of(content))) {
        write_image(output, mask_of(content, input));
    } else {
        KivRegion region = region_of(content, input);
        write_painted(output, region, painting, input);
    }
}

} // namespace

void add_image_command(CLI::App& app)
{
    const auto painting = std::make_shared<Painting>();
    CLI::App* const command = app.add_subcommand("image", "Paints runs, contours, points or a shape into an image");
    command->footer(example_with_shapes("image --roi ring:320,240,60,120 --width 640 --height 480 -o ring.png"));
    add_conversion(*command, {any_content, any_image, ".png", expect_lossless_image, true},
                   [painting](const std::string& input, const Output& output, const ImagePart& part) {
                       paint(input, output, *painting, part);
                   });

    const auto add_number = [&](const char* name, int& value, int least, int most, const char* description) {
        command->add_option(name, value, description)->type_name("N")->check(CLI::Range(least, most));
    };
    add_number("--foreground", painting->foreground, 0, 255, "grey value of the shape, 255 by default");
    add_number("--background", painting->background, 0, 255, "grey value of the rest, 0 by default");
    add_number("--width", painting->width, 1, max_frame_side, "columns, those of a file's frame by default");
    add_number("--height", painting->height, 1, max_frame_side, "rows, those of a file's frame by default");
}

} // namespace kivconvert
