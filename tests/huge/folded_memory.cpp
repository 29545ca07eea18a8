// SPDX-License-Identifier: MIT
#include "huge/folded_memory.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

bool huge::can_fold_memory()
{
    return false;
}

#else

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace
{

constexpr std::size_t smallest_folded = std::size_t{4} << 30;
constexpr std::size_t fold = std::size_t{256} << 20;

/// The one folded block; tests make one huge vector at a time.
void* folded_block = nullptr;
std::size_t folded_size = 0;

void unmap(void* block, std::size_t size)
{
    munmap(block, size);
    folded_block = nullptr;
}

void* map_folded(std::size_t size)
{
    const int memory = memfd_create("folded", 0);
    void* block = mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    bool mapped = folded_block == nullptr && memory >= 0 && ftruncate(memory, fold) == 0 && block != MAP_FAILED;
    for (std::size_t begin = 0; mapped && begin < size; begin += fold) {
        void* part = static_cast<char*>(block) + begin;
        const std::size_t length = std::min(fold, size - begin);
        mapped = mmap(part, length, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, memory, 0) == part;
    }
    close(memory);
    if (!mapped) {
        throw std::bad_alloc();
    }
    folded_size = size;
    return folded_block = block;
}

} // namespace

bool huge::can_fold_memory()
{
    return true;
}

void* operator new(std::size_t size)
{
    if (size >= smallest_folded) {
        return map_folded(size);
    }
    void* block = std::malloc(std::max<std::size_t>(size, 1));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void operator delete(void* block) noexcept
{
    if (block != nullptr && block == folded_block) {
        unmap(block, folded_size);
    } else {
        std::free(block);
    }
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    operator delete(block);
}

#endif
