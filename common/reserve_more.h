// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>

namespace kivcommon
{

/// Makes room for so many elements beyond those of a list. A list that has to move gets room for at least twice those
/// it has, as many may append a few each.
template <class List>
void reserve_more(List& list, std::size_t more)
{
    if (list.capacity() - list.size() < more) {
        list.reserve(std::max(list.size() + more, 2 * list.size()));
    }
}

} // namespace kivcommon
