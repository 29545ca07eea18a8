// SPDX-License-Identifier: MIT
#include "arguments.h"
#include "arrays.h"
#include "modules.h"

#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunMeasures.h>

#include <cstdint>
#include <vector>

namespace
{

using namespace kivpython;
using nb::literals::operator""_a;

// What a row of measures is computed from.
struct Row {
    KivRuns::Measures measures;
    KivRuns::Ellipse ellipse;
    KivRuns::FeretDiameters feret;
    std::int64_t holes;
};

template <class Source, class Value>
struct Column {
    const char* name;
    Value (*value)(const Source&);
};

constexpr Column<Row, std::int64_t> int_columns[] = {
    {"area", [](const Row& row) { return row.measures.moments.area; }},
    {"left", [](const Row& row) { return std::int64_t{row.measures.box.colBegin}; }},
    {"top", [](const Row& row) { return std::int64_t{row.measures.box.rowBegin}; }},
    {"right", [](const Row& row) { return std::int64_t{row.measures.box.colEnd}; }},
    {"bottom", [](const Row& row) { return std::int64_t{row.measures.box.rowEnd}; }},
    {"edge_perimeter", [](const Row& row) { return row.measures.edgePerimeter; }},
    {"euler_number", [](const Row& row) { return row.measures.eulerNumber; }},
    {"holes", [](const Row& row) { return row.holes; }},
};

constexpr Column<Row, double> real_columns[] = {
    {"centroid_x", [](const Row& row) { return row.measures.moments.centroid.x; }},
    {"centroid_y", [](const Row& row) { return row.measures.moments.centroid.y; }},
    {"moment_xx", [](const Row& row) { return row.measures.moments.xx; }},
    {"moment_xy", [](const Row& row) { return row.measures.moments.xy; }},
    {"moment_yy", [](const Row& row) { return row.measures.moments.yy; }},
    {"orientation", [](const Row& row) { return row.ellipse.angle; }},
    {"major_axis", [](const Row& row) { return row.ellipse.majorAxis; }},
    {"minor_axis", [](const Row& row) { return row.ellipse.minorAxis; }},
    {"crofton_perimeter", [](const Row& row) { return row.measures.croftonPerimeter; }},
    {"feret_max", [](const Row& row) { return row.feret.largest; }},
    {"feret_min", [](const Row& row) { return row.feret.smallest; }},
};

using KivRuns::ComponentSummary;

constexpr Column<ComponentSummary, std::int64_t> summary_int_columns[] = {
    {"area", [](const ComponentSummary& part) { return part.area; }},
    {"left", [](const ComponentSummary& part) { return std::int64_t{part.box.colBegin}; }},
    {"top", [](const ComponentSummary& part) { return std::int64_t{part.box.rowBegin}; }},
    {"right", [](const ComponentSummary& part) { return std::int64_t{part.box.colEnd}; }},
    {"bottom", [](const ComponentSummary& part) { return std::int64_t{part.box.rowEnd}; }},
};

constexpr Column<ComponentSummary, double> summary_real_columns[] = {
    {"centroid_x", [](const ComponentSummary& part) { return part.centroid.x; }},
    {"centroid_y", [](const ComponentSummary& part) { return part.centroid.y; }},
};

Row row_of(const KivRunSet& set, const KivRuns::Measures& measures, std::int64_t holes)
{
    return {measures, KivRuns::EllipseOf(measures.moments), KivRuns::FeretDiametersOf(set), holes};
}

// Adds the values of all rows, by column.
template <class Source, class Value, std::size_t Count>
void add_columns(nb::dict& table, const Column<Source, Value> (&columns)[Count], const std::vector<Source>& rows)
{
    for (const Column<Source, Value>& column : columns) {
        std::vector<Value> values;
        values.reserve(rows.size());
        for (const Source& row : rows) {
            values.push_back(column.value(row));
        }
        table[column.name] = array_of(std::move(values));
    }
}

nb::object measured(const KivRunSet& set, int connectivity)
{
    const KivRuns::Connectivity neighbours = connectivity_of(connectivity);
    Row row{};
    {
        const nb::gil_scoped_release release;
        row = row_of(set, KivRuns::Measure(set, neighbours), KivRuns::HoleCount(set, neighbours));
    }
    nb::dict fields;
    for (const auto& column : int_columns) {
        fields[column.name] = column.value(row);
    }
    for (const auto& column : real_columns) {
        fields[column.name] = column.value(row);
    }
    static const nb::handle type = type_of_package("Measures");
    return type(**fields);
}

nb::dict measured_components(const KivRunSet& set, int connectivity)
{
    const KivRuns::Connectivity neighbours = connectivity_of(connectivity);
    std::vector<Row> rows;
    {
        const nb::gil_scoped_release release;
        const std::vector<KivRunSet> components = KivRuns::Components(set, neighbours);
        const std::vector<KivRuns::Measures> measures = KivRuns::MeasureComponents(set, neighbours);
        rows.reserve(components.size());
        for (std::size_t i = 0; i < components.size(); ++i) {
            rows.push_back(row_of(components[i], measures[i], 1 - measures[i].eulerNumber));
        }
    }
    nb::dict table;
    add_columns(table, int_columns, rows);
    add_columns(table, real_columns, rows);
    return table;
}

nb::dict summarized_components(const KivRunSet& set, int connectivity)
{
    const KivRuns::Connectivity neighbours = connectivity_of(connectivity);
    std::vector<ComponentSummary> parts;
    {
        const nb::gil_scoped_release release;
        parts = KivRuns::SummarizeComponents(set, neighbours);
    }
    nb::dict table;
    add_columns(table, summary_int_columns, parts);
    add_columns(table, summary_real_columns, parts);
    return table;
}

nb::object corners_of(const std::vector<KivRuns::Place>& corners)
{
    return array_of_points<double>(corners.data(), corners.size());
}

} // namespace

