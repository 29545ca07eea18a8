// SPDX-License-Identifier: MIT
#include "arrays.h"

#include <cstddef>
#include <cstring>
#include <type_traits>

namespace
{

using namespace kivpython;

static_assert(sizeof(Run) == 3 * sizeof(std::int32_t) && std::is_standard_layout_v<Run>, "runs are rows of three ints");

} // namespace

std::vector<Run> kivpython::runs_of(nb::handle runs)
{
    nb::object array = nb::borrow(runs);
    if (PyObject_CheckBuffer(runs.ptr()) == 0) {
        array = nb::module_::import_("numpy").attr("asarray")(nb::list(runs));
        if (nb::cast<int>(array.attr("size")) == 0) {
            return {};
        }
    }
    const Buffer buffer(array, "runs");
    if (buffer.Width() != 3) {
        throw nb::value_error(
            ("runs must have three columns, (row, first, last), not " + std::to_string(buffer.Width())).c_str());
    }
    const std::vector<int> ints = ints_of_pixels(buffer, "whole numbers");
    std::vector<Run> list(ints.size() / 3);
    if (!list.empty()) {
        std::memcpy(list.data(), ints.data(), ints.size() * sizeof(int));
    }
    return list;
}

nb::object kivpython::runs_view(nb::handle set)
{
    const KivRunView runs = nb::cast<const KivRunSet&>(set).Runs();
    static const Run none{}; // an array needs an address
    const auto* first = reinterpret_cast<const std::int32_t*>(runs.empty() ? &none : runs.data());
    return nb::cast(nb::ndarray<nb::numpy, const std::int32_t>(first, {runs.size(), 3}, set));
}

nb::object kivpython::zeros(const Frame& frame, const char* type)
{
    return nb::module_::import_("numpy").attr("zeros")(nb::make_tuple(frame.height, frame.width), type);
}

nb::object kivpython::empty(const Frame& frame, const char* type, const char* order)
{
    return nb::module_::import_("numpy").attr("empty")(nb::make_tuple(frame.height, frame.width), type, order);
}

std::vector<int> kivpython::ints_of_pixels(const Buffer& buffer, const char* taken)
{
    return with_whole_number_type(buffer, taken, [&](auto pixel) { return checked_ints<decltype(pixel)>(buffer); });
}
