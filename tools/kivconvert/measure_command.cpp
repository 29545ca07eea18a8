// SPDX-License-Identifier: MIT
// A table of measures of files, of their connected parts, or of labels: measure.
#include "kivconvert/collected_rows.h"
#include "kivconvert/commands.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/files.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/inputs.h"
#include "kivconvert/measure_table.h"
#include "kivconvert/measured_rows.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

struct MeasureCommand {
    Inputs inputs;
    std::string output; ///< empty: standard output
    bool as_json = false;
    MeasureOptions measures;
};

std::string table_of(const Rows& rows, const MeasureCommand& options)
{
    const bool as_json = options.as_json || extension_of(options.output) == ".json";
    return as_json ? rows_as_json(rows) : table_as_csv(name_columns(rows), rows);
}

void expect_table_file(const std::string& path)
{
    const std::string extension = extension_of(path);
    if (!path.empty() && extension != ".csv" && extension != ".json") {
        throw FileError(path, "is not named like a table; those end in .csv or .json");
    }
}

/// The rows of the files that can be measured are given also if others fail.
void measure(const MeasureCommand& options, std::string& out)
{
    expect_table_file(options.output);
    const Collected collected = collect(options.inputs, "measured", [&](Rows& rows, const std::string& input) {
        append_measured_rows(rows, input, options.measures);
    });
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
    const auto options = std::make_shared<MeasureCommand>();
    CLI::App* const command =
        app.add_subcommand("measure", "Makes a table of areas, places, axes, perimeters and more");
    command->footer(example_with_shapes("measure masks --by file -o areas.csv"));
    add_inputs(*command, options->inputs, any_content);
    CLI::Option* const output = command->add_option("-o,--output", options->output,
                                                    "table, .csv or .json; standard output, as CSV, by default");
    command->add_flag("--json", options->as_json, "print JSON")->excludes(output);
    add_measure_options(*command, options->measures);
    command->callback(
        [options, &outcome] { report_under(options->inputs.texts.front(), [&] { measure(*options, outcome.out); }); });
}

} // namespace kivconvert
