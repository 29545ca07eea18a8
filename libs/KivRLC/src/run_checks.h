// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace kivrlc
{

/// Throws an exception that says what is wrong, unless nothing is.
template <class Error>
void require(bool right, const char* wrong)
{
    if (!right) {
        throw Error(wrong);
    }
}

} // namespace kivrlc
