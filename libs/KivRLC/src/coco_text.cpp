// SPDX-License-Identifier: MIT
// Counts as text: 5 bits a character, the lowest first; a sixth bit says that more follow. The highest of the bits is
// the sign.
#include <KivRLC/KivRunCoco.h>

#include <algorithm>
#include <stdexcept>

namespace
{

constexpr char zero_character = '0';
constexpr unsigned digit_bits = 5;
constexpr unsigned more_bit = 1U << digit_bits;
constexpr unsigned sign_bit = more_bit >> 1;

/// What the number at `index` is the difference to.
std::int64_t base_of(const std::vector<std::int64_t>& counts, std::size_t index)
{
    return index > 2 ? counts[index - 2] : 0;
}

[[noreturn]] void fail_at(std::size_t position, const char* what)
{
    throw std::invalid_argument("KivRuns: COCO text " + std::string(what) + " at character " +
                                std::to_string(position + 1));
}

unsigned digit_at(std::string_view text, std::size_t position)
{
    if (position == text.size()) {
        fail_at(position, "ends within a count");
    }
    const unsigned digit = static_cast<unsigned char>(text[position]) - static_cast<unsigned>(zero_character);
    if (digit >= 2 * more_bit) {
        fail_at(position, "has something else than the characters from 0 to o");
    }
    return digit;
}

bool ends_number(char character)
{
    return ((static_cast<unsigned>(character) - static_cast<unsigned>(zero_character)) & more_bit) == 0;
}

/// Reads the number at `position` and moves on.
std::int64_t next_number(std::string_view text, std::size_t& position)
{
    constexpr unsigned most_bits = 60; // more than the pixels of any frame, one bit for the sign, and no overflow
    std::uint64_t number = 0;
    unsigned bits = 0;
    unsigned digit = more_bit;
    while ((digit & more_bit) != 0) {
        digit = digit_at(text, position);
        if (bits > most_bits) {
            fail_at(position, "has a count that is too large");
        }
        ++position;
        number |= std::uint64_t{digit & (more_bit - 1)} << bits;
        bits += digit_bits;
    }
    const std::uint64_t sign = bits < 64 ? std::uint64_t{1} << (bits - 1) : 0;
    return static_cast<std::int64_t>((number ^ sign) - sign);
}

void append_number(std::int64_t number, std::string& text)
{
    bool more = true;
    while (more) {
        unsigned digit = static_cast<unsigned>(number) & (more_bit - 1);
        number >>= digit_bits;
        more = number != ((digit & sign_bit) != 0 ? -1 : 0);
        digit |= more ? more_bit : 0;
        text.push_back(static_cast<char>(zero_character + static_cast<char>(digit)));
    }
}

} // namespace

std::vector<std::int64_t> KivRuns::CocoCountsFromText(std::string_view text)
{
    std::vector<std::int64_t> counts;
    counts.reserve(static_cast<std::size_t>(std::count_if(text.begin(), text.end(), ends_number)));
    for (std::size_t position = 0; position < text.size();) {
        const std::int64_t number = next_number(text, position);
        std::int64_t count = 0;
        if (__builtin_add_overflow(number, base_of(counts, counts.size()), &count)) {
            fail_at(position - 1, "has a count that is too large");
        }
        counts.push_back(count);
    }
    return counts;
}

std::string KivRuns::CocoTextFromCounts(const std::vector<std::int64_t>& counts)
{
    std::string text;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        append_number(counts[i] - base_of(counts, i), text);
    }
    return text;
}
