// SPDX-License-Identifier: MIT
#include "kivconvert/memory_limit.h"

#include "kivconvert/errors.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <fmt/format.h>

namespace kivconvert
{
namespace
{

constexpr double bytes_per_mebibyte = 1 << 20;

std::atomic<int> limit{default_memory_limit};

} // namespace

void set_memory_limit(int mebibytes)
{
    limit = mebibytes;
}

void expect_affordable(const std::string& subject, double count, const char* what, double bytes_each)
{
    const double needed = count * bytes_each / bytes_per_mebibyte;
    if (needed > limit) {
        throw InputError(subject, fmt::format("up to {:.0f} {} would take {:.0f} MiB; --max-memory allows {}", count,
                                              what, std::ceil(needed), limit.load()));
    }
}

void expect_paintable(const std::string& subject, const Frame& frame)
{
    const double pixels = static_cast<double>(std::max(frame.width, 0)) * std::max(frame.height, 0);
    expect_affordable(subject, pixels, "pixels", bytes_per_pixel);
}

} // namespace kivconvert
