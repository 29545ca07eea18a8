// SPDX-License-Identifier: MIT
#include "image_rows.h"
#include "run_set_access.h"

#include <KivRLC/KivRunImages.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace
{

/// Fills `count` pixels, which need not stand where a pixel may.
template <class Pixel>
void fill_pixels(unsigned char* bytes, std::size_t count, Pixel value)
{
    if constexpr (sizeof(Pixel) == 1) {
        std::memset(bytes, value, count);
    } else {
        for (; count > 0; --count, bytes += sizeof(Pixel)) {
            std::memcpy(bytes, &value, sizeof(Pixel));
        }
    }
}

template <class Pixel>
void paint(const KivRunSet& set, const KivImageView<Pixel>& image, Pixel value)
{
    kivrlc::check_image(image);
    const Run* const end = kivrlc::behind_row(set.Runs(), image.height - 1);
    for (const Run* run = kivrlc::first_from_row(set.Runs(), 0); run < end; ++run) {
        const int first = std::max(run->colBegin, 0);
        const int last = std::min(run->colEnd, image.width - 1);
        if (first <= last) {
            fill_pixels(kivrlc::bytes_of(image, first, run->row), static_cast<std::size_t>(last - first) + 1, value);
        }
    }
}

} // namespace

void KivRuns::Paint(const KivRunSet& set, const KivImageView<std::uint8_t>& image, std::uint8_t value)
{
    paint(set, image, value);
}

void KivRuns::Paint(const KivRunSet& set, const KivImageView<std::uint16_t>& image, std::uint16_t value)
{
    paint(set, image, value);
}

void KivRuns::Paint(const KivRunSet& set, const KivImageView<std::int32_t>& image, std::int32_t value)
{
    paint(set, image, value);
}

void KivRuns::Paint(const KivRunSet& set, const KivImageView<float>& image, float value)
{
    paint(set, image, value);
}

void KivRuns::PaintLabels(const std::vector<KivRunSet>& sets, const KivImageView<std::int32_t>& image)
{
    std::int32_t label = 0;
    for (const KivRunSet& set : sets) {
        paint(set, image, ++label);
    }
}
