// SPDX-License-Identifier: MIT
/// @file
/// Whole pages of memory, as the system gives them.
#pragma once

#include <cstddef>
#include <new>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace support
{

/// Pages of zeros. Those that are never touched cost no memory.
class Pages
{
public:
    explicit Pages(std::size_t size) : size_(size), data_(allocated(size))
    {
        if (data_ == nullptr) {
            throw std::bad_alloc();
        }
    }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;
    ~Pages() { release(); }

    unsigned char* data() const { return static_cast<unsigned char*>(data_); }

    static std::size_t size_of_one();

    /// Has the system end the program when it touches what begins there, a multiple of the pages' size. False if that
    /// cannot be had.
    bool forbid_from(std::size_t offset);

private:
    static void* allocated(std::size_t size);
    void release();

    std::size_t size_;
    void* data_;
};

#ifdef _WIN32

inline std::size_t Pages::size_of_one()
{
    SYSTEM_INFO info;
    GetSystemInfo(&info);
    return info.dwPageSize;
}

inline bool Pages::forbid_from(std::size_t offset)
{
    DWORD before = 0;
    return VirtualProtect(data() + offset, size_ - offset, PAGE_NOACCESS, &before) != 0;
}

inline void* Pages::allocated(std::size_t size)
{
    return VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

inline void Pages::release()
{
    VirtualFree(data_, 0, MEM_RELEASE);
}

#else

inline std::size_t Pages::size_of_one()
{
    return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

inline bool Pages::forbid_from(std::size_t offset)
{
    return mprotect(data() + offset, size_ - offset, PROT_NONE) == 0;
}

inline void* Pages::allocated(std::size_t size)
{
    void* pages = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    return pages == MAP_FAILED ? nullptr : pages;
}

inline void Pages::release()
{
    munmap(data_, size_);
}

#endif

} // namespace support
