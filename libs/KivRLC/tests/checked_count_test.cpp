// SPDX-License-Identifier: MIT
// Counts of what no memory can hold, which is less on machines of 32 bits than coordinates can ask for.
#include "common/checked_count.h"

#include <KivRLC/KivRunBorders.h>
#include <KivRLC/KivRunSet.h>
#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>

namespace
{

using kivcommon::checked_count;

constexpr std::int64_t most_bytes = std::numeric_limits<std::ptrdiff_t>::max();

TEST(CheckedCount, GivesBackWhatMemoryMayHold)
{
    EXPECT_EQ(checked_count<::Run>(0), 0U);
    EXPECT_EQ(checked_count<::Run>(7), 7U);
    EXPECT_EQ(checked_count<char>(most_bytes), static_cast<std::size_t>(most_bytes));
    EXPECT_EQ(checked_count<::Run>(most_bytes / 12), static_cast<std::size_t>(most_bytes / 12));
}

TEST(CheckedCount, RefusesWhatNoMemoryHolds)
{
    EXPECT_THROW(checked_count<::Run>(most_bytes / 12 + 1), std::bad_alloc);
    EXPECT_THROW(checked_count<::Run>(INT64_MAX), std::bad_alloc);
    EXPECT_THROW(checked_count<::Run>(UINT64_MAX), std::bad_alloc);
}

TEST(CheckedCount, GuardsResultsThatHave2To32Elements)
{
    if (sizeof(void*) > 4) {
        GTEST_SKIP() << "there may be memory for them";
    }
    const KivRunSet two_pixels{{INT_MIN, 0, 0}, {INT_MAX, 0, 0}};
    const KivRunSet full_row{{0, INT_MIN, INT_MAX}};
    EXPECT_THROW(two_pixels.Complement({INT_MIN, INT_MAX, 0, 0}), std::bad_alloc);
    EXPECT_THROW(KivRuns::Transpose(full_row), std::bad_alloc);
    EXPECT_THROW(KivRunBorders::Of(full_row.Runs()), std::bad_alloc);
}

} // namespace
