// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kivcommon
{

/// Writes a run from `begin` to `end` for each row from `first` to just before `stop`; where the next one goes. The
/// columns, which are the same on all rows, are written as one, since it is the number of writes that takes the time.
/// Not inlined, as that would slow down the loops around it where few rows are full.
template <class Run>
[[gnu::noinline]] Run* write_full_rows(std::int64_t first, std::int64_t stop, int begin, int end, Run* out)
{
    const int columns[] = {begin, end};
    static_assert(offsetof(Run, colEnd) == offsetof(Run, colBegin) + sizeof(int));
    for (; first < stop; ++first) {
        out->row = static_cast<int>(first);
        std::memcpy(reinterpret_cast<unsigned char*>(out) + offsetof(Run, colBegin), columns, sizeof columns);
        ++out;
    }
    return out;
}

} // namespace kivcommon
