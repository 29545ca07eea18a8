// SPDX-License-Identifier: MIT
// Regions as text: CSV and JSON, both with the frame, both exact. tools/README.md tells the formats.
#pragma once

#include <KivData/KivData.h>

#include <string>
#include <string_view>

namespace kivconvert
{

/// Parses CSV. `file` is named in error messages. @throws FileError for anything that is not the format.
KivRegion parse_runs_csv(std::string_view text, const std::string& file);

/// The same for JSON.
KivRegion parse_runs_json(std::string_view text, const std::string& file);

std::string runs_as_csv(const KivRegion& region);
std::string runs_as_json(const KivRegion& region);

/// Whether the extension is that of a run file: .csv or .json, in either case.
bool is_run_file(const std::string& path);

/// Reads a run file, its format told by the extension. @throws FileError
KivRegion read_runs(const std::string& path);

/// Writes a run file, its format told by the extension. @throws FileError
void write_runs(const std::string& path, const KivRegion& region);

} // namespace kivconvert
