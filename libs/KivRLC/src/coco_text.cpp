// SPDX-License-Identifier: MIT
#include "coco_text.h"

#include <stdexcept>

namespace
{

constexpr char zero_character = '0';
constexpr unsigned digit_bits = 5;
constexpr unsigned more_bit = 1U << digit_bits;
constexpr unsigned sign_bit = more_bit >> 1;

unsigned digit_of(char character)
{
    const unsigned digit = static_cast<unsigned char>(character) - static_cast<unsigned>(zero_character);
    if (digit >= 2 * more_bit) {
        throw std::invalid_argument("KivRuns: COCO text has a character that is no digit");
    }
    return digit;
}

} // namespace

std::int64_t kivrlc::CocoTextReader::next_number()
{
    constexpr unsigned most_bits = 60; // more than the pixels of any frame, one bit for the sign, and no overflow
    std::uint64_t number = 0;
    unsigned digit = more_bit;
    for (unsigned shift = 0; (digit & more_bit) != 0; shift += digit_bits) {
        if (left_.empty()) {
            throw std::invalid_argument("KivRuns: COCO text ends within a count");
        }
        if (shift > most_bits) {
            throw std::invalid_argument("KivRuns: COCO text has a count that is too large");
        }
        digit = digit_of(left_.front());
        left_.remove_prefix(1);
        number |= std::uint64_t{digit & (more_bit - 1)} << shift;
        if ((digit & (more_bit | sign_bit)) == sign_bit && shift + digit_bits < 64) {
            number |= ~std::uint64_t{0} << (shift + digit_bits);
        }
    }
    return static_cast<std::int64_t>(number);
}

std::int64_t kivrlc::CocoTextReader::next()
{
    const std::int64_t number = next_number();
    std::int64_t count = number;
    if (index_++ > 2 && __builtin_add_overflow(number, last_but_one_, &count)) {
        throw std::invalid_argument("KivRuns: COCO text has a count that is too large");
    }
    last_but_one_ = last_;
    last_ = count;
    return count;
}

void kivrlc::append_coco_number(std::int64_t number, std::string& text)
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
