// SPDX-License-Identifier: MIT
// Whether there is memory enough for a test.
#pragma once

#include <cstdint>
#include <fstream>
#include <limits>
#include <string>

namespace huge
{

/// Whether a quarter more than so many bytes are free, as the kernel estimates it; the thread sanitizer keeps several
/// bytes for each. No, where the kernel does not say.
inline bool available(std::int64_t bytes)
{
#if defined(__SANITIZE_THREAD__)
    const std::int64_t needed = bytes * 6;
#else
    const std::int64_t needed = bytes * 5 / 4;
#endif
    std::ifstream facts("/proc/meminfo");
    std::string name;
    std::int64_t kibibytes = 0;
    while (facts >> name >> kibibytes) {
        if (name == "MemAvailable:") {
            return kibibytes * 1024 >= needed;
        }
        facts.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    return false;
}

} // namespace huge
