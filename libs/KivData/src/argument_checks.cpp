// SPDX-License-Identifier: MIT
#include "argument_checks.h"

#include <stdexcept>
#include <string>

void kivdata::throw_out_of_range(const char* type, int index, int length)
{
    throw std::out_of_range(std::string(type) + ": index " + std::to_string(index) + " is outside an array of length " +
                            std::to_string(length));
}

void kivdata::check_frame(int width, int height)
{
    if (width < 0 || height < 0) {
        throw std::invalid_argument("frame: " + std::to_string(width) + " x " + std::to_string(height) +
                                    " has a negative side");
    }
}
