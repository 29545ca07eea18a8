// SPDX-License-Identifier: MIT
#include "family_values.h"

#include "arrays.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace
{

namespace nb = nanobind;

struct Depth {
    char kind;
    int depth;
    const char* name;
};

constexpr Depth depths[] = {{'B', CV_8U, "uint8"},    {'b', CV_8S, "int8"},   {'H', CV_16U, "uint16"},
                            {'h', CV_16S, "int16"},   {'i', CV_32S, "int32"}, {'f', CV_32F, "float32"},
                            {'d', CV_64F, "float64"}, {'e', 7, "float16"}};

nb::object numpy_call(const char* name, nb::handle array)
{
    return nb::module_::import_("numpy").attr(name)(array);
}

cv::Mat mat_of(const kivpython::Buffer& buffer)
{
    const auto* depth =
        std::find_if(std::begin(depths), std::end(depths), [&](const Depth& d) { return d.kind == buffer.Kind(); });
    if (depth == std::end(depths)) {
        buffer.RefuseKind("a type that matrices have: 8-, 16- or 32-bit ints, unsigned only up to 16, or floats");
    }
    if (buffer.Channels() < 1 || buffer.Channels() > CV_CN_MAX) {
        throw nb::value_error("an image must have 1 to 512 channels");
    }
    // NumPy has an address for no pixels, images have none.
    const bool is_empty = buffer.Height() == 0 || buffer.Width() == 0;
    return {buffer.Height(), buffer.Width(), CV_MAKETYPE(depth->depth, static_cast<int>(buffer.Channels())),
            is_empty ? nullptr : buffer.Pixels()};
}

nb::object array_of_mat(const cv::Mat& mat)
{
    const auto* depth =
        std::find_if(std::begin(depths), std::end(depths), [&](const Depth& d) { return d.depth == mat.depth(); });
    const nb::object shape = mat.channels() == 1 ? nb::object(nb::make_tuple(mat.rows, mat.cols))
                                                 : nb::object(nb::make_tuple(mat.rows, mat.cols, mat.channels()));
    nb::object array = nb::module_::import_("numpy").attr("empty")(shape, depth->name);
    const kivpython::Buffer buffer(array, "image", kivpython::Buffer::Access::Write, 3);
    const std::size_t row_bytes = mat.elemSize() * static_cast<std::size_t>(mat.cols);
    for (int row = 0; row < mat.rows && row_bytes > 0; ++row) {
        std::memcpy(static_cast<char*>(buffer.Pixels()) + static_cast<std::size_t>(row) * row_bytes, mat.ptr(row),
                    row_bytes);
    }
    return array;
}

KivVar var_of(nb::handle value, const char* what)
{
    if (nb::isinstance<nb::str>(value)) {
        return KivVar(nb::cast<std::string>(value));
    }
    if (PyFloat_Check(value.ptr())) {
        return KivVar(PyFloat_AsDouble(value.ptr()));
    }
    const nb::object index = nb::steal(PyNumber_Index(value.ptr()));
    if (!index.is_valid()) {
        PyErr_Clear();
        throw nb::type_error(
            (std::string(what) + " must be made of ints, floats or str, not " + kivpython::name_of_type(value))
                .c_str());
    }
    int overflow = 0;
    const long long number = PyLong_AsLongLongAndOverflow(index.ptr(), &overflow);
    if (overflow != 0 || number != static_cast<int>(number)) {
        throw nb::value_error((nb::cast<std::string>(nb::str(index)) + " is beyond 32 bits").c_str());
    }
    return KivVar(static_cast<int>(number));
}

nb::object value_of(const KivVar& var)
{
    switch (var.ValType()) {
    case KivVar::TextKind:
        return nb::cast(var.S());
    case KivVar::DoubleKind:
        return nb::cast(var.D());
    default:
        return nb::cast(var.I());
    }
}

} // namespace

