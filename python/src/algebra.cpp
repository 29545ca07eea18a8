// SPDX-License-Identifier: MIT
#include "arguments.h"
#include "arrays.h"
#include "modules.h"

#include <KivRLC/KivRunLists.h>

#include <nanobind/operators.h>
#include <nanobind/stl/vector.h>

#include <memory>
#include <utility>
#include <vector>

namespace
{

using namespace kivpython;
using nb::literals::operator""_a;
using ReleaseGil = nb::call_guard<nb::gil_scoped_release>;

void make_set(KivRunSet* place, nb::handle runs)
{
    const std::vector<Run> list = runs_of(runs);
    const nb::gil_scoped_release release;
    new (place) KivRunSet(list);
}

KivRunSet union_of(nb::handle sets)
{
    const std::vector<KivRunSet> operands = sets_of(sets);
    const nb::gil_scoped_release release;
    return KivRunSet::Union(operands);
}

nb::tuple pixels_of(const KivRunSet& set)
{
    std::vector<int> columns;
    std::vector<int> rows;
    {
        const nb::gil_scoped_release release;
        KivRuns::AppendPixels(set.Runs(), columns, rows);
    }
    return nb::make_tuple(array_of(std::move(rows)), array_of(std::move(columns)));
}

bool contains(const KivRunSet& set, nb::handle pixel)
{
    const Pair place = pair_of(pixel, "a pixel must be a pair (row, column)");
    return set.Contains(place.second, place.first);
}

bool is_proper_subset(const KivRunSet& a, const KivRunSet& b)
{
    return a.IsSubsetOf(b) && a != b;
}

} // namespace

