// SPDX-License-Identifier: MIT
#pragma once

#include <KivRLC/KivImageView.h>

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <type_traits>

namespace kivrlc
{

template <class Pixel>
void check_image(const KivImageView<Pixel>& image)
{
    if (image.width < 0 || image.height < 0) {
        throw std::invalid_argument("KivRuns: an image has a negative width or height");
    }
}

/// The bytes of pixel (x, y), which need not stand where a pixel may.
template <class Pixel>
auto bytes_of(const KivImageView<Pixel>& image, int x, int y)
{
    using Byte = std::conditional_t<std::is_const_v<Pixel>, const unsigned char, unsigned char>;
    return reinterpret_cast<Byte*>(image.pixels) + y * image.stride + x * static_cast<std::ptrdiff_t>(sizeof(Pixel));
}

} // namespace kivrlc
