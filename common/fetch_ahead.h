// SPDX-License-Identifier: MIT
// Long lists and large images are passed in order, as fast as memory delivers if enough of it is on its way at any
// time. Machines fetch ahead by themselves, but hardly beyond the page of 4 KB that is being passed.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kivcommon
{

/// Asks for memory one page behind the given bytes, which are passed next, be it to read or to write them. None of it
/// need exist. Inlined always: compilers leave out calls of functions that do nothing else.
[[gnu::always_inline]] inline void fetch_ahead([[maybe_unused]] const void* bytes, [[maybe_unused]] std::size_t count)
{
#if defined(__GNUC__)
    constexpr std::size_t page = 4096;
    constexpr std::size_t cache_line = 64;
    const std::uintptr_t begin = reinterpret_cast<std::uintptr_t>(bytes) + page;
    for (std::size_t i = 0; i < count; i += cache_line) {
        __builtin_prefetch(reinterpret_cast<const void*>(begin + i));
    }
#endif
}

/// The same of the room of a list that `count` elements are appended to next, if the list is too long to stay in the
/// nearest caches from one use to the next.
template <class List>
[[gnu::always_inline]] inline void fetch_room_ahead(const List& list, std::size_t count)
{
    constexpr std::size_t long_list = std::size_t{1} << 20; // bytes
    constexpr std::size_t size = sizeof(typename List::value_type);
    if (list.capacity() >= long_list / size) {
        fetch_ahead(list.data() + list.size(), count * size);
    }
}

} // namespace kivcommon
