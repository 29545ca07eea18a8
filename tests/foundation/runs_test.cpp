// SPDX-License-Identifier: MIT
#include "foundation/runs.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>

namespace
{

constexpr std::uint64_t most_bytes = std::numeric_limits<std::ptrdiff_t>::max();

TEST(Runs, LengthOfTheLongestFitsIntoNoInt)
{
    EXPECT_EQ(kiv::length_of(5, 5), 1U);
    EXPECT_EQ(kiv::length_of(INT_MIN, INT_MAX), std::uint64_t{1} << 32);
}

TEST(Runs, CountsThatMemoryMayHoldAreSizes)
{
    EXPECT_EQ(kiv::checked_count<int>(0), 0U);
    EXPECT_EQ(kiv::checked_count<int>(most_bytes / sizeof(int)), static_cast<std::size_t>(most_bytes / sizeof(int)));
}

TEST(Runs, CountsThatNoMemoryHoldsAreRefused)
{
    EXPECT_THROW(kiv::checked_count<int>(most_bytes / sizeof(int) + 1), std::bad_alloc);
    EXPECT_THROW(kiv::checked_count<::Run>(UINT64_MAX), std::bad_alloc);
}

} // namespace
