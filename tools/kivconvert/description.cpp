// SPDX-License-Identifier: MIT
#include "kivconvert/description.h"

#include "kivconvert/coco_data_set.h"
#include "kivconvert/conversions.h"
#include "kivconvert/operands.h"
#include "kivconvert/visible_pixels.h"

#include <KivRLC/KivRunMeasures.h>

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace kivconvert
{
namespace
{

/// A kind of content, and what its runs are.
struct Kind {
    const char* name;
    const char* remark;
};

constexpr Kind kinds[] = {
    {"image", "; the runs are those of its non-zero pixels"},
    {"runs", ""},
    {"shape", "; the runs are those of its pixels"},
    {"contours", "; the runs are those of what they enclose"},
    {"points", "; the runs are those of the pixels they fall on"},
};
static_assert(std::size(kinds) == std::variant_size_v<Content>);

/// How many runs reach outside the frame or cover nothing.
std::ptrdiff_t count_outside(const KivRegion& region)
{
    return std::count_if(region.Runs().begin(), region.Runs().end(), [&region](const Run& run) {
        return run.row < 0 || run.row >= region.Height() || run.colBegin < 0 || run.colEnd >= region.Width() ||
               run.colBegin > run.colEnd;
    });
}

void append_facts(Description& description, const KivRegion& region)
{
    const KivRunSet pixels = visible_pixels(region);
    description["frame"] = {region.Width(), region.Height()};
    description["runs"] = region.Runs().size();
    description["pixels"] = pixels.Area();
    if (!pixels.Empty()) {
        const KivRunBox box = KivRuns::BoundingBox(pixels);
        description["columns"] = {box.colBegin, box.colEnd};
        description["rows"] = {box.rowBegin, box.rowEnd};
    }
    if (const std::ptrdiff_t outside = count_outside(region); outside > 0) {
        description["outside"] = outside;
    }
}

/// How a value is printed where it is more than the value itself.
struct Wording {
    const char* name;
    const char* format; ///< of the value, or of both where it is a pair
};

constexpr Wording wordings[] = {
    {"frame", "{} x {}"},
    {"columns", "{} to {}"},
    {"rows", "{} to {}"},
    {"polygons", "{} as polygons"},
    {"packed", "{} as packed counts"},
    {"plain", "{} as plain counts"},
    {"none", "{} without pixels"},
    {"outside", "{} runs reach outside the frame or cover nothing"},
};

template <class Entry, std::size_t count>
const Entry* entry_named(const Entry (&entries)[count], const std::string& name)
{
    const auto* const entry =
        std::find_if(std::begin(entries), std::end(entries), [&name](const Entry& each) { return name == each.name; });
    return entry == std::end(entries) ? nullptr : entry;
}

std::string worded(const std::string& name, const Description& value)
{
    if (value.is_string()) {
        const auto text = value.get<std::string>();
        const Kind* const kind = name == "kind" ? entry_named(kinds, text) : nullptr;
        return kind == nullptr ? text : text + kind->remark;
    }
    const Wording* const wording = entry_named(wordings, name);
    if (wording == nullptr) {
        return value.dump();
    }
    return value.is_array() ? fmt::format(fmt::runtime(wording->format), value[0].get<int>(), value[1].get<int>())
                            : fmt::format(fmt::runtime(wording->format), value.get<std::int64_t>());
}

Description description_of_data_set(const std::string& path)
{
    const CocoDataSet data_set(path);
    const auto count = [&data_set](CocoForm form) {
        return std::count_if(data_set.entries().begin(), data_set.entries().end(),
                             [form](const CocoEntry& entry) { return entry.form == form; });
    };
    return {{"kind", "COCO data set"},
            {"images", data_set.images().size()},
            {"categories", data_set.categories().size()},
            {"annotations", data_set.entries().size()},
            {"polygons", count(CocoForm::polygons)},
            {"packed", count(CocoForm::packed_counts)},
            {"plain", count(CocoForm::plain_counts)},
            {"none", count(CocoForm::none)}};
}

} // namespace

Description description_of(const std::string& text, const Frame& frame, const ImagePart& part)
{
    if (!part.choice.is_made() && is_data_set(text)) {
        return description_of_data_set(text);
    }
    Content content = read_operand(text, frame, part);
    const KivRegion region = region_of(content, text);
    Description description = {{"kind", kinds[content.index()].name}};
    if (const auto* const traced = std::get_if<TracedContours>(&content)) {
        description["contours"] = traced->contours.Length();
    }
    if (const auto* const points = std::get_if<KivPointArray>(&content)) {
        description["points"] = points->Length();
    }
    append_facts(description, region);
    return description;
}

std::string as_lines(const Description& description)
{
    std::string text;
    for (const auto& [name, value] : description.items()) {
        fmt::format_to(std::back_inserter(text), "{:<10} {}\n", name, worded(name, value));
    }
    return text;
}

} // namespace kivconvert
