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

} // namespace

bool is_run_file(const std::string& path)
{
    return find_format(path) != nullptr;
}

void write_runs(const std::string& path, const KivRegion& region)
{
    const RunFormat* const format = find_format(path);
    if (format == nullptr) {
        throw FileError(path, "is not named like a run file; those end in .csv or .json");
    }
    expect_possible_frame(path, region.Width(), region.Height());
    write_file(path, format->format(region));
}

} // namespace kivconvert
