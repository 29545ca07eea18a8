// SPDX-License-Identifier: MIT
#include "arrays.h"
#include "modules.h"

#include <KivRLC/KivRunBorders.h>
#include <KivRLC/KivRunOutlines.h>

namespace
{

using namespace kivpython;

// One list for each component: its outer ring, then those of its holes. `rings` have begin, end and outer.
template <class Rings, class Points>
nb::list grouped(const Rings& rings, const Points& points)
{
    std::vector<nb::list> components(rings.size());
    nb::list all;
    for (std::size_t i = 0; i < rings.size(); ++i) {
        if (rings[i].outer == i) {
            all.append(components[i]);
        }
        components[rings[i].outer].append(
            array_of_points<std::int32_t>(points.data() + rings[i].begin, rings[i].end - rings[i].begin));
    }
    return all;
}

nb::list outlines(const KivRunSet& set)
{
    KivRuns::Outlines found;
    {
        const nb::gil_scoped_release release;
        found = KivRuns::OutlinesOf(set);
    }
    return grouped(found.rings, found.corners);
}

nb::list borders(const KivRunSet& set)
{
    KivRunBorders found;
    {
        const nb::gil_scoped_release release;
        found = KivRunBorders::Of(set.Runs());
    }
    return grouped(found.borders, found.points);
}

} // namespace

void kivpython::bind_outlines(RunSetClass& set)
{
    set.def(
        "outlines", outlines, nb::sig("def outlines(self) -> list[list[numpy.typing.NDArray[numpy.int32]]]"),
        R"(The border along the edges of the pixels: for each component that edges connect, its outer ring, then its holes'.

A ring is an array of corners (x, y), not repeated at the end. Pixel (row, col) is the square from (x=col, y=row) to
(col + 1, row + 1). No ring touches itself, so each component is a valid polygon with holes.)");
    set.def(
        "borders", borders, nb::sig("def borders(self) -> list[list[numpy.typing.NDArray[numpy.int32]]]"),
        R"(The border through the centres of the pixels along the edge: for each component that edges or corners connect, its
outer border, then its holes'.

A border is an array of pixels (x, y), each a neighbour of the one before: what cv2.findContours gives with RETR_CCOMP
and CHAIN_APPROX_NONE.)");
}
