// SPDX-License-Identifier: MIT
#include "arguments.h"
#include "arrays.h"
#include "modules.h"

#include <KivRLC/KivRunComponents.h>

#include <nanobind/stl/vector.h>

#include <nanobind/stl/optional.h>
#include <optional>

namespace
{

using namespace kivpython;
using nb::literals::operator""_a;

// A function of a set and a connectivity, which other threads can run beside.
template <auto function>
auto connected(const KivRunSet& set, int connectivity)
{
    const KivRuns::Connectivity neighbours = connectivity_of(connectivity);
    const nb::gil_scoped_release release;
    return function(set, neighbours);
}

// The same, up to an area.
template <auto function>
KivRunSet up_to_area(const KivRunSet& set, std::optional<std::int64_t> max_area, int connectivity)
{
    const KivRuns::Connectivity neighbours = connectivity_of(connectivity);
    const nb::gil_scoped_release release;
    return function(set, neighbours, max_area.value_or(KivRuns::AnyArea));
}

KivRunSet by_area(const KivRunSet& set, std::int64_t min_area, std::optional<std::int64_t> max_area, int connectivity)
{
    const KivRuns::Connectivity neighbours = connectivity_of(connectivity);
    const nb::gil_scoped_release release;
    return KivRuns::ComponentsByArea(set, neighbours, min_area, max_area.value_or(KivRuns::AnyArea));
}

KivRunSet clear_border(const KivRunSet& set, nb::handle box, int connectivity)
{
    const KivRunBox within = box_of(box);
    const KivRuns::Connectivity neighbours = connectivity_of(connectivity);
    const nb::gil_scoped_release release;
    return KivRuns::WithoutBorderComponents(set, neighbours, within);
}

nb::object component_numbers(const KivRunSet& set, int connectivity)
{
    return array_of(connected<KivRuns::NumberComponents>(set, connectivity).ofRun);
}

} // namespace

void kivpython::bind_components(RunSetClass& set)
{
    set.def("components", connected<KivRuns::Components>, "connectivity"_a = 8,
            R"(The connected components as sets, in the order of their first pixels: by row, then by column.

Pixels are connected by edges (4), or by edges and corners (8).)");
    set.def("component_numbers", component_numbers, "connectivity"_a = 8,
            nb::sig("def component_numbers(self, connectivity: int = 8) -> numpy.typing.NDArray[numpy.int32]"),
            "For each run, in the order of ``runs``, which of the components it belongs to, from 0 on.");
    set.def("largest_component", connected<KivRuns::LargestComponent>, "connectivity"_a = 8,
            "The component of the largest area, the first one if several have it; empty if the set is.");
    set.def("components_by_area", by_area, "min_area"_a = 0, "max_area"_a = nb::none(), "connectivity"_a = 8,
            "The components of at least ``min_area`` and at most ``max_area`` pixels, together as one set.");
    set.def("clear_border", clear_border, "box"_a, "connectivity"_a = 8,
            nb::sig("def clear_border(self, box: BoxLike, connectivity: int = 8) -> RunSet"),
            "The set without the components that touch the border of a box, or of an image of a shape, from within.");
    set.def("holes", up_to_area<KivRuns::Holes>, "max_area"_a = nb::none(), "connectivity"_a = 8,
            "The holes of at most ``max_area`` pixels as one set. The connectivity is that of the set; holes have the "
            "other one.");
    set.def("fill_holes", up_to_area<KivRuns::FillHoles>, "max_area"_a = nb::none(), "connectivity"_a = 8,
            "The set together with its holes of at most ``max_area`` pixels.");
}
