// SPDX-License-Identifier: MIT
// The one table of run formats, and what is done by it.
#include "kivconvert/run_files.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/image_files.h"

#include <algorithm>
#include <iterator>

namespace kivconvert
{
namespace
{

struct RunFormat {
    const char* extension;
    KivRegion (*parse)(std::string_view text, const std::string& file);
    std::string (*format)(const KivRegion& region);
};

constexpr RunFormat run_formats[] = {
    {".csv", parse_runs_csv, runs_as_csv},
    {".json", parse_runs_json, runs_as_json},
};

const RunFormat* find_format(const std::string& path)
{
    const std::string extension = extension_of(path);
    const auto found = std::find_if(std::begin(run_formats), std::end(run_formats),
                                    [&](const RunFormat& format) { return format.extension == extension; });
    return found == std::end(run_formats) ? nullptr : found;
}

const RunFormat& format_of(const std::string& path)
{
    const RunFormat* format = find_format(path);
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

KivRegion read_runs(const std::string& path)
{
    KivRegion region = format_of(path).parse(read_file(path), path);
    expect_possible_frame(path, region.Width(), region.Height());
    return region;
}

void write_runs(const std::string& path, const KivRegion& region)
{
    const RunFormat& format = format_of(path);
    expect_possible_frame(path, region.Width(), region.Height());
    write_file(path, format.format(region));
}

} // namespace kivconvert
