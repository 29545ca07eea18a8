// SPDX-License-Identifier: MIT
#include <KivDataConvert/KivDataConvert.h>

#include <array>
#include <bit>

namespace
{

/// Four bytes in memory: the character, then zeros, on machines of either byte order.
constexpr int word_of(char character)
{
    return std::bit_cast<int>(std::array<char, sizeof(int)>{character});
}

} // namespace

const int KIVMV::str1 = word_of('o');
const int KIVMV::str2 = word_of('p');
const int KIVMV::str3 = word_of('t');
