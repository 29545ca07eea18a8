// SPDX-License-Identifier: MIT
#include "arguments.h"
#include "modules.h"

#include <KivRLC/KivRunTransforms.h>

namespace
{

using namespace kivpython;
using nb::literals::operator""_a;
using KivRuns::BlockRule;

// A transform within a box, which other threads can run beside.
template <KivRunSet (*transform)(const KivRunSet&, const KivRunBox&)>
KivRunSet in_box(const KivRunSet& set, nb::handle box)
{
    const KivRunBox within = box_of(box);
    const nb::gil_scoped_release release;
    return transform(set, within);
}

KivRunSet turned(const KivRunSet& set, int quarters, nb::handle box)
{
    const KivRunBox within = box_of(box);
    const nb::gil_scoped_release release;
    return KivRuns::Turn(set, quarters, within);
}

} // namespace

void kivpython::bind_transforms(nb::module_& module, RunSetClass& set)
{
    using ReleaseGil = nb::call_guard<nb::gil_scoped_release>;
    nb::enum_<BlockRule>(module, "BlockRule", "Which blocks of pixels become a pixel.")
        .value("ANY", BlockRule::Any, "Those with any pixel of the set.")
        .value("MOST", BlockRule::Most, "Those of whose pixels more than half belong to the set.")
        .value("ALL", BlockRule::All, "Those all of whose pixels belong to the set.");
    set.def(
        "translate", [](const KivRunSet& s, int rows, int cols) { return KivRuns::Translate(s, cols, rows); }, "rows"_a,
        "cols"_a, ReleaseGil(),
        "Pixel (row, col) becomes (row + rows, col + cols). Raises OverflowError beyond 32 bits.");
    set.def("flip_left_right", in_box<KivRuns::FlipLeftRight>, "box"_a,
            nb::sig("def flip_left_right(self, box: BoxLike) -> RunSet"),
            "Mirrors the columns of a box, or of an image of a shape; pixels outside are mirrored, too.");
    set.def("flip_up_down", in_box<KivRuns::FlipUpDown>, "box"_a,
            nb::sig("def flip_up_down(self, box: BoxLike) -> RunSet"),
            "Mirrors the rows of a box, or of an image of a shape; pixels outside are mirrored, too.");
    set.def("turn", turned, "quarters"_a, "box"_a, nb::sig("def turn(self, quarters: int, box: BoxLike) -> RunSet"),
            "Turns a box, or an image of a shape, clockwise by quarters of a circle; its upper left corner stays in "
            "place.");
    set.def("transpose", &KivRuns::Transpose, ReleaseGil(), "Pixel (row, col) becomes (col, row).");
    set.def("crop", in_box<KivRuns::Crop>, "box"_a, nb::sig("def crop(self, box: BoxLike) -> RunSet"),
            "The pixels in a box, or in an image of a shape.");
    set.def(
        "scale_up", [](const KivRunSet& s, int rows, int cols) { return KivRuns::ScaleUp(s, cols, rows); }, "rows"_a,
        "cols"_a, ReleaseGil(),
        "Every pixel becomes a block of rows x cols pixels. Raises ValueError if a factor is below 1.");
    set.def(
        "scale_down",
        [](const KivRunSet& s, int rows, int cols, BlockRule rule) { return KivRuns::ScaleDown(s, cols, rows, rule); },
        "rows"_a, "cols"_a, "rule"_a, ReleaseGil(),
        "Blocks of rows x cols pixels become one pixel each, or none. Raises ValueError if a factor is below 1.");
}
