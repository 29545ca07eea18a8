// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>

namespace kivcommon
{

/// The number of elements as a size. Throws std::bad_alloc if no memory can hold so many, as on machines of 32 bits.
template <class Element, class Integer>
std::size_t checked_count(Integer count)
{
    constexpr std::int64_t most = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(Element);
    if (std::cmp_greater(count, most)) {
        throw std::bad_alloc();
    }
    return static_cast<std::size_t>(count);
}

} // namespace kivcommon
