// SPDX-License-Identifier: MIT
#include "foundation/runs.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

namespace
{

TEST(Runs, LengthOfTheLongestFitsIntoNoInt)
{
    EXPECT_EQ(kiv::length_of(5, 5), 1U);
    EXPECT_EQ(kiv::length_of(INT_MIN, INT_MAX), std::uint64_t{1} << 32);
}

} // namespace
