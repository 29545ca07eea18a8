// SPDX-License-Identifier: MIT
// Checks of indices, of the lengths of arrays, and of frames, with the messages of their exceptions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kivdata
{

/// Throws std::out_of_range, naming the type, the index and the length.
[[noreturn]] void throw_out_of_range(const char* type, int index, int length);

/// The index as an unsigned one when 0 <= index < length; throws std::out_of_range otherwise.
inline std::size_t checked_index(const char* type, int index, int length)
{
    if (index < 0 || index >= length) {
        throw_out_of_range(type, index, length);
    }
    return static_cast<std::size_t>(index);
}

/// Throws std::length_error, naming the type, when an array of this length has no room for as many elements more.
void check_room(const char* type, std::size_t length, std::uint64_t added);

/// The elements, when an array of the type has room for them all; throws std::length_error otherwise.
template <class Element>
std::vector<Element> checked_elements(const char* type, std::vector<Element> elements)
{
    check_room(type, 0, elements.size());
    return elements;
}

/// Throws std::invalid_argument when width or height is negative.
void check_frame(int width, int height);

/// Throws std::invalid_argument when width or height is larger than 2^31 - 3.
void check_traced_frame(int width, int height);

} // namespace kivdata
