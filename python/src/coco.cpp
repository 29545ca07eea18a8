// SPDX-License-Identifier: MIT
#include "arguments.h"
#include "arrays.h"
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

/// Run lengths, column by column, of a frame; not checked yet.
struct CocoMask {
    std::vector<std::int64_t> counts;
    Frame frame;
};

std::vector<std::int64_t> counts_of_text(std::string_view text)
{
    const nb::gil_scoped_release release;
    return KivRuns::CocoCountsFromText(text);
}

std::vector<std::int64_t> counts_of_list(nb::handle counts)
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
    return list;
}

std::vector<std::int64_t> counts_of(nb::handle counts)
{
    if (nb::isinstance<nb::str>(counts)) {
        return counts_of_text(nb::cast<std::string>(counts));
    }
    if (nb::isinstance<nb::bytes>(counts)) {
        const auto bytes = nb::borrow<nb::bytes>(counts);
        return counts_of_text(std::string_view(bytes.c_str(), bytes.size()));
    }
    if (!nb::hasattr(counts, "__iter__")) {
        throw nb::type_error(
            ("a COCO mask must be a dict, str, bytes or a list of counts, not " + name_of_type(counts)).c_str());
    }
    return counts_of_list(counts);
}

CocoMask coco_mask_of(nb::handle mask, nb::handle shape)
{
    if (nb::isinstance<nb::dict>(mask)) {
        if (!shape.is_none()) {
            throw nb::type_error("a dict has its size; shape must be left out");
        }
        const auto fields = nb::borrow<nb::dict>(mask);
        if (!fields.contains("counts") || !fields.contains("size")) {
            throw nb::value_error("a COCO mask must have the keys 'size' and 'counts'");
        }
        return coco_mask_of(fields["counts"], fields["size"]);
    }
    if (shape.is_none()) {
        throw nb::type_error("counts without a size need a shape (height, width)");
    }
    const Frame frame = frame_of(shape);
    return {counts_of(mask), frame};
}

KivRunSet from_coco(nb::handle mask, nb::handle shape)
{
    const CocoMask coco = coco_mask_of(mask, shape);
    const nb::gil_scoped_release release;
    return KivRuns::FromCocoCounts(coco.counts, coco.frame.width, coco.frame.height);
}

nb::object coco_to_mask(nb::handle mask, nb::handle shape)
{
    const CocoMask coco = coco_mask_of(mask, shape);
    nb::object pixels = empty(coco.frame, "bool", "F");
    const Buffer buffer(pixels, "mask", Buffer::Access::Write);
    const nb::gil_scoped_release release;
    KivRuns::PaintCocoCounts(coco.counts, buffer.Columns<std::uint8_t>(), 1, 0);
    return pixels;
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

void kivpython::bind_coco(nb::module_& module, RunSetClass& set)
{
    module.def("coco_to_mask", coco_to_mask, "mask"_a, "shape"_a = nb::none(),
               nb::sig("def coco_to_mask(mask: collections.abc.Mapping[str, typing.Any] | str | bytes | "
                       "collections.abc.Iterable[int], shape: tuple[int, int] | None = None) -> "
                       "numpy.typing.NDArray[numpy.bool]"),
               R"(The mask of bool of a run-length mask, for which ``RunSet.from_coco`` and its errors stand.

The pixels are in memory by columns, as the counts are, so that no run set is made. (``RunSet.to_mask`` gives masks by rows.))");
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
