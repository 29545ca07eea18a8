// SPDX-License-Identifier: MIT
// The data types as Python has them: images and matrices, points, contours and variant arrays are NumPy arrays and
// lists, regions and regions of interest are objects.
#pragma once

#include "arguments.h"

#include <KivData/KivData.h>

#include <nanobind/nanobind.h>

namespace kivpython
{

/// What a Python object stands for, for the time of a call. Raises TypeError or ValueError if it is none of that kind.
template <class T>
class Taken;

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

template <>
class Taken<KivRegion> : public TakenObject<KivRegion>
{
    using TakenObject::TakenObject;
};

template <>
class Taken<KivROI> : public TakenObject<KivROI>
{
    using TakenObject::TakenObject;
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

template <>
class Taken<KivImage> : public TakenMat<KivImage>
{
    using TakenMat::TakenMat;
};

template <>
class Taken<KivMatrix> : public TakenMat<KivMatrix>
{
    using TakenMat::TakenMat;
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

template <>
class Taken<KivVarArray> : public TakenCopy<KivVarArray>
{
    using TakenCopy::TakenCopy;
};

template <>
class Taken<KivPointArray> : public TakenCopy<KivPointArray>
{
    using TakenCopy::TakenCopy;
};

template <>
class Taken<KivContour> : public TakenCopy<KivContour>
{
    using TakenCopy::TakenCopy;
};

template <>
class Taken<KivContourArray> : public TakenCopy<KivContourArray>
{
    using TakenCopy::TakenCopy;
};

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
