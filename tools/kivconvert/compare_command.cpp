// SPDX-License-Identifier: MIT
// Two shapes, pixel by pixel: compare.
#include "kivconvert/commands.h"
#include "kivconvert/failure.h"
#include "kivconvert/files.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_encoder.h"
#include "kivconvert/image_options.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/operands.h"
#include "kivconvert/placed_pixels.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <fmt/format.h>
#include <memory>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

namespace kivconvert
{
namespace
{

struct CompareOptions {
    std::vector<std::string> operands = {"", ""};
    std::string picture;
    Frame frame;
    ImagePart part;
};

struct Comparison {
    KivRunSet common;
    KivRunSet lost;   ///< of the first operand alone
    KivRunSet gained; ///< of the second operand alone
    double overlap;   ///< intersection over union
    Frame frame;
};

Comparison compared(const CompareOptions& options)
{
    std::vector<Content> contents = read_operands(options.operands, options.frame, options.part);
    const PlacedPixels a = pixels_of(contents[0], options.operands[0]);
    const PlacedPixels b = pixels_of(contents[1], options.operands[1]);
    const Frame frame = {std::max(a.frame.width, b.frame.width), std::max(a.frame.height, b.frame.height)};
    return {a.pixels & b.pixels, a.pixels - b.pixels, b.pixels - a.pixels, a.pixels.IntersectionOverUnion(b.pixels),
            frame};
}

void paint(cv::Mat& picture, const KivRunSet& set, const cv::Scalar& colour)
{
    for (const Run& run : set.Runs()) {
        picture.row(run.row).colRange(run.colBegin, run.colEnd + 1).setTo(colour);
    }
}

/// White is common, red is lost, green is gained.
void write_picture(const std::string& path, const Comparison& comparison)
{
    expect_possible_frame(path, comparison.frame.width, comparison.frame.height);
    expect_affordable(path, static_cast<double>(comparison.frame.width) * comparison.frame.height, "pixels",
                      bytes_per_coloured_pixel);
    cv::Mat picture = cv::Mat::zeros(comparison.frame.height, comparison.frame.width, CV_8UC3);
    paint(picture, comparison.common, {255, 255, 255});
    paint(picture, comparison.lost, {213, 43, 30});
    paint(picture, comparison.gained, {47, 191, 113});
    write_png(path, picture);
}

std::string description_of(const Comparison& comparison)
{
    return fmt::format("iou        {}\nlost       {}\ngained     {}\n", comparison.overlap, comparison.lost.Area(),
                       comparison.gained.Area());
}

void compare(const CompareOptions& options, Outcome& outcome)
{
    if (!options.picture.empty()) {
        expect_png(options.picture);
    }
    outcome.status = exit_status::wrong_input; // of any failure, as 1 says that the shapes differ
    const Comparison comparison = compared(options);
    if (!options.picture.empty()) {
        write_picture(options.picture, comparison);
    }
    outcome.out = description_of(comparison);
    outcome.status = comparison.lost.Empty() && comparison.gained.Empty() ? 0 : exit_status::different;
}

} // namespace

void add_compare_command(CLI::App& app, Outcome& outcome)
{
    const auto options = std::make_shared<CompareOptions>();
    CLI::App* const command = app.add_subcommand("compare", "Prints how far two shapes agree; status 1 if they differ");
    command->footer(example_with_shapes("compare expected.png found.png --picture differences.png"));
    command->add_option("A", options->operands[0], any_content)->required();
    command->add_option("B", options->operands[1], any_content)->required();
    command->add_option("--picture", options->picture, "a .png of both: common pixels white, lost red, gained green")
        ->type_name("FILE");
    add_frame_options(*command, options->frame);
    add_image_options(*command, options->part);
    command->callback([options, &outcome] {
        const std::string subject = fmt::format("comparison of {} and {}", options->operands[0], options->operands[1]);
        report_under(subject, [&] { compare(*options, outcome); });
    });
}

} // namespace kivconvert
