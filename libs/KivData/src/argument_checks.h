// SPDX-License-Identifier: MIT
// Sentences about indices outside of an array, arrays longer than an int can tell, and impossible frames.
#pragma once

#include <cstddef>

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
void check_room(const char* type, std::size_t length, std::size_t added);

/// Throws std::invalid_argument when width or height is negative.
void check_frame(int width, int height);

} // namespace kivdata
