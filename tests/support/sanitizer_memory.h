// SPDX-License-Identifier: MIT
/// @file
/// Makes requests for more memory than there is fail under sanitizers as they do without. The sanitizers' libraries
/// look for these functions among the program's exported symbols. They are weak, so that several files of a program may
/// include them.
#pragma once

// NOLINTBEGIN(bugprone-reserved-identifier,misc-use-internal-linkage,misc-definitions-in-headers)
extern "C" __attribute__((visibility("default"), weak)) const char* __asan_default_options();
extern "C" __attribute__((visibility("default"), weak)) const char* __tsan_default_options();

extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

extern "C" const char* __tsan_default_options()
{
    return "allocator_may_return_null=1";
}
// NOLINTEND(bugprone-reserved-identifier,misc-use-internal-linkage,misc-definitions-in-headers)
