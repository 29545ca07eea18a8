// SPDX-License-Identifier: MIT
// Included before everything else in the tree with all mutants in it: which of them is the one that is run.
//
// KIV_MUTANT names it, by its number from 1 on. KIV_REACHED names a file of one byte for each mutant; the bytes of
// those that the program comes by become 1.
#pragma once

#include <cstdlib>
#include <type_traits>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace kiv_mutation
{

// Usable before they are initialised, because inline functions of one library may run while another one is loaded.
inline constinit unsigned char nowhere[1 << 16] = {};
inline constinit unsigned char* reached = nowhere;
inline constinit int chosen = 0;

inline const bool is_set_up = [] {
    if (const char* number = std::getenv("KIV_MUTANT")) {
        chosen = std::atoi(number);
    }
    if (const char* path = std::getenv("KIV_REACHED")) {
        const int file = open(path, O_RDWR);
        void* bytes = mmap(nullptr, sizeof nowhere, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        close(file);
        if (bytes == MAP_FAILED) {
            std::abort();
        }
        reached = static_cast<unsigned char*>(bytes);
    }
    return true;
}();

} // namespace kiv_mutation

/// Whether the code at hand is to be the mutant of that number. Never during compilation.
constexpr bool kiv_mutant(int number)
{
    if (std::is_constant_evaluated()) {
        return false;
    }
    kiv_mutation::reached[number] = 1;
    return kiv_mutation::chosen == number;
}

/// The same in the value of a constant, which must therefore be computed when the program starts.
inline bool kiv_mutant_of_constant(int number)
{
    return kiv_mutant(number);
}
