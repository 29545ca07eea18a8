// SPDX-License-Identifier: MIT
// Arrays as long as an int can tell. Their memory takes many seconds to come by, so they are tried only with
// KIV_LONG_TESTS in the environment.
#include "huge/memory.h"

#include <KivData/KivVarArray.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <utility>
#include <vector>

TEST(HugeArray, GrowsNoLongerThanAnIntCanTell)
{
    constexpr std::size_t more_than_fits = std::size_t{INT_MAX} + 2;
    if (std::getenv("KIV_LONG_TESTS") == nullptr || !huge::available(std::int64_t{sizeof(int)} * INT_MAX)) {
        GTEST_SKIP() << "needs KIV_LONG_TESTS and 8.6 GB of memory";
    }
    std::vector<int> ints;
    ints.reserve(more_than_fits);
    ints.resize(std::size_t{INT_MAX} - 1);
    KivVarArray array(std::move(ints));

    array.Append(KivVar(5));
    ASSERT_EQ(array.Length(), INT_MAX);
    EXPECT_THROW(array.Append(KivVar(6)), std::length_error);
    EXPECT_EQ(array.Length(), INT_MAX);
    EXPECT_EQ(array.PackedInts()->back(), 5);
}
