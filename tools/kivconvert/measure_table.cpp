// SPDX-License-Identifier: MIT
#include "kivconvert/measure_table.h"

#include <algorithm>
#include <fmt/ranges.h>
#include <optional>
#include <string_view>

namespace kivconvert
{
namespace
{

/// Of a set that is not empty.
struct Facts {
    KivRuns::Measures measures;
    KivRuns::Ellipse ellipse;
    KivRuns::FeretDiameters feret;
    std::int64_t holes;
};

using Value = nlohmann::ordered_json;

struct MeasureColumn {
    const char* name;
    Value (*value)(const Facts& facts);
    bool counts; ///< without pixels it is 0
};

constexpr MeasureColumn measure_columns[] = {
    {"area", [](const Facts& f) -> Value { return f.measures.moments.area; }, true},
    {"left", [](const Facts& f) -> Value { return f.measures.box.colBegin; }, false},
    {"top", [](const Facts& f) -> Value { return f.measures.box.rowBegin; }, false},
    {"right", [](const Facts& f) -> Value { return f.measures.box.colEnd; }, false},
    {"bottom", [](const Facts& f) -> Value { return f.measures.box.rowEnd; }, false},
    {"centroid_x", [](const Facts& f) -> Value { return f.measures.moments.centroid.x; }, false},
    {"centroid_y", [](const Facts& f) -> Value { return f.measures.moments.centroid.y; }, false},
    {"orientation", [](const Facts& f) -> Value { return f.ellipse.angle; }, false},
    {"major_axis", [](const Facts& f) -> Value { return f.ellipse.majorAxis; }, false},
    {"minor_axis", [](const Facts& f) -> Value { return f.ellipse.minorAxis; }, false},
    {"perimeter", [](const Facts& f) -> Value { return f.measures.croftonPerimeter; }, true},
    {"euler_number", [](const Facts& f) -> Value { return f.measures.eulerNumber; }, true},
    {"feret_max", [](const Facts& f) -> Value { return f.feret.largest; }, false},
    {"feret_min", [](const Facts& f) -> Value { return f.feret.smallest; }, false},
    {"holes", [](const Facts& f) -> Value { return f.holes; }, true},
};

Facts facts_of(const KivRunSet& pixels, KivRuns::Connectivity connectivity)
{
    const KivRuns::Measures measures = KivRuns::Measure(pixels, connectivity);
    return {measures, KivRuns::EllipseOf(measures.moments), KivRuns::FeretDiametersOf(pixels),
            KivRuns::HoleCount(pixels, connectivity)};
}

/// Between double quotes, which are doubled in it, if it has what separates fields or lines.
std::string quoted(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == text.npos) {
        return text;
    }
    std::string field = "\"";
    for (const char letter : text) {
        field.append(letter == '"' ? 2 : 1, letter);
    }
    return field + "\"";
}

std::string field_of(const TableRow& row, const std::string& column)
{
    const auto value = row.find(column);
    if (value == row.end() || value->is_null()) {
        return {};
    }
    return value->is_string() ? quoted(value->get<std::string>()) : value->dump();
}

void append_line(std::string& text, const std::vector<std::string>& fields)
{
    fmt::format_to(std::back_inserter(text), "{}\n", fmt::join(fields, ","));
}

} // namespace

void append_measures(TableRow& row, const KivRunSet& pixels, KivRuns::Connectivity connectivity)
{
    std::optional<Facts> facts;
    if (!pixels.Empty()) {
        facts = facts_of(pixels, connectivity);
    }
    for (const MeasureColumn& column : measure_columns) {
        row[column.name] = facts ? column.value(*facts) : column.counts ? Value(0) : Value();
    }
}

std::vector<std::string> measure_names()
{
    std::vector<std::string> names;
    std::transform(std::begin(measure_columns), std::end(measure_columns), std::back_inserter(names),
                   [](const MeasureColumn& column) { return column.name; });
    return names;
}

// By hand, as Debian's libcsv would quote every field.
std::string table_as_csv(const std::vector<std::string>& names, const Rows& rows)
{
    std::vector<std::string> all = names;
    const std::vector<std::string> measures = measure_names();
    all.insert(all.end(), measures.begin(), measures.end());
    std::string text;
    append_line(text, all);
    for (const TableRow& row : rows) {
        std::vector<std::string> fields;
        std::transform(all.begin(), all.end(), std::back_inserter(fields),
                       [&row](const std::string& column) { return field_of(row, column); });
        append_line(text, fields);
    }
    return text;
}

} // namespace kivconvert
