// SPDX-License-Identifier: MIT
// The data types as Python has them: images and matrices, points, contours and variant arrays are NumPy arrays and
// lists, regions and regions of interest are objects.
#pragma once

#include "arguments.h"

#include <KivData/KivData.h>

#include <nanobind/nanobind.h>

#include <type_traits>
#include <utility>
#include <vector>

namespace kivpython
{

/// An object that Python knows as one of the C++ class, not copied.
template <class T>
class TakenObject
{
public:
    TakenObject(nb::handle object, const char* what) : object_(nb::borrow(object))
    {
        if (!nb::isinstance<T>(object)) {
            throw nb::type_error((std::string(what) + " must be a " +
                                  nb::cast<std::string>(nb::str(nb::type<T>().attr("__name__"))) + ", not " +
                                  name_of_type(object))
                                     .c_str());
        }
    }
    T& Value() { return nb::cast<T&>(object_); }

private:
    nb::object object_;
};

/// An array of two or three dimensions as a matrix, whose elements are those of the array if it is dense by rows.
template <class Holder>
class TakenMat
{
public:
    TakenMat(nb::handle array, const char* what);
    Holder& Value() { return value_; }

private:
    nb::object dense_;
    Buffer buffer_;
    Holder value_;
};

/// A value that is made of the object.
template <class T>
class TakenCopy
{
public:
    TakenCopy(nb::handle object, const char* what);
    T& Value() { return value_; }

private:
    T value_;
};

template <class T, class... Types>
inline constexpr bool is_one_of = (std::is_same_v<T, Types> || ...);

/// What a Python object stands for, for the time of a call. Raises TypeError or ValueError if it is none of that kind.
template <class T>
using Taken = std::conditional_t<is_one_of<T, KivRegion, KivROI>, TakenObject<T>,
                                 std::conditional_t<is_one_of<T, KivImage, KivMatrix>, TakenMat<T>, TakenCopy<T>>>;

/// The points (x, y) of an array of two columns, or of a list that is flat.
std::vector<cv::Point_<double>> points_of(nb::handle points, const char* what);

/// A result for Python.
/// @{
inline nb::object given(KivRegion&& region)
{
    return nb::cast(std::move(region));
}
inline nb::object given(KivROI&& roi)
{
    return nb::cast(std::move(roi));
}
nb::object given(KivImage&& image);
nb::object given(KivMatrix&& matrix);
nb::object given(KivVarArray&& values);
nb::object given(KivPointArray&& points);
nb::object given(KivContour&& contour);
nb::object given(KivContourArray&& contours);
/// @}

} // namespace kivpython
