// SPDX-License-Identifier: MIT
// Runs as JSON: an object with width, height and the runs as arrays of three.
#include "kivconvert/errors.h"
#include "kivconvert/json_formats.h"
#include "kivconvert/run_files.h"

#include <fmt/format.h>
#include <iterator>
#include <vector>

namespace kivconvert
{
namespace
{

std::optional<Run> as_run(const Json& value)
{
    if (!value.is_array() || value.size() != 3) {
        return std::nullopt;
    }
    const auto row = as_int(value[0]);
    const auto begin = as_int(value[1]);
    const auto end = as_int(value[2]);
    return row && begin && end ? std::optional(Run{*row, *begin, *end}) : std::nullopt;
}

std::vector<Run> read_run_list(const Json& document, const std::string& file)
{
    const Json& values = read_array(document, "runs", file);
    std::vector<Run> runs;
    runs.reserve(values.size());
    for (const Json& value : values) {
        const std::optional<Run> run = as_run(value);
        if (!run) {
            throw FileError(file, fmt::format("\"runs\"[{}] is not an array of three ints", runs.size()));
        }
        runs.push_back(*run);
    }
    return runs;
}

} // namespace

KivRegion read_runs(const Json& document, const std::string& file)
{
    const int width = read_size(document, "width", file);
    const int height = read_size(document, "height", file);
    return KivRegion(width, height, read_run_list(document, file));
}

KivRegion parse_runs_json(std::string_view text, const std::string& file)
{
    return read_runs(parse_json_object(text, file), file);
}

std::string runs_as_json(const KivRegion& region)
{
    std::string text = fmt::format("{{\"width\":{},\"height\":{},\"runs\":[", region.Width(), region.Height());
    const char* separator = "\n";
    for (const Run& run : region.Runs()) {
        fmt::format_to(std::back_inserter(text), "{}[{},{},{}]", separator, run.row, run.colBegin, run.colEnd);
        separator = ",\n";
    }
    return text + "\n]}\n";
}

} // namespace kivconvert
