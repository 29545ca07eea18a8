// SPDX-License-Identifier: MIT
#include "arguments.h"

#include <nanobind/stl/string.h>

#include <algorithm>
#include <climits>
#include <iterator>

namespace
{

namespace nb = nanobind;

struct Kind {
    char code;
    Py_ssize_t size;
    const char* name;
};

constexpr Kind kinds[] = {
    {'?', 1, "bool"},  {'B', 1, "uint8"},   {'b', 1, "int8"},    {'H', 2, "uint16"},
    {'h', 2, "int16"}, {'I', 4, "uint32"},  {'i', 4, "int32"},   {'Q', 8, "uint64"},
    {'q', 8, "int64"}, {'e', 2, "float16"}, {'f', 4, "float32"}, {'d', 8, "float64"},
};

// Null for a letter that is none of them.
const Kind* find_kind(char code)
{
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds), [&](const Kind& k) { return k.code == code; });
    return kind != std::end(kinds) ? kind : nullptr;
}

// The kind of a buffer's format: a letter of struct's, whose size tells 'l' and 'L' apart, in native byte order.
char kind_of_format(const Py_buffer& view)
{
    const char* format = view.format == nullptr ? "B" : view.format;
    format += *format == '@' || *format == '=' ? 1 : 0;
    if (*format == '\0' || format[1] != '\0') {
        return '-';
    }
    const bool of_long = *format == 'l' || *format == 'L';
    const char code = !of_long             ? *format
                      : *format == 'l'     ? (view.itemsize == 4 ? 'i' : 'q')
                      : view.itemsize == 4 ? 'I'
                                           : 'Q';
    const Kind* const kind = find_kind(code);
    return kind != nullptr && kind->size == view.itemsize ? code : '-';
}

std::string kind_name(char code, const Py_buffer& view)
{
    const Kind* const kind = find_kind(code);
    return kind != nullptr ? kind->name : "the format '" + std::string(view.format) + "'";
}

int int_of(nb::handle number, const char* what)
{
    const nb::object index = nb::steal(PyNumber_Index(number.ptr()));
    if (!index.is_valid()) {
        PyErr_Clear();
        throw nb::type_error((std::string(what) + " made of ints, not of " + kivpython::name_of_type(number)).c_str());
    }
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(index.ptr(), &overflow);
    if (overflow != 0 || value < INT_MIN || value > INT_MAX) {
        throw nb::value_error((nb::cast<std::string>(nb::str(index)) + " is beyond 32 bits").c_str());
    }
    return static_cast<int>(value);
}

// The ints of a tuple, a list or another sequence, whose number is one of two; returns that number.
Py_ssize_t take_ints(nb::handle sequence, Py_ssize_t few, Py_ssize_t many, int* ints, const char* what)
{
    const Py_ssize_t count = PySequence_Check(sequence.ptr()) != 0 ? PySequence_Size(sequence.ptr()) : -1;
    if (count < 0) {
        PyErr_Clear();
        throw nb::type_error((std::string(what) + ", not " + kivpython::name_of_type(sequence)).c_str());
    }
    if (count != few && count != many) {
        throw nb::value_error((std::string(what) + ", not " + std::to_string(count) + " of them").c_str());
    }
    for (Py_ssize_t i = 0; i < count; ++i) {
        const nb::object item = nb::steal(PySequence_GetItem(sequence.ptr(), i));
        if (!item.is_valid()) {
            throw nb::python_error();
        }
        ints[i] = int_of(item, what);
    }
    return count;
}

} // namespace

namespace kivpython
{

std::string name_of_type(nb::handle object)
{
    return nb::cast<std::string>(nb::str(object.type().attr("__name__")));
}

Buffer::Buffer(nb::handle object, const char* what, Access access, int most_dimensions) : what_(what)
{
    const int flags = access == Access::Write ? PyBUF_RECORDS : PyBUF_RECORDS_RO;
    if (PyObject_GetBuffer(object.ptr(), &view_, flags) != 0) {
        const bool has_buffer = PyObject_CheckBuffer(object.ptr()) != 0;
        if (has_buffer && access == Access::Write) {
            PyErr_Clear();
            throw nb::value_error((std::string(what) + " must be an array that can be written to").c_str());
        }
        if (has_buffer) {
            throw nb::python_error();
        }
        PyErr_Clear();
        throw nb::type_error(
            (std::string(what) + " must be a NumPy array or another buffer, not " + name_of_type(object)).c_str());
    }
    kind_ = kind_of_format(view_);
    std::string fault;
    if (view_.ndim < 2 || view_.ndim > most_dimensions) {
        fault = std::string(" must have two ") + (most_dimensions == 2 ? "" : "or three ") + "dimensions, not " +
                std::to_string(view_.ndim);
    } else if (view_.shape[0] > INT_MAX || view_.shape[1] > INT_MAX) {
        fault = " must have at most 2147483647 rows and columns, not " + std::to_string(view_.shape[0]) + " x " +
                std::to_string(view_.shape[1]);
    }
    if (!fault.empty()) {
        PyBuffer_Release(&view_);
        throw nb::value_error((what + fault).c_str());
    }
}

void Buffer::RefuseKind(const char* taken) const
{
    throw nb::type_error((std::string(what_) + " must be of " + taken + ", not " + kind_name(kind_, view_)).c_str());
}

Frame frame_of(nb::handle shape)
{
    int ints[2];
    take_ints(shape, 2, 2, ints, "shape must be a pair (height, width)");
    if (ints[0] < 0 || ints[1] < 0) {
        throw nb::value_error("shape must not be negative");
    }
    return {ints[0], ints[1]};
}

KivRunBox box_of(nb::handle box)
{
    int ints[4];
    const Py_ssize_t count = take_ints(
        box, 2, 4, ints, "a box must be a Box (row_begin, row_end, col_begin, col_end), or a shape (height, width)");
    if (count == 4) {
        return {ints[0], ints[1], ints[2], ints[3]};
    }
    const Frame frame = frame_of(box);
    return {0, frame.height - 1, 0, frame.width - 1};
}

nb::handle type_of_package(const char* name)
{
    return nb::object(nb::module_::import_("kivdataconvert._types").attr(name)).release();
}

nb::object python_box(const KivRunBox& box)
{
    static const nb::handle type = type_of_package("Box");
    return type(box.rowBegin, box.rowEnd, box.colBegin, box.colEnd);
}

KivRuns::Connectivity connectivity_of(int connectivity)
{
    if (connectivity != 4 && connectivity != 8) {
        throw nb::value_error(("connectivity must be 4 or 8, not " + std::to_string(connectivity)).c_str());
    }
    return connectivity == 4 ? KivRuns::Connectivity::Four : KivRuns::Connectivity::Eight;
}

std::vector<KivRunSet> sets_of(nb::handle sets)
{
    std::vector<KivRunSet> taken;
    for (const nb::handle set : nb::iter(sets)) {
        if (!nb::isinstance<KivRunSet>(set)) {
            throw nb::type_error(("sets must be made of RunSet, not " + name_of_type(set)).c_str());
        }
        taken.push_back(nb::cast<const KivRunSet&>(set));
    }
    return taken;
}

Pair pair_of(nb::handle pair, const char* what)
{
    int ints[2];
    take_ints(pair, 2, 2, ints, what);
    return {ints[0], ints[1]};
}

} // namespace kivpython