void kivpython::bind_algebra(RunSetClass& set)
{
    set.def("__init__", make_set, "runs"_a = nb::tuple(),
            nb::sig("def __init__(self, runs: numpy.typing.ArrayLike = ()) -> None"),
            R"(The pixels that any of the runs covers.

Each run is a row, the first column and the last one, which is included. Runs may come in any order, overlap, touch and
repeat; one whose first column lies past its last one covers nothing. ``runs`` is an array of three columns of any
whole-number type, or anything that numpy.asarray makes one of.

Raises TypeError if the numbers are not whole, ValueError if they are not three to a run or beyond 32 bits.)");
    set.def_prop_ro("area", &KivRunSet::Area, "Number of pixels.");
    set.def_prop_ro(
        "n_runs", [](const KivRunSet& a) { return a.Runs().size(); }, "Number of runs.");
    set.def_prop_ro(
        "runs", runs_view, nb::sig("def runs(self) -> numpy.typing.NDArray[numpy.int32]"),
        R"(The runs as a read-only array of shape (n_runs, 3), without a copy: row, first column, last column.

Rows ascend, and within a row columns do; at least one pixel that does not belong separates two runs of a row.)");
    set.def("pixels", pixels_of,
            nb::sig("def pixels(self) -> tuple[numpy.typing.NDArray[numpy.int32], numpy.typing.NDArray[numpy.int32]]"),
            R"(The rows and the columns of all pixels, as numpy.nonzero() gives them of a mask.

``image[a.pixels()]`` are the values of an image at the pixels, row by row and from left to right. Pixels must lie in the
image then: negative rows and columns count from its ends.)");
    set.def(
        "runs_of_row", [](const KivRunSet& a, int row) { return KivRunSet(a.RunsOfRow(row)); }, "row"_a,
        "The pixels of one row, as a set. Found by binary search.");

    set.def(
        "__or__", [](const KivRunSet& a, const KivRunSet& b) { return a | b; }, nb::is_operator(), ReleaseGil(),
        "Union: the pixels of any of them.");
    set.def(
        "__and__", [](const KivRunSet& a, const KivRunSet& b) { return a & b; }, nb::is_operator(), ReleaseGil(),
        "Intersection: the pixels of both.");
    set.def(
        "__sub__", [](const KivRunSet& a, const KivRunSet& b) { return a - b; }, nb::is_operator(), ReleaseGil(),
        "Difference: the pixels of the first that the second has not.");
    set.def(
        "__xor__", [](const KivRunSet& a, const KivRunSet& b) { return a ^ b; }, nb::is_operator(), ReleaseGil(),
        "Symmetric difference: the pixels of one of them only.");
    set.def(
        "__eq__", [](const KivRunSet& a, const KivRunSet& b) { return a == b; }, nb::is_operator(), ReleaseGil(),
        nb::sig("def __eq__(self, other: object, /) -> bool"), "Whether both have the same pixels.");
    set.def(
        "__le__", [](const KivRunSet& a, const KivRunSet& b) { return a.IsSubsetOf(b); }, nb::is_operator(),
        ReleaseGil(), "Whether the other set has all pixels of this one.");
    set.def(
        "__ge__", [](const KivRunSet& a, const KivRunSet& b) { return b.IsSubsetOf(a); }, nb::is_operator(),
        ReleaseGil(), "Whether this set has all pixels of the other one.");
    set.def("__lt__", is_proper_subset, nb::is_operator(), ReleaseGil(), "Whether it is a subset, and not equal.");
    set.def(
        "__gt__", [](const KivRunSet& a, const KivRunSet& b) { return is_proper_subset(b, a); }, nb::is_operator(),
        ReleaseGil(), "Whether the other one is a subset, and not equal.");
    set.def("__contains__", contains, "pixel"_a, nb::sig("def __contains__(self, pixel: tuple[int, int], /) -> bool"),
            "Whether pixel (row, column) belongs to the set. Found by binary search.");
    set.def(
        "__bool__", [](const KivRunSet& a) { return !a.Empty(); }, "Whether the set has any pixels.");

    set.def_static("union", union_of, "sets"_a, nb::sig("def union(sets: collections.abc.Iterable[RunSet]) -> RunSet"),
                   "The pixels of any of the sets: linear in all runs, times the logarithm of the number of sets.");
    set.def_static(
        "from_polygons",
        [](nb::handle rings, nb::handle shape, nb::handle rule, nb::handle pixel_center) {
            return nb::module_::import_("kivdataconvert._family")
                .attr("_set_of_polygons")(rings, shape, rule, pixel_center);
        },
        "rings"_a, "shape"_a, nb::kw_only(), "rule"_a = "even-odd", "pixel_center"_a = 0.0,
        nb::sig("def from_polygons(rings: collections.abc.Iterable[numpy.typing.ArrayLike], shape: tuple[int, int], *, "
                "rule: str = 'even-odd', pixel_center: float = 0.0) -> RunSet"),
        R"(The pixels of an image of the shape (height, width) whose centres lie inside of polygons or on their edges.

A ring is an array of corners (x, y), or flat: x, y, x, y, ... Holes are rings, too. By the rule "even-odd" a point is inside
that an odd number of rings goes round, by "non-zero" one that they go round one way more often than the other. The centre
of pixel (row, col) is the point (col + pixel_center, row + pixel_center): 0 where corners are centres of pixels, 0.5 where
they lie on their edges, as those of ``outlines()`` and of COCO do.

Raises ValueError for coordinates that are not finite and arrays that are no points.)");
    set.def_static(
        "from_box",
        [](nb::handle box) {
            const KivRunBox b = box_of(box);
            const nb::gil_scoped_release release;
            return KivRunSet::FromBox(b);
        },
        "box"_a, nb::sig("def from_box(box: BoxLike) -> RunSet"),
        "The pixels of a box, or of an image of the shape (height, width).");
    set.def(
        "complement",
        [](const KivRunSet& a, nb::handle box) {
            const KivRunBox b = box_of(box);
            const nb::gil_scoped_release release;
            return a.Complement(b);
        },
        "box"_a, nb::sig("def complement(self, box: BoxLike) -> RunSet"),
        "The pixels of the box, or of an image of the shape (height, width), that do not belong to the set.");
    set.def("intersects", &KivRunSet::Intersects, "other"_a, ReleaseGil(), "Whether any pixel belongs to both.");
    set.def("intersection_area", &KivRunSet::IntersectionArea, "other"_a, ReleaseGil(),
            "The number of pixels of both, without making the set.");
    set.def("union_area", &KivRunSet::UnionArea, "other"_a, ReleaseGil(),
            "The number of pixels of any of them, without making the set.");
    set.def("iou", &KivRunSet::IntersectionOverUnion, "other"_a, ReleaseGil(),
            "Intersection over union, from 0 to 1; 1 for two empty sets.");
}
