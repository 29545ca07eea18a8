// SPDX-License-Identifier: MIT
// What makes a run set a value of Python: hashing, printing, pickling, its size, and its picture in notebooks.
#include "arguments.h"
#include "arrays.h"
#include "modules.h"

#include <KivRLC/KivRunMeasures.h>

#include <nanobind/stl/string.h>

#include <cstring>
#include <string>
#include <vector>

namespace
{

using namespace kivpython;
using nb::literals::operator""_a;

// FNV-1a over the coordinates, a word at a time.
Py_hash_t hash_of(const KivRunSet& set)
{
    std::uint64_t hash = 14695981039346656037U;
    for (const Run& run : set.Runs()) {
        for (const int coordinate : {run.row, run.colBegin, run.colEnd}) {
            hash = (hash ^ static_cast<std::uint32_t>(coordinate)) * 1099511628211U;
        }
    }
    const auto folded = static_cast<Py_hash_t>(hash ^ (hash >> 32U));
    return folded == -1 ? -2 : folded;
}

std::string text_of(const KivRunSet& set)
{
    if (set.Empty()) {
        return "RunSet(empty)";
    }
    const KivRunBox box = KivRuns::BoundingBox(set);
    const auto counted = [](std::int64_t count, const char* unit) {
        return std::to_string(count) + ' ' + unit + (count == 1 ? "" : "s");
    };
    return "RunSet(" + counted(set.Area(), "pixel") + ", " +
           counted(static_cast<std::int64_t>(set.Runs().size()), "run") + ", rows " + std::to_string(box.rowBegin) +
           " to " + std::to_string(box.rowEnd) + ", columns " + std::to_string(box.colBegin) + " to " +
           std::to_string(box.colEnd) + ")";
}

// The runs as bytes: in the machine's order, as the pickle of an array is.
nb::object reduced(nb::handle self, int protocol)
{
    const nb::object runs = runs_view(self);
    const nb::object bytes =
        protocol >= 5 ? nb::module_::import_("pickle").attr("PickleBuffer")(runs) : nb::object(runs.attr("tobytes")());
    const nb::object unpickle = nb::module_::import_("kivdataconvert._pickle").attr("run_set_1");
    return nb::make_tuple(unpickle, nb::make_tuple(bytes));
}

KivRunSet set_of_bytes(nb::handle bytes)
{
    Py_buffer view;
    if (PyObject_GetBuffer(bytes.ptr(), &view, PyBUF_SIMPLE) != 0) {
        throw nb::python_error();
    }
    const auto size = static_cast<std::size_t>(view.len);
    std::vector<Run> runs(size / sizeof(Run));
    if (!runs.empty()) {
        std::memcpy(runs.data(), view.buf, runs.size() * sizeof(Run));
    }
    PyBuffer_Release(&view);
    const std::string fault =
        size % sizeof(Run) != 0 ? "a pickled RunSet has a part of a run" : KivRunSet::WhyNotCanonical(runs);
    if (!fault.empty()) {
        throw nb::value_error(fault.c_str());
    }
    return KivRunSet(runs);
}

} // namespace

void kivpython::bind_python_protocols(nb::module_& module, RunSetClass& set)
{
    module.def("_set_of_bytes", set_of_bytes, "runs"_a, nb::sig("def _set_of_bytes(runs: typing.Any) -> RunSet"),
               "The set of a pickle, whose runs are checked.");
    set.def("__hash__", hash_of);
    set.def("__repr__", text_of);
    set.def("__reduce_ex__", reduced, "protocol"_a,
            nb::sig("def __reduce_ex__(self, protocol: typing.SupportsIndex, /) -> tuple[typing.Any, ...]"));
    set.def(
        "__sizeof__",
        [](nb::handle self) {
            const auto instance = nb::cast<std::size_t>(self.type().attr("__basicsize__"));
            return instance + nb::cast<const KivRunSet&>(self).Runs().size() * sizeof(Run);
        },
        nb::sig("def __sizeof__(self) -> int"), "Bytes in memory, the runs included.");
    set.def(
        "__copy__", [](nb::handle self) { return nb::borrow(self); }, nb::sig("def __copy__(self) -> RunSet"));
    set.def(
        "__deepcopy__", [](nb::handle self, nb::handle) { return nb::borrow(self); }, "memo"_a,
        nb::sig("def __deepcopy__(self, memo: typing.Any, /) -> RunSet"));
    set.def(
        "_repr_png_", [](nb::handle self) { return nb::module_::import_("kivdataconvert._display").attr("png")(self); },
        nb::sig("def _repr_png_(self) -> bytes | None"), "A picture for notebooks, at most 300 pixels wide and high.");
}
