// SPDX-License-Identifier: MIT
#include "kivconvert/measured_rows.h"

#include "kivconvert/coco_data_set.h"
#include "kivconvert/errors.h"
#include "kivconvert/failure.h"
#include "kivconvert/frame_options.h"
#include "kivconvert/image_options.h"
#include "kivconvert/measure_table.h"
#include "kivconvert/part_sets.h"
#include "kivconvert/report_page.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

namespace kivconvert
{
namespace
{

constexpr const char* by_annotation = "annotation";

void append_row(Rows& rows, TableRow name, const KivRunSet& pixels, const MeasureOptions& options)
{
    append_measures(name, pixels, options.connectivity);
    if (options.thumbnails) {
        name[thumbnail_member] = thumbnail_of(pixels);
    }
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

} // namespace

void add_measure_options(CLI::App& command, MeasureOptions& options)
{
    command
        .add_option("--by", options.by,
                    "what has a row: each component, label of an image, file, or annotation of a data set")
        ->type_name("component|label|file|annotation")
        ->check(CLI::IsMember({"component", "label", "file", by_annotation}).description(""));
    add_connectivity_option(command, options.connectivity);
    add_frame_options(command, options.frame);
    add_image_options(command, options.part);
}

void append_measured_rows(Rows& rows, const std::string& input, const MeasureOptions& options)
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

std::vector<std::string> name_columns(const Rows& rows)
{
    const std::vector<std::string> measures = measure_names();
    std::vector<std::string> columns = {"file"};
    for (const TableRow& row : rows) {
        for (const auto& [name, value] : row.items()) {
            if (name == measures.front()) { // the rest are measures
                break;
            }
            if (std::find(columns.begin(), columns.end(), name) == columns.end()) {
                columns.push_back(name);
            }
        }
    }
    return columns;
}

} // namespace kivconvert
