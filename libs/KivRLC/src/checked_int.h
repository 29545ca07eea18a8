// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <stdexcept>

namespace kivrlc
{

/// The value as an int. Throws std::overflow_error if none can hold it.
inline int checked_int(std::int64_t value)
{
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) {
        throw std::overflow_error("KivRuns: a pixel's coordinate does not fit into an int");
    }
    return static_cast<int>(value);
}

} // namespace kivrlc
