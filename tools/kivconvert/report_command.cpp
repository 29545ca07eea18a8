// SPDX-License-Identifier: MIT
// Many objects to look at: report.
#include "kivconvert/collected_rows.h"
#include "kivconvert/commands.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/files.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/inputs.h"
#include "kivconvert/measure_table.h"
#include "kivconvert/measured_rows.h"
#include "kivconvert/report_page.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace kivconvert
{
namespace
{

struct ReportCommand {
    Inputs inputs;
    std::string output;
    MeasureOptions measures;
};

/// Also if some of the files cannot be measured, the page has the rest.
void report(const ReportCommand& options)
{
    if (extension_of(options.output) != ".html") {
        throw FileError(options.output, "is not named like a page; those end in .html");
    }
    const Collected collected = collect(options.inputs, "measured", [&](Rows& rows, const std::string& input) {
        append_measured_rows(rows, input, options.measures);
    });
    std::vector<std::string> columns = name_columns(collected.rows);
    const std::vector<std::string> measures = measure_names();
    columns.insert(columns.end(), measures.begin(), measures.end());
    write_file(options.output, report_page(columns, collected.rows));
    collected.expect_no_failure();
}

} // namespace

void add_report_command(CLI::App& app)
{
    const auto options = std::make_shared<ReportCommand>();
    options->measures.thumbnails = true;
    CLI::App* const command = app.add_subcommand("report", "Makes a page with outlines and measures of all objects");
    command->footer(example_with_shapes("report masks -o report.html"));
    add_inputs(*command, options->inputs, any_content);
    command->add_option("-o,--output", options->output, "page, .html")->required();
    add_measure_options(*command, options->measures);
    command->callback([options] { report_under(options->inputs.texts.front(), [&] { report(*options); }); });
}

} // namespace kivconvert
