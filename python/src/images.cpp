// SPDX-License-Identifier: MIT
#include "arguments.h"
#include "arrays.h"
#include "modules.h"

#include <KivRLC/KivRunImages.h>
#include <KivRLC/KivRunTransforms.h>

#include <nanobind/stl/vector.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace
{

using namespace kivpython;
using nb::literals::operator""_a;

// What `make` gives of an image, whatever the array's strides. Images that are dense by columns are read the other way
// round, and the set is turned; others are copied.
template <class Pixel, class Make>
KivRunSet set_of_pixels(const Buffer& buffer, Make make)
{
    const nb::gil_scoped_release release;
    if (buffer.RowsAreDense()) {
        return make(buffer.Rows<const Pixel>());
    }
    if (buffer.ColumnsAreDense()) {
        return KivRuns::Transpose(make(buffer.Columns<const Pixel>()));
    }
    const auto packed = buffer.Packed<Pixel, Pixel>([](Pixel pixel) { return pixel; });
    return make(view_of(packed, buffer.Width(), buffer.Height()));
}

KivRunSet from_mask(nb::handle mask)
{
    const Buffer buffer(mask, "mask");
    if (buffer.Kind() != '?' && buffer.Kind() != 'B') {
        buffer.RefuseKind("bool or uint8");
    }
    return set_of_pixels<std::uint8_t>(buffer, [](const auto& view) { return KivRuns::FromMask(view); });
}

template <class Pixel>
KivRunSet from_range_of(const Buffer& buffer, double least, double greatest)
{
    const std::optional<std::pair<Pixel, Pixel>> range = KivRuns::ValuesWithin<Pixel>(least, greatest);
    if (!range) {
        return {};
    }
    return set_of_pixels<Pixel>(
        buffer, [&](const auto& view) { return KivRuns::FromRange(view, range->first, range->second); });
}

KivRunSet from_range(nb::handle image, double least, double greatest)
{
    const Buffer buffer(image, "image");
    return with_pixel_type<std::uint8_t, std::uint16_t, float>(buffer, "uint8, uint16 or float32", [&](auto pixel) {
        return from_range_of<decltype(pixel)>(buffer, least, greatest);
    });
}

// Labels of other types than these are converted, if all of them fit.
template <class Label>
std::vector<KivRuns::LabelledSet> labelled_sets_of(const Buffer& buffer)
{
    const nb::gil_scoped_release release;
    if constexpr (requires(KivImageView<const Label> labels) { KivRuns::FromLabels(labels); }) {
        if (buffer.RowsAreDense()) {
            return KivRuns::FromLabels(buffer.Rows<const Label>());
        }
        const auto packed = buffer.Packed<Label, Label>([](Label label) { return label; });
        return KivRuns::FromLabels(view_of(packed, buffer.Width(), buffer.Height()));
    } else {
        const std::vector<int> ints = checked_ints<Label>(buffer);
        return KivRuns::FromLabels(view_of(ints, buffer.Width(), buffer.Height()));
    }
}

std::vector<KivRuns::LabelledSet> labelled_sets(nb::handle labels)
{
    const Buffer buffer(labels, "labels");
    return with_whole_number_type(buffer, "a whole-number type",
                                  [&](auto label) { return labelled_sets_of<decltype(label)>(buffer); });
}

nb::dict from_labels(nb::handle labels)
{
    nb::dict sets;
    for (KivRuns::LabelledSet& labelled : labelled_sets(labels)) {
        sets[nb::int_(labelled.label)] = nb::cast(std::move(labelled.set));
    }
    return sets;
}

// The part of a set that an image of the given shape shows whose first pixel is `origin`, moved so that this is (0, 0).
KivRunSet moved_part(const KivRunSet& set, const Frame& frame, const Pair& origin)
{
    if (frame.height == 0 || frame.width == 0) {
        return {};
    }
    const auto end = [](int begin, int size) {
        return static_cast<int>(std::min<std::int64_t>(std::int64_t{begin} + size - 1, INT32_MAX));
    };
    const KivRunBox box{origin.first, end(origin.first, frame.height), origin.second, end(origin.second, frame.width)};
    const KivRunSet part = KivRuns::Crop(set, box);
    // In two steps where the distance is beyond int.
    const auto halves = [](int value) { return std::pair<int, int>(-(value / 2), -(value - value / 2)); };
    const auto [row_a, row_b] = halves(origin.first);
    const auto [col_a, col_b] = halves(origin.second);
    return KivRuns::Translate(KivRuns::Translate(part, col_a, row_a), col_b, row_b);
}

// Calls `paint` with a set that has the pixels of such an image; what is painted is clipped anyway.
template <class Paint>
void with_shown(const KivRunSet& set, const Frame& frame, const Pair& origin, Paint paint)
{
    if (origin.first == 0 && origin.second == 0) {
        paint(set);
    } else {
        paint(moved_part(set, frame, origin));
    }
}

template <class Pixel>
void paint_pixels(const KivRunSet& set, const Buffer& buffer, double value, const Pair& origin)
{
    const std::optional<std::pair<Pixel, Pixel>> exact = KivRuns::ValuesWithin<Pixel>(value, value);
    if (!exact) {
        throw nb::value_error("value is none that the image's pixels can have");
    }
    const nb::gil_scoped_release release;
    with_shown(set, {buffer.Height(), buffer.Width()}, origin, [&](const KivRunSet& part) {
        if (buffer.RowsAreDense()) {
            KivRuns::Paint(part, buffer.Rows<Pixel>(), exact->first);
        } else {
            KivRuns::Paint(KivRuns::Transpose(part), buffer.Columns<Pixel>(), exact->first);
        }
    });
}

void paint(const KivRunSet& set, nb::handle image, double value, nb::handle origin)
{
    const Buffer buffer(image, "image", Buffer::Access::Write);
    const Pair first = pair_of(origin, "origin must be a pair (row, column)");
    if (!buffer.RowsAreDense() && !buffer.ColumnsAreDense()) {
        throw nb::value_error("image must be dense by rows or by columns to be painted into");
    }
    if (buffer.Kind() == '?') {
        paint_pixels<std::uint8_t>(set, buffer, value != 0 ? 1 : 0, first);
        return;
    }
    with_pixel_type<std::uint8_t, std::uint16_t, std::int32_t, float>(
        buffer, "bool, uint8, uint16, int32 or float32",
        [&](auto pixel) { paint_pixels<decltype(pixel)>(set, buffer, value, first); });
}

nb::object to_mask(const KivRunSet& set, nb::handle shape, nb::handle origin)
{
    const Frame frame = frame_of(shape);
    const Pair first = pair_of(origin, "origin must be a pair (row, column)");
    nb::object mask = empty(frame, "bool");
    const Buffer buffer(mask, "mask", Buffer::Access::Write);
    const nb::gil_scoped_release release;
    with_shown(set, frame, first,
               [&](const KivRunSet& part) { KivRuns::PaintMask(part.Runs(), buffer.Rows<std::uint8_t>(), 1, 0); });
    return mask;
}

nb::object paint_labels(nb::handle sets, nb::handle shape)
{
    const std::vector<KivRunSet> operands = sets_of(sets);
    nb::object labels = zeros(frame_of(shape), "int32");
    const Buffer buffer(labels, "labels", Buffer::Access::Write);
    const nb::gil_scoped_release release;
    KivRuns::PaintLabels(operands, buffer.Rows<std::int32_t>());
    return labels;
}

nb::object label_image(const KivRunSet& set, nb::handle shape, int connectivity)
{
    const KivRuns::Connectivity neighbours = connectivity_of(connectivity);
    nb::object labels = zeros(frame_of(shape), "int32");
    const Buffer buffer(labels, "labels", Buffer::Access::Write);
    const nb::gil_scoped_release release;
    KivRuns::PaintComponents(set, neighbours, buffer.Rows<std::int32_t>());
    return labels;
}

} // namespace