void kivpython::bind_measures(RunSetClass& set)
{
    set.def_prop_ro(
        "box", [](const KivRunSet& s) { return python_box(KivRuns::BoundingBox(s)); }, nb::sig("def box(self) -> Box"),
        "The smallest Box that has all pixels. Raises ValueError if there are none.");
    set.def_prop_ro(
        "centroid",
        [](const KivRunSet& s) {
            const KivRuns::Place place = KivRuns::Centroid(s);
            return nb::make_tuple(place.x, place.y);
        },
        nb::sig("def centroid(self) -> tuple[float, float]"),
        "The mean (x, y) of the pixels. Raises ValueError if there are none.");
    set.def(
        "euler_number",
        [](const KivRunSet& s, int connectivity) { return KivRuns::EulerNumber(s, connectivity_of(connectivity)); },
        "connectivity"_a = 8, "Components minus holes.");
    set.def("measure", measured, "connectivity"_a = 8, nb::sig("def measure(self, connectivity: int = 8) -> Measures"),
            "All measures of the set. Raises ValueError if it has no pixels.");
    set.def(
        "measure_components", measured_components, "connectivity"_a = 8,
        nb::sig("def measure_components(self, connectivity: int = 8) -> dict[str, numpy.typing.NDArray[typing.Any]]"),
        R"(The measures of all components, in their order: an array for each field of Measures, by its name.

``pandas.DataFrame(set.measure_components())`` is a table of them.)");
    set.def(
        "summarize_components", summarized_components, "connectivity"_a = 8,
        nb::sig("def summarize_components(self, connectivity: int = 8) -> dict[str, numpy.typing.NDArray[typing.Any]]"),
        "Area, box and centroid of all components, which costs less than all measures: those columns of "
        "``measure_components``.");
    set.def(
        "convex_hull", [](const KivRunSet& s) { return corners_of(KivRuns::ConvexHull(s)); },
        nb::sig("def convex_hull(self) -> numpy.typing.NDArray[numpy.float64]"),
        "The corners (x, y) of the smallest convex polygon around the pixels' squares, as an array of shape (n, 2).");
}
