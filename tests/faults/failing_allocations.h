// SPDX-License-Identifier: MIT
// Memory that runs out on request, for operator new and for the pixels of cv::Mat alike.
#pragma once

#include <cstddef>

namespace faults
{

/// Whether the libraries' allocations can be made to fail. They have an operator new of their own where they are DLLs.
#if defined(_WIN32) && !defined(KIV_STATIC)
inline constexpr bool reach_libraries = false;
#else
inline constexpr bool reach_libraries = true;
#endif

/// Lets the n-th allocation of this thread fail, counted from 1; 0 lets all succeed. Starts counting anew.
void fail_allocation(long nth);

/// Lets every allocation of more than so many bytes fail, from now on and in all threads.
void fail_blocks_over(std::size_t bytes);

/// Allocations of this thread since fail_allocation() was last called.
long allocations_made();

/// Blocks that are allocated now.
long living_blocks();

/// Makes cv::Mat take its pixels from the failing allocator, from now on.
void fail_matrices_too();

} // namespace faults
