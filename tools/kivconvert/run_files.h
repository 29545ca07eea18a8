// SPDX-License-Identifier: MIT
// Regions as text: CSV and JSON, which keep all runs exactly, and the JSON of COCO data sets, which keeps the pixels.
// The manual page describes the formats.
#pragma once

#include <KivData/KivData.h>

#include <string>
#include <string_view>

namespace kivconvert
{

/// Whether a text begins with the frame or the column names of runs.
bool looks_like_runs(std::string_view text);

/// Parses CSV, of which the line with the frame may be missing: the region's frame is 0 x 0 then. `file` is
/// named in error messages. @throws FileError for anything that is not the format.
KivRegion parse_runs_csv(std::string_view text, const std::string& file);

/// The same for JSON.
KivRegion parse_runs_json(std::string_view text, const std::string& file);

/// The same for the counts of COCO data sets, packed in a string or as an array. The frame is bounded as that of an
/// image is.
KivRegion parse_runs_coco(std::string_view text, const std::string& file);

std::string runs_as_csv(const KivRegion& region);
std::string runs_as_json(const KivRegion& region);

/// The pixels of the frame alone, each once. The frame must be a possible one. @throws InputError if they would exceed
/// the memory limit
std::string runs_as_coco(const KivRegion& region);

/// The same with the counts as an array.
std::string runs_as_coco_counts(const KivRegion& region);

/// Whether the file is named like one that runs are written to, in capitals or not.
bool is_run_file(const std::string& path);

/// The file's name without its ending, which has two dots where that of a run format has.
std::string name_without_ending(const std::string& path);

/// @throws FileError unless is_run_file()
void expect_run_file(const std::string& path);

/// Writes a run file, in the format of the file's name. @throws FileError
void write_runs(const std::string& path, const KivRegion& region);

} // namespace kivconvert
