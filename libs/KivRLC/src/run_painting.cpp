// SPDX-License-Identifier: MIT
#include "image_rows.h"
#include "run_set_access.h"

#include <KivRLC/KivRunComponents.h>
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

/// Gives the pixels of each run the value that `value_of` says of it.
template <class Pixel, class ValueOf>
void paint_runs(const KivRunSet& set, const KivImageView<Pixel>& image, ValueOf value_of)
{
    kivrlc::check_image(image);
    const Run* const end = kivrlc::behind_row(set.Runs(), image.height - 1);
    for (const Run* run = kivrlc::first_from_row(set.Runs(), 0); run < end; ++run) {
        const int first = std::max(run->colBegin, 0);
        const int last = std::min(run->colEnd, image.width - 1);
        if (first <= last) {
            fill_pixels(kivrlc::bytes_of(image, first, run->row), static_cast<std::size_t>(last - first) + 1,
                        value_of(*run));
        }
    }
}

template <class Pixel>
void paint(const KivRunSet& set, const KivImageView<Pixel>& image, Pixel value)
{
    paint_runs(set, image, [=](const Run& /*run*/) { return value; });
}

/// Paints runs on a background, which each row gets shortly before the first run on it, while it is in the cache.
///
/// A short run that lies right of all others so far is painted with some of the background behind it, by one store of a
/// fixed size: what comes behind it is painted later. Lengths of short runs can hardly be guessed.
class MaskPainter
{
public:
    MaskPainter(const KivImageView<std::uint8_t>& image, std::uint8_t value, std::uint8_t background)
        : image_(image), value_(value), background_(background), rows_at_once_(std::max(bytes_at_once / image.width, 1))
    {
        std::fill_n(pattern_, wide, value);
        std::fill_n(pattern_ + wide, wide, background);
    }

    void add(const Run& run)
    {
        const int first = std::max(run.colBegin, 0);
        const int last = std::min(run.colEnd, image_.width - 1);
        if (run.row < 0 || run.row >= image_.height || first > last) {
            return;
        }
        if (run.row >= cleared_) {
            clear_up_to(run.row + std::min(rows_at_once_, image_.height - run.row));
        }
        paint(run.row, first, static_cast<std::size_t>(last - first) + 1);
    }

    /// Gives all rows from the last one that was painted on the background.
    void finish() { clear_up_to(image_.height); }

private:
    static constexpr int bytes_at_once = 1 << 14;
    static constexpr std::size_t wide = 16;

    void clear_up_to(int stop)
    {
        if (stop == cleared_) {
            return;
        }
        const auto width = static_cast<std::size_t>(image_.width);
        if (image_.stride == image_.width) {
            std::memset(kivrlc::bytes_of(image_, 0, cleared_), background_,
                        width * static_cast<std::size_t>(stop - cleared_));
        } else {
            for (int row = cleared_; row < stop; ++row) {
                std::memset(kivrlc::bytes_of(image_, 0, row), background_, width);
            }
        }
        cleared_ = stop;
    }

    void paint(int row, int first, std::size_t length)
    {
        if (row > last_row_) {
            last_row_ = row;
            stop_ = 0;
        }
        const bool is_last = row == last_row_ && first >= stop_;
        unsigned char* const bytes = kivrlc::bytes_of(image_, first, row);
        stop_ = std::max(stop_, first + static_cast<int>(length));
        if (is_last && length <= wide && image_.width - first >= static_cast<int>(wide)) {
            std::memcpy(bytes, pattern_ + wide - length, wide);
        } else if (length >= wide && length <= 2 * wide) {
            std::memcpy(bytes, pattern_, wide);
            std::memcpy(bytes + length - wide, pattern_, wide);
        } else {
            std::memset(bytes, value_, length);
        }
    }

    KivImageView<std::uint8_t> image_;
    std::uint8_t value_;
    std::uint8_t background_;
    int rows_at_once_;
    int cleared_ = 0;   // rows from the top on
    int last_row_ = -1; // the lowest row with a run
    int stop_ = 0;      // behind its rightmost run, and those painted since then on rows above
    std::uint8_t pattern_[2 * wide];
};

} // namespace

void KivRuns::PaintMask(KivRunView runs, const KivImageView<std::uint8_t>& mask, std::uint8_t value,
                        std::uint8_t background)
{
    kivrlc::check_image(mask);
    if (mask.width == 0 || mask.height == 0) {
        return;
    }
    MaskPainter painter(mask, value, background);
    for (const Run& run : runs) {
        painter.add(run);
    }
    painter.finish();
}

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

void KivRuns::PaintComponents(const KivRunSet& set, Connectivity connectivity, const KivImageView<std::int32_t>& image)
{
    const std::vector<int> numbers = NumberComponents(set, connectivity).ofRun;
    paint_runs(set, image,
               [&](const Run& run) { return numbers[static_cast<std::size_t>(&run - set.Runs().begin())] + 1; });
}
