// SPDX-License-Identifier: MIT
// A table of measures of files, of their connected parts, or of labels: measure.
#include "kivconvert/coco_data_set.h"
#include "kivconvert/collected_rows.h"
#include "kivconvert/commands.h"
#include "kivconvert/connectivity_option.h"
#include "kivconvert/contents.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/files.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_options.h"
#include "kivconvert/inputs.h"
#include "kivconvert/measure_table.h"
#include "kivconvert/part_sets.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

constexpr const char* by_annotation = "annotation";

struct MeasureOptions {
    Inputs inputs;
    std::string output; ///< empty: standard output
    std::string by;     ///< empty: not given
    bool as_json = false;
    KivRuns::Connectivity connectivity = default_connectivity;
    Frame frame;
    ImagePart part;
};

void append_row(Rows& rows, TableRow name, const KivRunSet& pixels, const MeasureOptions& options)
{
    append_measures(name, pixels, options.connectivity);
    rows.push_back(std::move(name));
}

void append_parts(Rows& rows, const std::string& input, const PartKind& kind, const MeasureOptions& options)
{
    for (const auto& [number, pixels] : kind.parts_of(input, options.frame, options.part, options.connectivity).sets) {
        TableRow name = {{"file", input}};
        if (kind.is_numbered) {
            name[kind.name] = number;
        }
        append_row(rows, std::move(name), pixels, options);
    }
}

/// Annotations that are malformed are reported behind the rest.
void append_annotations(Rows& rows, const std::string& input, const MeasureOptions& options)
{
    const CocoDataSet data_set(input);
    Complaints complaints;
    for (const CocoEntry& entry : data_set.entries()) {
        if (!data_set.is_chosen(entry, options.part.choice)) {
            continue;
        }
        complaints.keep([&] {
            append_row(rows,
                       {{"file", input},
                        {"annotation", entry.id},
                        {"image", data_set.image_name(entry.image)},
                        {"category", data_set.category_name(entry.category)}},
                       data_set.pixels_of(entry).pixels, options);
        });
    }
    complaints.expect_none(data_set.entries().size(), "annotations could not be measured");
}

/// What has a row: what is asked for, or else each annotation of a data set and each component of all else.
std::string subject_of(const std::string& input, const MeasureOptions& options)
{
    if (!options.by.empty()) {
        return options.by;
    }
    return is_data_set(input) ? by_annotation : "component";
}

void append_rows(Rows& rows, const std::string& input, const MeasureOptions& options)
{
    const PartKind* const kind = find_part_kind(subject_of(input, options));
    if (kind != nullptr) {
        append_parts(rows, input, *kind, options);
    } else if (is_data_set(input)) {
        append_annotations(rows, input, options);
    } else {
        throw FileError(input, "is no COCO data set and has no annotations");
    }
}

/// The columns that name the rows.
std::vector<std::string> name_columns(const MeasureOptions& options)
{
    const std::string subject = subject_of(options.inputs.texts.front(), options);
    if (subject == by_annotation) {
        return {"file", "annotation", "image", "category"};
    }
    return find_part_kind(subject)->is_numbered ? std::vector<std::string>{"file", subject}
                                                : std::vector<std::string>{"file"};
}

std::string table_of(const Rows& rows, const MeasureOptions& options)
{
    const bool as_json = options.as_json || extension_of(options.output) == ".json";
    return as_json ? rows_as_json(rows) : table_as_csv(name_columns(options), rows);
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
    const Collected collected = collect(
        options.inputs, "measured", [&](Rows& rows, const std::string& input) { append_rows(rows, input, options); });
    const std::string table = table_of(collected.rows, options);
    if (options.output.empty()) {
        out += table;
    } else {
        write_file(options.output, table);
    }
    collected.expect_no_failure();
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
    command
        ->add_option("--by", options->by,
                     "what has a row: each component, label of an image, file, or annotation of a data set")
        ->type_name("component|label|file|annotation")
        ->check(CLI::IsMember({"component", "label", "file", by_annotation}).description(""));
    add_connectivity_option(*command, options->connectivity);
    add_frame_options(*command, options->frame);
    add_image_options(*command, options->part);
    command->callback(
        [options, &outcome] { report_under(options->inputs.texts.front(), [&] { measure(*options, outcome.out); }); });
}

} // namespace kivconvert
