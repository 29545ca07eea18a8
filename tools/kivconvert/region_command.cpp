// SPDX-License-Identifier: MIT
// From whatever a shape comes as to runs: region.
#include "kivconvert/commands.h"
#include "kivconvert/contour_files.h"
#include "kivconvert/conversion_command.h"
#include "kivconvert/conversions.h"
#include "kivconvert/errors.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_files.h"
#include "kivconvert/operands.h"
#include "kivconvert/result_codes.h"
#include "kivconvert/run_files.h"

#include <CLI/CLI.hpp>

#include <KivDataConvert/KivDataConvert.h>

#include <fmt/format.h>
#include <memory>
#include <optional>
#include <string>

namespace kivconvert
{
namespace
{

/// Of images with 16 bits.
constexpr int max_threshold = 65535;

struct RegionOptions {
    std::optional<int> least;
    std::optional<int> contour;
    bool sorted = false;
    Frame frame;
};

void expect_possible(int least, int depth)
{
    const int most = depth == CV_8U ? 255 : max_threshold;
    if (least > most) {
        throw InputError("--threshold", fmt::format("is more than {}, the most that the image can hold", most));
    }
}

/// The pixels of at least the given value.
KivRegion thresholded(Content& content, int least, const std::string& subject)
{
    auto* const image = std::get_if<KivImage>(&content);
    if (image == nullptr) {
        throw InputError("--threshold", "is for images; nothing else has grey values");
    }
    expect_possible(least, image->Mat().depth());
    cv::Mat foreground;
    cv::compare(image->Mat(), static_cast<double>(least), foreground, cv::CMP_GE);
    image->Mat() = foreground;
    KivRegion region;
    expect_success(KIVMV::KivBinImageToRegion(*image, &region), subject);
    return region;
}

/// What one contour encloses, in the smallest frame that begins at (0, 0).
KivRegion enclosed(KivContour contour, const std::string& subject)
{
    KivPointArray points;
    expect_success(KIVMV::KivContourToPointArray(contour, &points), subject);
    const Frame frame = extent_of(points);
    expect_possible_frame(subject, frame.width, frame.height);
    KivRegion region;
    expect_success(KIVMV::KivContourToRegion(contour, &region), subject);
    return region;
}

KivRegion sorted_by_row(KivRegion& region)
{
    KivVarArray rows;
    KivVarArray begins;
    KivVarArray ends;
    region.GetRegionRuns(&rows, &begins, &ends);
    KIVMV::radixsort(rows, begins, ends);
    KivRegion sorted;
    sorted.CreateRegion(region.Width(), region.Height(), rows, begins, ends);
    return sorted;
}

KivRegion region_for(const std::string& input, const RegionOptions& options, const ImagePart& part)
{
    if (options.contour) {
        expect_no_part(part);
        return enclosed(contour_at(read_content(input), *options.contour, input), input);
    }
    Content content = read_operand(input, options.frame, part);
    return options.least ? thresholded(content, *options.least, input) : region_of(content, input);
}

} // namespace

void add_region_command(CLI::App& app)
{
    const auto options = std::make_shared<RegionOptions>();
    CLI::App* const command = app.add_subcommand("region", "Writes the runs of an image's foreground, or of a shape");
    command->footer(example_with_shapes("region parts.png --threshold 128 -o parts.csv"));
    add_conversion(*command, {any_content, any_run_file, ".csv", expect_run_file},
                   [options](const std::string& input, const std::string& output, const ImagePart& part) {
                       KivRegion region = region_for(input, *options, part);
                       write_runs(output, options->sorted ? sorted_by_row(region) : region);
                   });
    CLI::Option* const threshold =
        command->add_option("--threshold", options->least, "foreground is what is at least N, not all non-zero pixels");
    threshold->type_name("N")->check(CLI::Range(0, max_threshold));
    command->add_flag("--sort", options->sorted, "order the runs by row; runs of a row keep their order");
    add_frame_options(*command, options->frame);
    add_contour_option(*command, options->contour, "what the contour N alone encloses, counted from 0")
        ->excludes(threshold);
}

} // namespace kivconvert
