// SPDX-License-Identifier: MIT
// Counts what the whole program, its libraries included, takes from malloc.
#pragma once

#include <cstddef>

namespace bench
{

struct MemoryCount {
    std::size_t allocations = 0; // so far
    std::size_t living = 0;      // bytes in use
    std::size_t peak = 0;        // most bytes in use since the last call of restart_peak()
};

MemoryCount memory_count();
void restart_peak();

} // namespace bench
