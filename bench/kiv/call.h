// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace bench
{

/// Throws unless a function of the library succeeded.
inline void succeed(int code)
{
    if (code != 0) {
        throw std::logic_error("a function of the library failed");
    }
}

} // namespace bench
