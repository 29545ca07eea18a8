// SPDX-License-Identifier: MIT
// Shapes made larger, smaller, smoother, whole: dilate, erode, open, close, fill.
#include "kivconvert/commands.h"
#include "kivconvert/connectivity_option.h"
#include "kivconvert/conversion_command.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/placed_pixels.h"
#include "kivconvert/region_files.h"
#include "kivconvert/structuring_element.h"

#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunTransforms.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace kivconvert
{
namespace
{

struct MorphologyOperation {
    const char* name;
    const char* description;
    const char* example;
    KivRunSet (*apply)(const KivRunSet& set, const KivRuns::Element& element);
    bool grows; ///< whether a set larger than the operand is made on the way
};

constexpr MorphologyOperation morphology_operations[] = {
    {"dilate", "The pixels that the element covers when its origin is put on each pixel",
     "dilate mask.png --disk 3 -o larger.png", KivRuns::Dilate, true},
    {"erode", "The places where the element fits in", "erode mask.png --size 3x3 -o smaller.png", KivRuns::Erode,
     false},
    {"open", "The pixels that the element covers where it fits in", "open mask.png --disk 2.5 -o clean.png",
     KivRuns::Open, true},
    {"close", "The pixels that the element cannot reach from outside", "close mask.png --size 5x5 -o closed.png",
     KivRuns::Close, true},
};

/// A dilation has no more runs than the pairs of runs that it is made of, nor than fit in.
double most_runs_of_dilation(const PlacedPixels& placed, const StructuringElement& element)
{
    const double pairs = static_cast<double>(placed.pixels.Runs().size()) * static_cast<double>(element.runs);
    const double rows = static_cast<double>(placed.frame.height) + element.extent.height;
    const double columns = static_cast<double>(placed.frame.width) + element.extent.width;
    return std::min(pairs, rows * columns / 2);
}

/// Makes other pixels of those of a frame.
using PixelOperation = std::function<KivRunSet(const PlacedPixels& placed, const std::string& subject)>;

/// A conversion to a run file or a mask image of the input's frame.
CLI::App* add_pixel_operation(CLI::App& app, const char* name, const char* description, const char* example_arguments,
                              const PixelOperation& operation)
{
    const auto frame = std::make_shared<Frame>();
    CLI::App* const command = app.add_subcommand(name, description);
    command->footer(example_with_shapes(example_arguments));
    add_conversion(*command, {any_content, any_region_output, ".png", expect_region_output, true},
                   [frame, operation](const std::string& input, const Output& output, const ImagePart& part) {
                       const PlacedPixels placed = read_pixels(input, *frame, part);
                       const KivRunSet result = operation(placed, input);
                       write_pixels(output, {KivRuns::Crop(result, placed.box()), placed.frame});
                   });
    add_frame_options(*command, *frame);
    return command;
}

/// The element of the options, made once for all files.
class PreparedElement
{
public:
    const StructuringElement& of(const ElementOptions& options)
    {
        const std::lock_guard lock(making_);
        if (!element_) {
            element_ = element_of(options);
        }
        return *element_;
    }

private:
    std::mutex making_;
    std::optional<StructuringElement> element_;
};

void add_morphology_operation(CLI::App& app, const MorphologyOperation& operation)
{
    const auto options = std::make_shared<ElementOptions>();
    const auto prepared = std::make_shared<PreparedElement>();
    const auto apply = [options, prepared, operation](const PlacedPixels& placed, const std::string& subject) {
        const StructuringElement& element = prepared->of(*options);
        if (operation.grows) {
            expect_affordable(subject, most_runs_of_dilation(placed, element), "runs", bytes_per_run);
        }
        return operation.apply(placed.pixels, element.element);
    };
    add_element_options(*add_pixel_operation(app, operation.name, operation.description, operation.example, apply),
                        *options);
}

void add_fill_command(CLI::App& app)
{
    const auto connectivity = std::make_shared<KivRuns::Connectivity>(default_connectivity);
    CLI::App* const command = add_pixel_operation(app, "fill", "Fills the holes", "fill mask.png -o filled.png",
                                                  [connectivity](const PlacedPixels& placed, const std::string&) {
                                                      return KivRuns::FillHoles(placed.pixels, *connectivity);
                                                  });
    add_connectivity_option(*command, *connectivity);
}

} // namespace

void add_morphology_commands(CLI::App& app)
{
    for (const MorphologyOperation& operation : morphology_operations) {
        add_morphology_operation(app, operation);
    }
    add_fill_command(app);
}

} // namespace kivconvert
