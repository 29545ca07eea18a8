// SPDX-License-Identifier: MIT
// The functions of malloc's family, which the C library lets a program define for itself and for all its libraries.
// They hand on to the C library's own.
#include "counted_memory.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>

// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);
extern "C" void* __libc_memalign(std::size_t alignment, std::size_t size);
extern "C" void __libc_free(void* block);
// NOLINTEND(bugprone-reserved-identifier)

namespace
{

std::atomic<std::size_t> allocations{0};
std::atomic<std::size_t> living{0};
std::atomic<std::size_t> peak{0};

void* taken(void* block)
{
    if (block != nullptr) {
        ++allocations;
        const std::size_t now = living += malloc_usable_size(block);
        std::size_t highest = peak;
        while (now > highest && !peak.compare_exchange_weak(highest, now)) {
        }
    }
    return block;
}

void given_back(void* block)
{
    if (block != nullptr) {
        living -= malloc_usable_size(block);
    }
}

} // namespace

bench::MemoryCount bench::memory_count()
{
    return {allocations, living, peak};
}

void bench::restart_peak()
{
    peak = living.load();
}

extern "C" void* malloc(std::size_t size)
{
    return taken(__libc_malloc(size));
}

extern "C" void* calloc(std::size_t count, std::size_t size)
{
    return taken(__libc_calloc(count, size));
}

extern "C" void* realloc(void* block, std::size_t size)
{
    given_back(block);
    return taken(__libc_realloc(block, size));
}

extern "C" void* memalign(std::size_t alignment, std::size_t size)
{
    return taken(__libc_memalign(alignment, size));
}

extern "C" void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return taken(__libc_memalign(alignment, size));
}

extern "C" int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    *block = taken(__libc_memalign(alignment, size));
    return *block != nullptr ? 0 : ENOMEM;
}

extern "C" void free(void* block)
{
    given_back(block);
    __libc_free(block);
}
