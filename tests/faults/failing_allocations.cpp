// SPDX-License-Identifier: MIT
#include "failing_allocations.h"

#include <opencv2/core.hpp>

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

namespace
{

thread_local long nth_fails = 0;
thread_local long made = 0;
std::atomic<long> living{0};
std::atomic<std::size_t> largest_block{std::numeric_limits<std::size_t>::max()};

bool is_to_fail(std::size_t size)
{
    return ++made == nth_fails || size > largest_block;
}

void* allocate(std::size_t size)
{
    void* block = is_to_fail(size) ? nullptr : std::malloc(size > 0 ? size : 1);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++living;
    return block;
}

void release(void* block) noexcept
{
    if (block != nullptr) {
        --living;
        std::free(block);
    }
}

#if CV_VERSION_MAJOR >= 4
using AccessFlags = cv::AccessFlag;
#else
using AccessFlags = int;
#endif

/// OpenCV's own allocator, except that it can be made to fail, with the error that OpenCV raises when memory runs out.
class FailingMatAllocator : public cv::MatAllocator
{
public:
    cv::UMatData* allocate(int dims, const int* sizes, int type, void* data, std::size_t* step, AccessFlags flags,
                           cv::UMatUsageFlags usage) const override
    {
        std::size_t size = data == nullptr ? static_cast<std::size_t>(CV_ELEM_SIZE(type)) : 0;
        for (int i = 0; i < dims; ++i) {
            size *= static_cast<std::size_t>(sizes[i]);
        }
        if (is_to_fail(size)) {
            CV_Error(cv::Error::StsNoMem, "made to fail");
        }
        // OpenCV loses the pixels when the small block that describes them cannot be had, so the two count as one.
        const long counted = made;
        const long failing = std::exchange(nth_fails, 0);
        cv::UMatData* pixels = cv::Mat::getStdAllocator()->allocate(dims, sizes, type, data, step, flags, usage);
        made = counted;
        nth_fails = failing;
        return pixels;
    }
    bool allocate(cv::UMatData* data, AccessFlags flags, cv::UMatUsageFlags usage) const override
    {
        return cv::Mat::getStdAllocator()->allocate(data, flags, usage);
    }
    void deallocate(cv::UMatData* data) const override { cv::Mat::getStdAllocator()->deallocate(data); }
};

} // namespace

void faults::fail_allocation(long nth)
{
    nth_fails = nth;
    made = 0;
}

void faults::fail_blocks_over(std::size_t bytes)
{
    largest_block = bytes;
}

long faults::allocations_made()
{
    return made;
}

long faults::living_blocks()
{
    return living;
}

void faults::fail_matrices_too()
{
    static FailingMatAllocator allocator;
    cv::Mat::setDefaultAllocator(&allocator);
}

void* operator new(std::size_t size)
{
    return allocate(size);
}

// The standard library handles failures of these by itself, so they are never made to fail.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    void* block = std::malloc(size > 0 ? size : 1);
    living += block != nullptr ? 1 : 0;
    return block;
}

void* operator new[](std::size_t size)
{
    return allocate(size);
}

void operator delete(void* block) noexcept
{
    release(block);
}

void operator delete[](void* block) noexcept
{
    release(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    release(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    release(block);
}
