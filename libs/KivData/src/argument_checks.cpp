// SPDX-License-Identifier: MIT
#include "argument_checks.h"

#include <limits>
#include <stdexcept>
#include <string>

void kivdata::throw_out_of_range(const char* type, int index, int length)
{
    throw std::out_of_range(std::string(type) + ": index " + std::to_string(index) + " is outside an array of length " +
                            std::to_string(length));
}

void kivdata::check_room(const char* type, std::size_t length, std::uint64_t added)
{
    constexpr std::uint64_t max_length = std::numeric_limits<int>::max();
    if (added > max_length - length) {
        throw std::length_error(std::string(type) + ": no room for more than 2^31 - 1 elements");
    }
}

void kivdata::check_frame(int width, int height)
{
    if (width < 0 || height < 0) {
        throw std::invalid_argument("frame: " + std::to_string(width) + " x " + std::to_string(height) +
                                    " has a negative side");
    }
}

void kivdata::check_traced_frame(int width, int height)
{
    constexpr int most = std::numeric_limits<int>::max() - 2;
    if (width > most || height > most) {
        throw std::invalid_argument("frame: " + std::to_string(width) + " x " + std::to_string(height) +
                                    " is too large to be traced");
    }
}
