// SPDX-License-Identifier: MIT
// Calls of libpng, which reports errors by longjmp.
#pragma once

#include <array>
#include <csetjmp>
#include <cstring>
#include <png.h>

namespace kivconvert
{

/// What libpng says is wrong. It is libpng's pointer for errors.
struct PngComplaint {
    std::array<char, 200> text = {};
};

/// To be given to libpng as what handles errors.
[[noreturn]] inline void on_png_error(png_structp png, png_const_charp text)
{
    auto* const complaint = static_cast<PngComplaint*>(png_get_error_ptr(png));
    std::strncpy(complaint->text.data(), text, complaint->text.size() - 1);
    png_longjmp(png, 1);
}

/// To be given to libpng as what handles warnings, which never concern pixels.
inline void ignore_png_warning(png_structp, png_const_charp) {}

/// Does the calls. Where one of them fails, the rest of `calls` is left without destructors, so nothing in there may
/// need one.
/// @return whether all of them succeeded
template <class Calls>
bool all_succeed(png_structp png, const Calls& calls)
{
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    calls();
    return true;
}

} // namespace kivconvert
