// SPDX-License-Identifier: MIT
// What is in files: info.
#include "kivconvert/collected_rows.h"
#include "kivconvert/commands.h"
#include "kivconvert/description.h"
#include "kivconvert/failure.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/help_texts.h"
#include "kivconvert/image_options.h"
#include "kivconvert/inputs.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace kivconvert
{
namespace
{

struct InfoOptions {
    Inputs inputs;
    Frame frame;
    ImagePart part;
    bool all_pages = false;
    bool as_json = false;
};

/// @param name what tells the row from others
void append_row(Rows& rows, TableRow name, const std::string& input, const ImagePart& part, const InfoOptions& options)
{
    name.update(description_of(input, options.frame, part));
    rows.push_back(std::move(name));
}

void append_rows(Rows& rows, const std::string& input, const InfoOptions& options)
{
    TableRow name = TableRow::object();
    if (options.as_json || !options.inputs.is_single()) {
        name["file"] = input;
    }
    if (!options.all_pages) {
        append_row(rows, name, input, options.part, options);
        return;
    }
    ImagePart part = options.part;
    part.file = std::make_shared<ImageFile>(input);
    const int pages = part.file->pages();
    for (part.page = 1; part.page <= pages; ++part.page) {
        name["page"] = part.page;
        append_row(rows, name, input, part, options);
    }
}

void describe(const InfoOptions& options, std::string& out)
{
    const Collected collected = collect(
        options.inputs, "described", [&](Rows& rows, const std::string& input) { append_rows(rows, input, options); });
    if (options.as_json) {
        out += rows_as_json(collected.rows);
    } else {
        for (const TableRow& row : collected.rows) {
            out += as_lines(row);
        }
    }
    collected.expect_no_failure();
}

} // namespace

void add_info_command(CLI::App& app, Outcome& outcome)
{
    const auto options = std::make_shared<InfoOptions>();
    CLI::App* const command = app.add_subcommand("info", "Prints the frame, runs and pixels of files or shapes");
    command->footer(example_with_shapes("info parts.csv"));
    add_inputs(*command, options->inputs, any_content);
    command->add_flag("--json", options->as_json, "print JSON");
    add_frame_options(*command, options->frame);
    add_image_options(*command, options->part, options->all_pages);
    command->callback(
        [options, &outcome] { report_under(options->inputs.texts.front(), [&] { describe(*options, outcome.out); }); });
}

} // namespace kivconvert
