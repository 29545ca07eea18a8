// SPDX-License-Identifier: MIT
#include "image_rows.h"
#include "run_set_access.h"

#include <KivRLC/KivRunCoco.h>
#include <KivRLC/KivRunTransforms.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

namespace
{

std::int64_t pixels_of_frame(int width, int height)
{
    if (width < 0 || height < 0) {
        throw std::invalid_argument("KivRuns: a frame has a negative width or height");
    }
    return std::int64_t{width} * height;
}

void check_counts(const std::vector<std::int64_t>& counts, std::int64_t pixels)
{
    for (const std::int64_t count : counts) {
        if (count < 0) {
            throw std::invalid_argument("KivRuns: a COCO count is negative");
        }
        if (count > pixels) {
            throw std::invalid_argument("KivRuns: COCO counts are of more pixels than the frame has");
        }
        pixels -= count;
    }
    if (pixels != 0) {
        throw std::invalid_argument("KivRuns: COCO counts are of fewer pixels than the frame has");
    }
}

/// Pixels of a frame column by column: from place `begin` up to, but not including, place `stop`.
struct Places {
    std::int64_t begin;
    std::int64_t stop;
};

/// Collects pixels that are listed column by column.
class ColumnCollector
{
public:
    explicit ColumnCollector(std::int64_t height) : height_(height) {}

    void add(Places places)
    {
        const std::int64_t first = (places.begin + height_ - 1) / height_; // the first full column
        const std::int64_t stop = places.stop / height_;                   // behind the last one
        if (stop - first > height_) {
            add_columns({places.begin, first * height_});
            add_rows(static_cast<int>(first), static_cast<int>(stop - 1));
            add_columns({stop * height_, places.stop});
        } else {
            add_columns(places);
        }
    }

    KivRunSet set() const { return KivRuns::Transpose(KivRunSet(columns_)) | KivRunSet(rows_); }

private:
    void add_columns(Places places)
    {
        while (places.begin < places.stop) {
            const std::int64_t column = places.begin / height_;
            const std::int64_t top = column * height_;
            const std::int64_t stop = std::min(places.stop, top + height_);
            columns_.push_back(
                {static_cast<int>(column), static_cast<int>(places.begin - top), static_cast<int>(stop - 1 - top)});
            places.begin = stop;
        }
    }

    /// Full columns, more of them than they have pixels.
    void add_rows(int first_column, int last_column)
    {
        for (std::int64_t row = 0; row < height_; ++row) {
            rows_.push_back({static_cast<int>(row), first_column, last_column});
        }
    }

    std::int64_t height_;
    kivrlc::RunBuffer columns_; // with columns and rows exchanged
    kivrlc::RunBuffer rows_;
};

/// Fills `length` of the `room` bytes. Short stretches are filled by one store of a fixed size, as what comes behind
/// them is filled later; their lengths can hardly be guessed.
void fill_stretch(unsigned char* bytes, int length, int room, std::uint8_t value)
{
    constexpr int wide = 16;
    if (length <= wide && wide <= room) {
        std::memset(bytes, value, wide);
    } else {
        std::memset(bytes, value, static_cast<std::size_t>(length));
    }
}

/// The columns of a set that are full from row 0 to row height - 1, as a set on row 0.
KivRunSet full_columns(const KivRunSet& set, int height)
{
    KivRunSet full{{0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}};
    for (int row = 0; row < height && !full.Empty(); ++row) {
        full &= KivRuns::Translate(KivRunSet(set.RunsOfRow(row)), 0, -row);
    }
    return full;
}

/// The pixels of a set in a frame of at least one pixel, column by column.
std::vector<Places> places_of(const KivRunSet& set, std::int64_t height)
{
    const KivRunSet full = full_columns(set, static_cast<int>(height));
    const KivRunSet others = KivRuns::Transpose(set - KivRuns::ScaleUp(full, 1, static_cast<int>(height)));
    std::vector<Places> places;
    places.reserve(full.Runs().size() + others.Runs().size());
    for (const Run& columns : full.Runs()) {
        places.push_back({columns.colBegin * height, (columns.colEnd + 1) * height});
    }
    for (const Run& column : others.Runs()) {
        places.push_back({column.row * height + column.colBegin, column.row * height + column.colEnd + 1});
    }
    const auto middle = places.begin() + static_cast<std::ptrdiff_t>(full.Runs().size());
    std::inplace_merge(places.begin(), middle, places.end(),
                       [](const Places& a, const Places& b) { return a.begin < b.begin; });
    return places;
}

} // namespace

KivRunSet KivRuns::FromCocoCounts(const std::vector<std::int64_t>& counts, int width, int height)
{
    check_counts(counts, pixels_of_frame(width, height));
    ColumnCollector collector(height);
    std::int64_t place = 0;
    bool belongs = false;
    for (const std::int64_t count : counts) {
        if (belongs && count > 0) {
            collector.add({place, place + count});
        }
        place += count;
        belongs = !belongs;
    }
    return collector.set();
}

void KivRuns::PaintCocoCounts(const std::vector<std::int64_t>& counts, const KivImageView<std::uint8_t>& columns,
                              std::uint8_t value, std::uint8_t background)
{
    check_counts(counts, pixels_of_frame(columns.width, columns.height));
    int column = 0;
    int row = 0; // of the frame
    bool belongs = false;
    for (std::int64_t left : counts) {
        while (left > 0) {
            const int length = static_cast<int>(std::min<std::int64_t>(left, columns.width - row));
            fill_stretch(kivrlc::bytes_of(columns, row, column), length, columns.width - row,
                         belongs ? value : background);
            left -= length;
            row += length;
            if (row == columns.width) {
                row = 0;
                ++column;
            }
        }
        belongs = !belongs;
    }
}

KivRunSet KivRuns::FromCocoText(std::string_view text, int width, int height)
{
    return FromCocoCounts(CocoCountsFromText(text), width, height);
}

std::vector<std::int64_t> KivRuns::ToCocoCounts(const KivRunSet& set, int width, int height)
{
    const std::int64_t pixels = pixels_of_frame(width, height);
    std::vector<std::int64_t> counts;
    std::int64_t place = 0;
    if (pixels > 0) {
        for (const Places& places : places_of(Crop(set, {0, height - 1, 0, width - 1}), height)) {
            if (places.begin == place && !counts.empty()) {
                counts.back() += places.stop - places.begin; // goes on from the column before
            } else {
                counts.insert(counts.end(), {places.begin - place, places.stop - places.begin});
            }
            place = places.stop;
        }
    }
    if (place < pixels || counts.empty()) {
        counts.push_back(pixels - place);
    }
    return counts;
}

std::string KivRuns::ToCocoText(const KivRunSet& set, int width, int height)
{
    return CocoTextFromCounts(ToCocoCounts(set, width, height));
}
