// SPDX-License-Identifier: MIT
#include "modules.h"

#include <KivRLC/KivRunMorphology.h>

void kivpython::bind_morphology(nb::module_& module, RunSetClass& set)
{
    using KivRuns::Element;
    using nb::literals::operator""_a;
    using ReleaseGil = nb::call_guard<nb::gil_scoped_release>;
    nb::class_<Element> element(
        module, "Element", nb::is_final(),
        "A structuring element, prepared for use; a RunSet about its origin (0, 0) is one, too.");
    element.def(nb::init<const KivRunSet&>(), "pixels"_a,
                "Any set; its origin is pixel (0, 0), which need not belong to it.");
    element.def_static(
        "rectangle", [](int rows, int cols) { return Element::Rectangle(cols, rows); }, "rows"_a, "cols"_a,
        "A rectangle about its centre; where a size is even, the origin is the lower or right one of the two in the "
        "middle.");
    element.def_static("disk", &Element::Disk, "radius"_a,
                       "The pixels at most ``radius`` from the origin; 0 to 2**30.");
    nb::implicitly_convertible<KivRunSet, Element>();
    set.def("dilate", &KivRuns::Dilate, "element"_a, ReleaseGil(),
            nb::sig("def dilate(self, element: Element | RunSet) -> RunSet"),
            "The union of copies of the element, with the origin at each pixel of the set.");
    set.def("erode", &KivRuns::Erode, "element"_a, ReleaseGil(),
            nb::sig("def erode(self, element: Element | RunSet) -> RunSet"),
            "The places where the element fits into the set. Raises ValueError if the element is empty.");
    set.def("open", &KivRuns::Open, "element"_a, ReleaseGil(),
            nb::sig("def open(self, element: Element | RunSet) -> RunSet"),
            "The union of all copies of the element that fit into the set.");
    set.def("close", &KivRuns::Close, "element"_a, ReleaseGil(),
            nb::sig("def close(self, element: Element | RunSet) -> RunSet"),
            "The places where the element fits into the dilation of the set.");
    set.def("gradient", &KivRuns::Gradient, "element"_a, ReleaseGil(),
            nb::sig("def gradient(self, element: Element | RunSet) -> RunSet"), "The dilation without the erosion.");
}
