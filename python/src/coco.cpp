// SPDX-License-Identifier: MIT
#include "arguments.h"
#include "modules.h"

#include <KivRLC/KivRunCoco.h>

#include <nanobind/stl/string.h>
#include <nanobind/stl/vector.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using namespace kivpython;
using nb::literals::operator""_a;

KivRunSet set_of_text(std::string_view text, const Frame& frame)
{
    const nb::gil_scoped_release release;
    return KivRuns::FromCocoText(text, frame.width, frame.height);
}

KivRunSet set_of_counts(nb::handle counts, const Frame& frame)
{
    std::vector<std::int64_t> list;
    for (const nb::handle count : nb::iter(counts)) {
        const nb::object index = nb::steal(PyNumber_Index(count.ptr()));
        if (!index.is_valid()) {
            PyErr_Clear();
            throw nb::type_error(("counts must be ints, not " + name_of_type(count)).c_str());
        }
        int overflow = 0;
        list.push_back(PyLong_AsLongLongAndOverflow(index.ptr(), &overflow));
        if (overflow != 0) {
            throw nb::value_error("a count is beyond 64 bits");
        }
    }
    const nb::gil_scoped_release release;
    return KivRuns::FromCocoCounts(list, frame.width, frame.height);
}

KivRunSet from_coco(nb::handle mask, nb::handle shape)
{
    if (nb::isinstance<nb::dict>(mask)) {
        if (!shape.is_none()) {
            throw nb::type_error("a dict has its size; shape must be left out");
        }
        const auto fields = nb::borrow<nb::dict>(mask);
        if (!fields.contains("counts") || !fields.contains("size")) {
            throw nb::value_error("a COCO mask must have the keys 'size' and 'counts'");
        }
        return from_coco(fields["counts"], fields["size"]);
    }
    if (shape.is_none()) {
        throw nb::type_error("counts without a size need a shape (height, width)");
    }
    const Frame frame = frame_of(shape);
    if (nb::isinstance<nb::str>(mask)) {
        return set_of_text(nb::cast<std::string>(mask), frame);
    }
    if (nb::isinstance<nb::bytes>(mask)) {
        const auto bytes = nb::borrow<nb::bytes>(mask);
        return set_of_text(std::string_view(bytes.c_str(), bytes.size()), frame);
    }
    if (!nb::hasattr(mask, "__iter__")) {
        throw nb::type_error(
            ("a COCO mask must be a dict, str, bytes or a list of counts, not " + name_of_type(mask)).c_str());
    }
    return set_of_counts(mask, frame);
}

nb::dict to_coco(const KivRunSet& set, nb::handle shape, bool packed)
{
    const Frame frame = frame_of(shape);
    std::string text;
    std::vector<std::int64_t> counts;
    {
        const nb::gil_scoped_release release;
        if (packed) {
            text = KivRuns::ToCocoText(set, frame.width, frame.height);
        } else {
            counts = KivRuns::ToCocoCounts(set, frame.width, frame.height);
        }
    }
    nb::list size;
    size.append(frame.height);
    size.append(frame.width);
    nb::dict mask;
    mask["size"] = size;
    mask["counts"] = packed ? nb::object(nb::str(text.c_str(), text.size())) : nb::cast(counts);
    return mask;
}

} // namespace

void kivpython::bind_coco(RunSetClass& set)
{
    set.def_static("from_coco", from_coco, "mask"_a, "shape"_a = nb::none(),
                   nb::sig("def from_coco(mask: collections.abc.Mapping[str, typing.Any] | str | bytes | "
                           "collections.abc.Iterable[int], shape: tuple[int, int] | None = None) -> RunSet"),
                   R"(The set of a run-length mask as COCO's data sets have it.

``mask`` is a dict with "size", (height, width), and "counts"; or the counts alone, and then their ``shape`` must be
given. Counts are packed (str or bytes) or a list of ints. They are checked before anything is allocated for runs.

Raises ValueError if the counts do not add up to the frame, are malformed or negative; TypeError if ``mask`` is nothing of
that kind.)");
    set.def("to_coco", to_coco, "shape"_a, nb::kw_only(), "packed"_a = true,
            nb::sig("def to_coco(self, shape: tuple[int, int], *, packed: bool = True) -> dict[str, typing.Any]"),
            R"(The dict {"size": [height, width], "counts": ...} of the set's pixels in an image of that shape.

The counts are a str, or with ``packed=False`` a list of ints; json.dumps takes both. Pixels outside are left out.)");
}
