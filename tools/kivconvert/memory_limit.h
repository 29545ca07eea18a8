// SPDX-License-Identifier: MIT
// How much memory a command may claim, so that a small file cannot ask for all that there is. What a command makes is
// counted before it is made; each constant is what one item takes at most, with lists that grow and the text or the
// image that they are written as.
#pragma once

#include "kivconvert/contents.h"

#include <string>

namespace kivconvert
{

inline constexpr int default_memory_limit = 1024; ///< in MiB

inline constexpr double bytes_per_run = 64;
inline constexpr double bytes_per_point = 64;
inline constexpr double bytes_per_pixel = 4; ///< of a frame that is painted or traced
inline constexpr double bytes_per_coloured_pixel = 6;

/// For all that follow, on all threads.
void set_memory_limit(int mebibytes);

/// @param subject the file or operation concerned
/// @param what the counted items, such as "runs"
/// @throws InputError if they would take more memory than the limit
void expect_affordable(const std::string& subject, double count, const char* what, double bytes_each);

/// The same for the pixels of a frame that is painted or traced.
void expect_paintable(const std::string& subject, const Frame& frame);

} // namespace kivconvert
