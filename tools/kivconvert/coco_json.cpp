// SPDX-License-Identifier: MIT
// Runs as COCO data sets hold them: down the columns, one after the other, the lengths of background and foreground in
// turn, as an array of numbers or packed in a string. There is nothing outside of the frame, and each pixel is there
// once.
#include "kivconvert/errors.h"
#include "kivconvert/image_files.h"
#include "kivconvert/json_formats.h"
#include "kivconvert/run_files.h"
#include "kivconvert/visible_runs.h"

#include <algorithm>
#include <fmt/format.h>
#include <limits>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

using Counts = std::vector<long long>;

// A number is packed into characters of 5 bits, the lowest first; its sign is that of the last one. From the fourth
// count on it is the difference to the count before the last.
constexpr int bits_per_character = 5;
constexpr int continues = 1 << bits_per_character;
constexpr int sign_bit = continues >> 1;
constexpr char first_character = '0';
constexpr int longest_number = 7; // in characters; enough for the difference of any two ints

/// What the difference at `index` is to.
long long base_of(const Counts& counts, std::size_t index)
{
    return index > 2 ? counts[index - 2] : 0;
}

[[noreturn]] void fail_at(std::size_t position, const std::string& file, const char* what)
{
    throw FileError(file, fmt::format("\"counts\" {} at character {}", what, position + 1));
}

/// Reads the number at `position` and moves on.
long long unpack_number(std::string_view text, std::size_t& position, const std::string& file)
{
    long long number = 0;
    for (int i = 0; i < longest_number; ++i) {
        if (position == text.size()) {
            fail_at(position, file, "breaks off");
        }
        const int character = text[position] - first_character;
        if (character < 0 || character >= 2 * continues) {
            fail_at(position, file, "has something else than the characters from 0 to o");
        }
        ++position;
        number += static_cast<long long>(character % continues) << (bits_per_character * i);
        if (character < continues) {
            const bool negative = (character & sign_bit) != 0;
            return negative ? number - (1LL << (bits_per_character * (i + 1))) : number;
        }
    }
    fail_at(position - 1, file, "has a number that is too long");
}

Counts unpack(std::string_view text, const std::string& file)
{
    Counts counts;
    for (std::size_t position = 0; position < text.size();) {
        const long long count = base_of(counts, counts.size()) + unpack_number(text, position, file);
        if (count < 0 || count > std::numeric_limits<int>::max()) {
            fail_at(position - 1, file, "has a count that is negative or too large");
        }
        counts.push_back(count);
    }
    return counts;
}

void pack_number(std::string& text, long long number)
{
    bool more = true;
    while (more) {
        int character = static_cast<int>(number & (continues - 1));
        number >>= bits_per_character;
        more = number != ((character & sign_bit) != 0 ? -1 : 0);
        character += more ? continues : 0;
        text += static_cast<char>(first_character + character);
    }
}

std::string packed(const Counts& counts)
{
    std::string text;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        pack_number(text, counts[i] - base_of(counts, i));
    }
    return text;
}

/// -1 where there is no such int.
int size_at(const Json& size, std::size_t index)
{
    return index < size.size() ? as_int(size[index]).value_or(-1) : -1;
}

Counts read_counts(const Json& document, const std::string& file)
{
    const auto member = document.find("counts");
    if (member != document.end() && member->is_string()) {
        return unpack(member->get_ref<const std::string&>(), file);
    }
    Counts counts;
    for (const Json& value : read_array(document, "counts", file)) {
        const std::optional<int> count = as_int(value);
        if (!count) {
            throw FileError(file, fmt::format("\"counts\"[{}] is not an int", counts.size()));
        }
        counts.push_back(*count);
    }
    return counts;
}

/// The counts must be lengths that make up the whole frame.
void expect_sum(const Counts& counts, long long pixels, const std::string& file)
{
    long long sum = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] < 0 || counts[i] > pixels - sum) {
            throw FileError(
                file, fmt::format("\"counts\"[{}] is {}, where 0 to {} pixels are left", i, counts[i], pixels - sum));
        }
        sum += counts[i];
    }
    if (sum != pixels) {
        throw FileError(file, fmt::format("\"counts\" has {} pixels, but the frame has {}", sum, pixels));
    }
}

/// The runs down the columns; the frame lies on its side.
KivRegion columns_of(const Counts& counts, int width, int height)
{
    std::vector<Run> runs;
    long long next = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const long long stop = next + counts[i];
        while (i % 2 == 1 && next < stop) {
            const long long column = next / height;
            const long long column_stop = std::min(stop, (column + 1) * height);
            runs.push_back({static_cast<int>(column), static_cast<int>(next % height),
                            static_cast<int>(column_stop - 1 - column * height)});
            next = column_stop;
        }
        next = stop;
    }
    return KivRegion(height, width, std::move(runs));
}

Counts counts_of(const KivRegion& region, const std::string& file)
{
    const KivRegion columns = transposed(region, file);
    Counts counts;
    long long next = 0;
    for (const Run& run : columns.Runs()) {
        const long long begin = static_cast<long long>(run.row) * region.Height() + run.colBegin;
        const long long length = run.colEnd - run.colBegin + 1;
        if (begin == next && next > 0) { // a run goes on in the next column
            counts.back() += length;
        } else {
            counts.insert(counts.end(), {begin - next, length});
        }
        next = begin + length;
    }
    const long long pixels = static_cast<long long>(region.Width()) * region.Height();
    if (next < pixels || counts.empty()) {
        counts.push_back(pixels - next);
    }
    return counts;
}

std::string as_text(const KivRegion& region, const Json& counts)
{
    return fmt::format("{{\"size\":[{},{}],\"counts\":{}}}\n", region.Height(), region.Width(), counts.dump());
}

} // namespace

KivRegion read_coco(const Json& document, const std::string& file)
{
    const Json& size = read_array(document, "size", file);
    const int height = size_at(size, 0);
    const int width = size_at(size, 1);
    if (size.size() != 2 || height < 0 || width < 0) {
        throw FileError(file, "\"size\" is not an array of two ints of at least 0, height and width");
    }
    expect_possible_frame(file, width, height);
    const Counts counts = read_counts(document, file);
    expect_sum(counts, static_cast<long long>(width) * height, file);
    return transposed(columns_of(counts, width, height), file);
}

KivRegion parse_runs_coco(std::string_view text, const std::string& file)
{
    return read_coco(parse_json_object(text, file), file);
}

std::string runs_as_coco(const KivRegion& region)
{
    return as_text(region, packed(counts_of(region, "the region")));
}

std::string runs_as_coco_counts(const KivRegion& region)
{
    return as_text(region, counts_of(region, "the region"));
}

} // namespace kivconvert