void kivpython::bind_images(nb::module_& module, RunSetClass& set)
{
    set.def_static("from_mask", from_mask, "mask"_a, nb::sig("def from_mask(mask: Buffer) -> RunSet"),
                   R"(The pixels of a two-dimensional mask that are True, or not 0.

Pixel ``mask[row, col]`` is pixel (row, col). The mask may be in any memory order and have any strides; masks that are
dense by rows or by columns are read where they are.

Raises TypeError if it is not of bool or uint8: what a pixel of another type means is for the caller to say, for instance
by ``mask > 0``. Raises ValueError if it has not two dimensions.)");
    set.def_static("from_range", from_range, "image"_a, "least"_a, "greatest"_a,
                   nb::sig("def from_range(image: Buffer, least: float, greatest: float) -> RunSet"),
                   R"(The pixels of a grey image from ``least`` to ``greatest``, both included, without making a mask.

NaN is in no range. Raises TypeError if the image is not of uint8, uint16 or float32.)");
    set.def_static("from_labels", from_labels, "labels"_a,
                   nb::sig("def from_labels(labels: Buffer) -> dict[int, RunSet]"),
                   R"(The pixels of each label but 0, by label, in ascending order. One pass over the image.

Raises TypeError if the labels are not of a whole-number type, ValueError if one is beyond 32 bits.)");
    set.def(
        "to_mask", to_mask, "shape"_a, nb::kw_only(), "origin"_a = nb::make_tuple(0, 0),
        nb::sig("def to_mask(self, shape: tuple[int, int], *, origin: tuple[int, int] = (0, 0)) -> "
                "numpy.typing.NDArray[numpy.bool]"),
        R"(A mask of bool of the shape (height, width), whose first pixel is pixel ``origin``, (row, column), of the set.

Pixels outside of the mask are left out.)");
    set.def("paint", paint, "image"_a, "value"_a = 1.0, nb::kw_only(), "origin"_a = nb::make_tuple(0, 0),
            nb::sig("def paint(self, image: Buffer, value: float = 1, *, origin: tuple[int, int] = (0, 0)) -> None"),
            R"(Gives the set's pixels in an image a value; others stay as they are.

The image's first pixel is pixel ``origin``, (row, column), of the set. It must be of bool, uint8, uint16, int32 or
float32 (TypeError), and a value that its pixels can have (ValueError).)");
    set.def(
        "label_image", label_image, "shape"_a, "connectivity"_a = 8,
        nb::sig("def label_image(self, shape: tuple[int, int], connectivity: int = 8) -> "
                "numpy.typing.NDArray[numpy.int32]"),
        R"(An image of the shape (height, width) with the number of its component, from 1 on, at each pixel of the set.

Components are in the order of ``components()``; 0 is what does not belong to the set. Pixels outside of the image are
left out.)");
    module.def(
        "paint_labels", paint_labels, "sets"_a, "shape"_a,
        nb::sig("def paint_labels(sets: collections.abc.Iterable[RunSet], shape: tuple[int, int]) -> "
                "numpy.typing.NDArray[numpy.int32]"),
        R"(A label image of the shape (height, width): 1 for the first set's pixels, 2 for the second one's, and so on.

Where sets overlap, the later one wins; 0 is what no set has.)");
}
