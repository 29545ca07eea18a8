// SPDX-License-Identifier: MIT
// Runs as COCO data sets hold them: down the columns, one after the other, the lengths of background and foreground in
// turn, as an array of numbers or packed in a string. There is nothing outside of the frame, and each pixel is there
// once.
#include "kivconvert/errors.h"
#include "kivconvert/image_files.h"
#include "kivconvert/json_formats.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/run_files.h"
#include "kivconvert/visible_pixels.h"

#include <KivRLC/KivRunCoco.h>

#include <cstdint>
#include <fmt/format.h>
#include <stdexcept>
#include <vector>

namespace kivconvert
{
namespace
{

using Counts = std::vector<std::int64_t>;

/// -1 where there is no such int.
int size_at(const Json& size, std::size_t index)
{
    return index < size.size() ? as_int(size[index]).value_or(-1) : -1;
}

Counts read_counts(const Json& document, const std::string& file)
{
    const auto member = document.find("counts");
    if (member != document.end() && member->is_string()) {
        try {
            return KivRuns::CocoCountsFromText(member->get_ref<const std::string&>());
        } catch (const std::invalid_argument& error) {
            throw FileError(file, fmt::format("\"counts\": {}", error.what()));
        }
    }
    Counts counts;
    for (const Json& value : read_array(document, "counts", file)) {
        const std::optional<int> count = as_int(value);
        if (!count) {
            throw FileError(file, fmt::format("\"counts\"[{}] is not an int", counts.size()));
        }
        counts.push_back(*count);
    }
    return counts;
}

/// The counts must be lengths that make up the whole frame.
void expect_sum(const Counts& counts, long long pixels, const std::string& file)
{
    long long sum = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] < 0 || counts[i] > pixels - sum) {
            throw FileError(
                file, fmt::format("\"counts\"[{}] is {}, where 0 to {} pixels are left", i, counts[i], pixels - sum));
        }
        sum += counts[i];
    }
    if (sum != pixels) {
        throw FileError(file, fmt::format("\"counts\" has {} pixels, but the frame has {}", sum, pixels));
    }
}

/// How many runs the counts make: as many as they have pixels without one to the left.
std::int64_t count_runs(const Counts& counts, int height)
{
    std::vector<Run> places; // of the frame's pixels, counted column by column
    int next = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const int stop = next + static_cast<int>(counts[i]);
        if (i % 2 == 1) {
            places.push_back({0, next, stop - 1});
        }
        next = stop;
    }
    const KivRunSet all(places);
    return (all - KivRuns::Translate(all, height, 0)).Area();
}

/// The pixels in the frame, unless their counts would be too many: one for each pixel without one above, and more.
KivRunSet countable_pixels(const KivRegion& region)
{
    const KivRunSet pixels = visible_pixels(region);
    const KivRunSet tops = pixels - KivRuns::Translate(pixels, 0, 1);
    expect_affordable("the region", static_cast<double>(tops.Area()), "runs", bytes_per_run);
    return pixels;
}

std::string as_text(const KivRegion& region, const Json& counts)
{
    return fmt::format("{{\"size\":[{},{}],\"counts\":{}}}\n", region.Height(), region.Width(), counts.dump());
}

} // namespace

KivRegion read_coco(const Json& document, const std::string& file)
{
    const Json& size = read_array(document, "size", file);
    const int height = size_at(size, 0);
    const int width = size_at(size, 1);
    if (size.size() != 2 || height < 0 || width < 0) {
        throw FileError(file, "\"size\" is not an array of two ints of at least 0, height and width");
    }
    expect_possible_frame(file, width, height);
    const Counts counts = read_counts(document, file);
    expect_sum(counts, static_cast<long long>(width) * height, file);
    expect_affordable(file, static_cast<double>(count_runs(counts, height)), "runs", bytes_per_run);
    return KivRuns::RegionOf(KivRuns::FromCocoCounts(counts, width, height), width, height);
}

KivRegion parse_runs_coco(std::string_view text, const std::string& file)
{
    return read_coco(parse_json_object(text, file), file);
}

std::string runs_as_coco(const KivRegion& region)
{
    return as_text(region, KivRuns::ToCocoText(countable_pixels(region), region.Width(), region.Height()));
}

std::string runs_as_coco_counts(const KivRegion& region)
{
    return as_text(region, KivRuns::ToCocoCounts(countable_pixels(region), region.Width(), region.Height()));
}

} // namespace kivconvert
