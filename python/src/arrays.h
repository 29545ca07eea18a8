// SPDX-License-Identifier: MIT
// NumPy arrays from what the library makes, without a copy where it can be.
#pragma once

#include "arguments.h"

#include <KivRLC/KivRunSet.h>

#include <nanobind/ndarray.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace kivpython
{

/// Runs from an array of three columns of whole numbers, or from anything that NumPy makes one of.
std::vector<Run> runs_of(nb::handle runs);

/// The runs of a Python RunSet as a read-only array that keeps it alive.
nb::object runs_view(nb::handle set);

/// Calls `visit` with a value of the whole-number type that the buffer's pixels have. Raises TypeError if they have
/// another one, naming what is taken.
template <class Visit>
auto with_whole_number_type(const Buffer& buffer, const char* taken, Visit visit)
{
    return with_pixel_type<std::int32_t, std::int64_t, std::uint8_t, std::int8_t, std::uint16_t, std::int16_t,
                           std::uint32_t, std::uint64_t>(buffer, taken, visit);
}

/// The elements of a buffer of this whole-number type as ints, row by row. Raises ValueError if one is beyond 32 bits.
template <class Pixel>
std::vector<int> checked_ints(const Buffer& buffer)
{
    return buffer.Packed<Pixel, int>([](Pixel value) {
        if constexpr (sizeof(Pixel) >= sizeof(int)) {
            const bool fits = std::is_signed_v<Pixel>
                                  ? value >= static_cast<Pixel>(INT_MIN) && value <= static_cast<Pixel>(INT_MAX)
                                  : value <= static_cast<Pixel>(INT_MAX);
            if (!fits) {
                throw nb::value_error((std::to_string(value) + " is beyond 32 bits").c_str());
            }
        }
        return static_cast<int>(value);
    });
}

/// The elements of a buffer of any whole-number type as ints, row by row.
///
/// Raises TypeError if they are of another type, naming what is taken, and ValueError if one is beyond 32 bits.
std::vector<int> ints_of_pixels(const Buffer& buffer, const char* taken);

/// An image of a NumPy type, whose pixels are zeros.
nb::object zeros(const Frame& frame, const char* type);

/// The same with any pixels, by rows ("C") or by columns ("F").
nb::object empty(const Frame& frame, const char* type, const char* order = "C");

/// An array of the vector's elements, which it takes over.
template <class Element>
nb::object array_of(std::vector<Element>&& elements, std::initializer_list<std::size_t> shape)
{
    auto* kept = new std::vector<Element>(std::move(elements));
    const nb::capsule owner(kept, [](void* vector) noexcept { delete static_cast<std::vector<Element>*>(vector); });
    return nb::cast(nb::ndarray<nb::numpy, Element>(kept->data(), shape, owner));
}

/// An array of a list's elements.
template <class Element>
nb::object array_of(std::vector<Element>&& elements)
{
    const std::size_t count = elements.size();
    return array_of(std::move(elements), {count});
}

/// An array of pairs of coordinates, of shape (n, 2): copies of the members x and y of each point.
template <class Coordinate, class Point>
nb::object array_of_points(const Point* points, std::size_t count)
{
    std::vector<Coordinate> coordinates;
    coordinates.reserve(2 * count);
    for (std::size_t i = 0; i < count; ++i) {
        coordinates.push_back(points[i].x);
        coordinates.push_back(points[i].y);
    }
    return array_of(std::move(coordinates), {count, 2});
}

} // namespace kivpython
