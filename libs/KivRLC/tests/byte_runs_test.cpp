// SPDX-License-Identifier: MIT
// Each way of reading bytes, whether it is this machine's or not, against a loop over bytes.
#include "../src/byte_runs.h"
#include "support/pixel_runs.h"

#include <KivRLC/KivRunBuffer.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace
{

using Runs = std::vector<Run>;
using Bytes = std::vector<std::uint8_t>;

Runs naive_runs(const std::uint8_t* bytes, std::ptrdiff_t stride, int columns, int rows)
{
    return support::runs_where(rows, columns, [=](int row, int column) { return bytes[row * stride + column] != 0; });
}

/// Stretches about `mean_length` long of background and of any other bytes.
Bytes stretches(std::size_t size, int mean_length, std::mt19937& random)
{
    std::bernoulli_distribution changes(1.0 / mean_length);
    std::uniform_int_distribution<int> foreground(1, 255);
    bool inside = false;
    Bytes bytes(size);
    for (std::uint8_t& byte : bytes) {
        inside = inside != changes(random);
        byte = static_cast<std::uint8_t>(inside ? foreground(random) : 0);
    }
    return bytes;
}

int blocks_allocated = 0;

/// Counts the blocks of memory that a vector takes, and finds none for more than `most` elements.
template <class T, std::size_t most>
struct WatchedAllocator : std::allocator<T> {
    template <class U>
    struct rebind {
        using other = WatchedAllocator<U, most>;
    };
    T* allocate(std::size_t count)
    {
        if (count > most) {
            throw std::bad_alloc();
        }
        ++blocks_allocated;
        return std::allocator<T>::allocate(count);
    }
};

template <class Words>
class ByteRuns : public testing::Test
{
protected:
    static Runs extracted(const std::uint8_t* bytes, std::ptrdiff_t stride, int columns, int rows)
    {
        Runs runs;
        kivrlc::append_byte_runs<Words>(bytes, stride, columns, rows, runs);
        return runs;
    }
};

struct WordsNames {
    template <class Words>
    static std::string GetName(int /*index*/)
    {
        return std::is_same_v<Words, kivrlc::PortableWords> ? "portable" : "native";
    }
};
using AllWords = std::conditional_t<std::is_same_v<kivrlc::NativeWords, kivrlc::PortableWords>,
                                    testing::Types<kivrlc::PortableWords>,
                                    testing::Types<kivrlc::PortableWords, kivrlc::NativeWords>>;
TYPED_TEST_SUITE(ByteRuns, AllWords, WordsNames);

TYPED_TEST(ByteRuns, WordsHaveABitForEachByteInOrder)
{
    for (std::size_t i = 0; i < 64; ++i) {
        for (int value = 0; value < 256; ++value) {
            std::array<std::uint8_t, 64> bytes{};
            bytes[i] = static_cast<std::uint8_t>(value);
            ASSERT_EQ(TypeParam::foreground_bits(bytes.data()), value != 0 ? std::uint64_t{1} << i : 0);
            ASSERT_EQ(TypeParam::is_background(bytes.data()), value == 0) << value << " at " << i;
            ASSERT_FALSE(TypeParam::is_foreground(bytes.data()));
        }
    }
}

TYPED_TEST(ByteRuns, WordsOfForegroundLackABitForEachByteOfBackground)
{
    for (const int value : {1, 127, 128, 255}) {
        std::array<std::uint8_t, 64> bytes{};
        bytes.fill(static_cast<std::uint8_t>(value));
        ASSERT_EQ(TypeParam::foreground_bits(bytes.data()), ~std::uint64_t{0});
        ASSERT_TRUE(TypeParam::is_foreground(bytes.data())) << value;
        for (std::uint8_t& byte : bytes) {
            byte = 0;
            ASSERT_EQ(~TypeParam::foreground_bits(bytes.data()), std::uint64_t{1} << (&byte - bytes.data()));
            ASSERT_FALSE(TypeParam::is_foreground(bytes.data()));
            ASSERT_FALSE(TypeParam::is_background(bytes.data()));
            byte = static_cast<std::uint8_t>(value);
        }
    }
}

TYPED_TEST(ByteRuns, BytesBeyondARangeAreForegroundWhateverTheRange)
{
    for (int least = 0; least < 256; ++least) {
        for (int greatest = least; greatest < 256; ++greatest) {
            const typename TypeParam::BytesBeyond beyond{static_cast<std::uint8_t>(least),
                                                         static_cast<std::uint8_t>(greatest - least)};
            for (int first = 0; first < 256; first += 64) {
                std::array<std::uint8_t, 64> bytes{};
                std::uint64_t expected = 0;
                for (int i = 0; i < 64; ++i) {
                    bytes[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(first + i);
                    expected |= std::uint64_t{first + i < least || first + i > greatest} << i;
                }
                ASSERT_EQ(TypeParam::foreground_bits(bytes.data(), beyond), expected) << least << ".." << greatest;
                ASSERT_EQ(TypeParam::is_background(bytes.data(), beyond), expected == 0) << least << ".." << greatest;
                ASSERT_EQ(TypeParam::is_foreground(bytes.data(), beyond), ~expected == 0) << least << ".." << greatest;
            }
        }
    }
}

TYPED_TEST(ByteRuns, AgreesWithALoopFromEveryOffsetAndAtEveryLength)
{
    std::mt19937 random(1);
    for (const int mean_length : {1, 2, 3, 10, 70}) {
        const Bytes bytes = stretches(64 + 200, mean_length, random);
        for (int offset = 0; offset < 64; ++offset) {
            for (int columns = 0; columns <= 200; ++columns) {
                const std::uint8_t* row = bytes.data() + offset;
                ASSERT_EQ(this->extracted(row, 0, columns, 1), naive_runs(row, 0, columns, 1))
                    << mean_length << " long, from " << offset << ", " << columns << " columns";
            }
        }
    }
}

TYPED_TEST(ByteRuns, AgreesWithALoopOnRowsOfAnyStride)
{
    std::mt19937 random(2);
    for (const int mean_length : {1, 2, 20, 1000}) {
        for (const int columns : {1, 64, 100, 1000}) {
            const std::ptrdiff_t stride = columns + 7;
            const Bytes bytes = stretches(static_cast<std::size_t>(stride) * 30, mean_length, random);
            ASSERT_EQ(this->extracted(bytes.data(), stride, columns, 30),
                      naive_runs(bytes.data(), stride, columns, 30));
            const std::uint8_t* last_row = bytes.data() + 29 * stride;
            ASSERT_EQ(this->extracted(last_row, -stride, columns, 30), naive_runs(last_row, -stride, columns, 30));
        }
    }
}

TYPED_TEST(ByteRuns, FindsARunInEverySecondPixelWhateverRoomThereIs)
{
    // 0101..., whose words have most runs, from every number of runs on that are there before.
    Bytes bytes(1 << 14);
    for (std::size_t i = 1; i < bytes.size(); i += 2) {
        bytes[i] = 1;
    }
    const Runs found = naive_runs(bytes.data(), 64, 64, 256);
    for (int before = 0; before < 200; ++before) {
        Runs runs(static_cast<std::size_t>(before), Run{-1, -2, -3});
        Runs expected = runs;
        kivrlc::append_byte_runs<TypeParam>(bytes.data(), 64, 64, 256, runs);
        expected.insert(expected.end(), found.begin(), found.end());
        ASSERT_EQ(runs, expected) << before;
    }
    EXPECT_EQ(this->extracted(bytes.data(), 0, 1 << 14, 1), naive_runs(bytes.data(), 0, 1 << 14, 1));
}

TYPED_TEST(ByteRuns, AppendsToAnUnclearedBufferAsWell)
{
    std::mt19937 random(3);
    const Bytes bytes = stretches(100 * 300, 2, random);
    kivrlc::RunBuffer runs;
    kivrlc::append_byte_runs<TypeParam>(bytes.data(), 300, 300, 100, runs);
    EXPECT_EQ(Runs(runs.begin(), runs.end()), naive_runs(bytes.data(), 300, 300, 100));
}

TYPED_TEST(ByteRuns, GrowsAVectorOnceForAFewRows)
{
    const Bytes bytes(64 * 64, 1);
    blocks_allocated = 0;
    std::vector<Run, WatchedAllocator<Run, SIZE_MAX>> runs;
    kivrlc::append_byte_runs<TypeParam>(bytes.data(), 64, 64, 64, runs);
    EXPECT_EQ(runs.size(), 64U);
    EXPECT_EQ(blocks_allocated, 2);
}

TYPED_TEST(ByteRuns, LeavesTheVectorAsItWasIfThereIsNoMemory)
{
    Bytes bytes(1000);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        bytes[i] = 1;
    }
    std::vector<Run, WatchedAllocator<Run, 100>> runs = {{7, 8, 9}};
    EXPECT_THROW(kivrlc::append_byte_runs<TypeParam>(bytes.data(), 0, 1000, 1, runs), std::bad_alloc);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0], (::Run{7, 8, 9}));
}

/// Has no vector hold more than 100 elements.
template <class T>
struct AllocatorOfFew : std::allocator<T> {
    template <class U>
    struct rebind {
        using other = AllocatorOfFew<U>;
    };
    std::size_t max_size() const { return 100; }
};

TEST(RunRoom, IsRefusedWhereNoVectorHasIt)
{
    using FewRuns = std::vector<::Run, AllocatorOfFew<::Run>>;
    FewRuns runs = {{7, 8, 9}};
    const auto progress = [] { return kivrlc::Progress{1, 1}; };
    {
        kivrlc::RunRoom<FewRuns> room(runs, 1);
        EXPECT_NO_THROW(room.with_room(room.begin(), 99, progress));
        EXPECT_THROW(room.with_room(room.begin(), 100, progress), std::bad_alloc);
    }
    EXPECT_EQ(runs.size(), 1U);
}

} // namespace
