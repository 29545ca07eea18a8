// SPDX-License-Identifier: MIT
// The one table of run formats, and what is done by it.
#include "kivconvert/run_files.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/image_files.h"
#include "kivconvert/paths.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <iterator>

namespace kivconvert
{
namespace
{

struct RunFormat {
    const char* ending; ///< of the file's name
    std::string (*format)(const KivRegion& region);
};

/// Longer endings first.
constexpr RunFormat run_formats[] = {
    {".coco-counts.json", runs_as_coco_counts},
    {".coco.json", runs_as_coco},
    {".json", runs_as_json},
    {".csv", runs_as_csv},
};

const RunFormat* find_format(const std::string& path)
{
    const auto found = std::find_if(std::begin(run_formats), std::end(run_formats),
                                    [&](const RunFormat& format) { return is_named_like(path, format.ending); });
    return found == std::end(run_formats) ? nullptr : found;
}

const RunFormat& format_of(const std::string& path)
{
    const RunFormat* const format = find_format(path);
    if (format == nullptr) {
        throw FileError(path, "is not named like a run file; those end in .csv or .json");
    }
    return *format;
}

} // namespace

bool is_run_file(const std::string& path)
{
    return find_format(path) != nullptr;
}

std::string name_without_ending(const std::string& path)
{
    const std::filesystem::path name = path_of(path).filename();
    const RunFormat* const format = find_format(path);
    return format == nullptr ? text_of(name.stem())
                             : text_of(name).substr(0, text_of(name).size() - std::strlen(format->ending));
}

void expect_run_file(const std::string& path)
{
    format_of(path);
}

void write_runs(const std::string& path, const KivRegion& region)
{
    const RunFormat& format = format_of(path);
    expect_possible_frame(path, region.Width(), region.Height());
    write_file(path, format.format(region));
}

} // namespace kivconvert
