// SPDX-License-Identifier: MIT
// The three exported words, byte by byte.
#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <set>
#include <type_traits>

namespace
{

using Bytes = std::array<unsigned char, 4>;

static_assert(sizeof(KIVMV::str1) == 4 && sizeof(KIVMV::str2) == 4 && sizeof(KIVMV::str3) == 4);
static_assert(std::is_const_v<std::remove_reference_t<decltype(KIVMV::str1)>>);
static_assert(std::is_const_v<std::remove_reference_t<decltype(KIVMV::str2)>>);
static_assert(std::is_const_v<std::remove_reference_t<decltype(KIVMV::str3)>>);

Bytes bytes_of(const int& word)
{
    Bytes bytes;
    std::memcpy(bytes.data(), &word, bytes.size());
    return bytes;
}

TEST(DataWords, FirstIsO)
{
    EXPECT_EQ(bytes_of(KIVMV::str1), (Bytes{0x6F, 0, 0, 0}));
}

TEST(DataWords, SecondIsP)
{
    EXPECT_EQ(bytes_of(KIVMV::str2), (Bytes{0x70, 0, 0, 0}));
}

TEST(DataWords, ThirdIsT)
{
    EXPECT_EQ(bytes_of(KIVMV::str3), (Bytes{0x74, 0, 0, 0}));
}

TEST(DataWords, AreThreeObjects)
{
    const std::set<const int*> places = {&KIVMV::str1, &KIVMV::str2, &KIVMV::str3};
    EXPECT_EQ(places.size(), 3U);
}

} // namespace