namespace kivpython
{

template <class Holder>
TakenMat<Holder>::TakenMat(nb::handle array, const char* what)
    : dense_(PyObject_CheckBuffer(array.ptr()) != 0 ? numpy_call("ascontiguousarray", array) : nb::borrow(array)),
      buffer_(dense_, what, Buffer::Access::Read, 3),
      value_(mat_of(buffer_))
{
}

template class TakenMat<KivImage>;
template class TakenMat<KivMatrix>;

template <>
TakenCopy<KivVarArray>::TakenCopy(nb::handle object, const char* what)
{
    // Arrays of whole numbers at once, everything else one by one.
    if (PyObject_CheckBuffer(object.ptr()) != 0) {
        const nb::object array = numpy_call("asarray", object);
        if (nb::cast<int>(array.attr("ndim")) != 1) {
            throw nb::value_error((std::string(what) + " must have one dimension").c_str());
        }
        const char kind = nb::cast<std::string>(array.attr("dtype").attr("kind"))[0];
        if (std::strchr("iub", kind) != nullptr) {
            const nb::object numbers = array.attr("astype")(kind == 'u' ? "uint64" : "int64");
            const nb::object wide = numbers.attr("reshape")(nb::make_tuple(1, -1));
            value_ = KivVarArray(ints_of_pixels(Buffer(wide, what), "whole numbers"));
            return;
        }
    }
    for (const nb::handle value : nb::iter(object)) {
        value_.Append(var_of(value, what));
    }
}

std::vector<cv::Point_<double>> points_of(nb::handle points, const char* what)
{
    const nb::object numbers = nb::module_::import_("numpy").attr("ascontiguousarray")(points, "float64");
    const auto shape = nb::cast<nb::tuple>(numbers.attr("shape"));
    const bool pairs = shape.size() == 2 && nb::cast<int>(shape[1]) == 2;
    const bool flat = shape.size() == 1 && nb::cast<std::size_t>(shape[0]) % 2 == 0;
    if (!pairs && !flat) {
        throw nb::value_error(
            (std::string(what) + " must be points of shape (n, 2), or flat: x, y, x, y, ...").c_str());
    }
    const nb::object rows = numbers.attr("reshape")(nb::make_tuple(-1, 2));
    const Buffer buffer(rows, what);
    std::vector<cv::Point_<double>> list(static_cast<std::size_t>(buffer.Height()));
    if (!list.empty()) {
        std::memcpy(static_cast<void*>(list.data()), buffer.Pixels(), list.size() * sizeof(list[0]));
    }
    return list;
}

template <>
TakenCopy<KivPointArray>::TakenCopy(nb::handle object, const char* what)
{
    std::vector<KivPoint> points;
    for (const cv::Point_<double>& point : points_of(object, what)) {
        points.push_back({point.x, point.y});
    }
    value_ = KivPointArray(std::move(points));
}

template <>
TakenCopy<KivContour>::TakenCopy(nb::handle object, const char* what) : value_(points_of(object, what))
{
}

template <>
TakenCopy<KivContourArray>::TakenCopy(nb::handle object, const char* what)
{
    for (const nb::handle contour : nb::iter(object)) {
        value_.Append(KivContour(points_of(contour, what)));
    }
}

nb::object given(KivImage&& image)
{
    return array_of_mat(image.Mat());
}

nb::object given(KivMatrix&& matrix)
{
    return array_of_mat(matrix.Mat());
}

nb::object given(KivVarArray&& values)
{
    if (values.PackedInts() != nullptr) {
        return array_of(std::vector<std::int32_t>(*values.PackedInts()));
    }
    nb::list list;
    const KivVarArray& read = values;
    for (int i = 0; i < read.Length(); ++i) {
        list.append(value_of(read[i]));
    }
    return list;
}

nb::object given(KivPointArray&& points)
{
    return array_of_points<double>(points.Points().data(), points.Points().size());
}

nb::object given(KivContour&& contour)
{
    return array_of_points<double>(contour.AllPoints().data(), contour.AllPoints().size());
}

nb::object given(KivContourArray&& contours)
{
    nb::list list;
    for (const KivContour& contour : contours) {
        list.append(given(KivContour(contour)));
    }
    return list;
}

} // namespace kivpython
