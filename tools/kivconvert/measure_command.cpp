// SPDX-License-Identifier: MIT
// A table of measures of files, of their connected parts, or of labels: measure.
#include "kivconvert/commands.h"
#include "kivconvert/connectivity_option.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/files.h"
#include "kivconvert/folders.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_options.h"
#include "kivconvert/inputs.h"
#include "kivconvert/label_images.h"
#include "kivconvert/measure_table.h"
#include "kivconvert/placed_pixels.h"

#include <KivRLC/KivRunComponents.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

struct MeasureOptions {
    Inputs inputs;
    std::string output; ///< empty: standard output
    std::string by = "component";
    bool as_json = false;
    KivRuns::Connectivity connectivity = default_connectivity;
    Frame frame;
    ImagePart part;
};

using Rows = std::vector<TableRow>;

void append_row(Rows& rows, TableRow name, const KivRunSet& pixels, const MeasureOptions& options)
{
    append_measures(name, pixels, options.connectivity);
    rows.push_back(std::move(name));
}

void measure_whole(Rows& rows, const std::string& input, const MeasureOptions& options)
{
    append_row(rows, {{"file", input}}, read_pixels(input, options.frame, options.part).pixels, options);
}

void measure_components(Rows& rows, const std::string& input, const MeasureOptions& options)
{
    const KivRunSet pixels = read_pixels(input, options.frame, options.part).pixels;
    int number = 0;
    for (const KivRunSet& component : KivRuns::Components(pixels, options.connectivity)) {
        append_row(rows, {{"file", input}, {"component", ++number}}, component, options);
    }
}

void measure_labels(Rows& rows, const std::string& input, const MeasureOptions& options)
{
    const KivImage image = read_image(input, options.part);
    for (const auto& [label, pixels] : labels_of(image.Mat(), input)) {
        append_row(rows, {{"file", input}, {"label", label}}, pixels, options);
    }
}

/// What a row is about.
struct Subject {
    const char* name;
    std::vector<std::string> columns; ///< that name a row
    void (*append_rows)(Rows& rows, const std::string& input, const MeasureOptions& options);
};

const std::vector<Subject>& subjects()
{
    static const std::vector<Subject> all = {
        {"component", {"file", "component"}, measure_components},
        {"label", {"file", "label"}, measure_labels},
        {"file", {"file"}, measure_whole},
    };
    return all;
}

const Subject& subject_named(const std::string& name)
{
    return *std::find_if(subjects().begin(), subjects().end(),
                         [&name](const Subject& subject) { return name == subject.name; });
}

std::string table_of(const Rows& rows, const Subject& subject, const MeasureOptions& options)
{
    const bool as_json = options.as_json || extension_of(options.output) == ".json";
    return as_json ? table_as_json(rows) : table_as_csv(subject.columns, rows);
}

/// In the order of the files, whichever is measured first.
Rows rows_of_files(const Subject& subject, const MeasureOptions& options, std::exception_ptr& failure)
{
    const std::vector<InputFile> files = files_of(options.inputs);
    std::vector<Rows> rows_of(files.size());
    try {
        for_each_file(files, "measured", [&](std::size_t i) {
            report_under(files[i].path, [&] { subject.append_rows(rows_of[i], files[i].path, options); });
        });
    } catch (const FilesFailed&) {
        failure = std::current_exception();
    }
    Rows rows;
    for (Rows& some : rows_of) {
        std::move(some.begin(), some.end(), std::back_inserter(rows));
    }
    return rows;
}

void expect_table_file(const std::string& path)
{
    const std::string extension = extension_of(path);
    if (!path.empty() && extension != ".csv" && extension != ".json") {
        throw FileError(path, "is not named like a table; those end in .csv or .json");
    }
}

/// The rows of the files that can be measured are given also if others fail.
void measure(const MeasureOptions& options, std::string& out)
{
    expect_table_file(options.output);
    const Subject& subject = subject_named(options.by);
    std::exception_ptr failure;
    Rows rows;
    if (options.inputs.is_single()) {
        subject.append_rows(rows, options.inputs.texts.front(), options);
    } else {
        rows = rows_of_files(subject, options, failure);
    }
    const std::string table = table_of(rows, subject, options);
    if (options.output.empty()) {
        out += table;
    } else {
        write_file(options.output, table);
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

} // namespace

void add_measure_command(CLI::App& app, Outcome& outcome)
{
    const auto options = std::make_shared<MeasureOptions>();
    CLI::App* const command =
        app.add_subcommand("measure", "Makes a table of areas, places, axes, perimeters and more");
    command->footer(example_with_shapes("measure masks --by file -o areas.csv"));
    add_inputs(*command, options->inputs, any_content);
    CLI::Option* const output = command->add_option("-o,--output", options->output,
                                                    "table, .csv or .json; standard output, as CSV, by default");
    command->add_flag("--json", options->as_json, "print JSON")->excludes(output);
    command->add_option("--by", options->by, "what has a row: each component, each label of an image, or each file")
        ->type_name("component|label|file")
        ->check(CLI::IsMember({"component", "label", "file"}).description(""));
    add_connectivity_option(*command, options->connectivity);
    add_frame_options(*command, options->frame);
    add_image_options(*command, options->part);
    command->callback(
        [options, &outcome] { report_under(options->inputs.texts.front(), [&] { measure(*options, outcome.out); }); });
}

} // namespace kivconvert
