// SPDX-License-Identifier: MIT
#include "kivconvert/region_facts.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

using kivconvert::facts_of;
using kivconvert::RegionFacts;

void expect_extent(kivconvert::Extent extent, int first, int last)
{
    EXPECT_EQ(extent.first, first);
    EXPECT_EQ(extent.last, last);
}

TEST(RegionFacts, CountPixelsOnce)
{
    const RegionFacts facts = facts_of(KivRegion(10, 10, {{3, 2, 5}, {1, 7, 7}, {3, 4, 8}, {3, 2, 2}, {3, 5, 5}}));
    EXPECT_EQ(facts.runs, 5U);
    EXPECT_EQ(facts.outside, 0U);
    EXPECT_EQ(facts.pixels, 8);
    expect_extent(facts.columns, 2, 8);
    expect_extent(facts.rows, 1, 3);
}

TEST(RegionFacts, LeaveOutWhatLiesOutsideTheFrame)
{
    const RegionFacts facts = facts_of(KivRegion(4, 3, {{0, -5, 1}, {1, 3, 9}, {-1, 0, 3}, {3, 0, 3}, {2, 2, 1}}));
    EXPECT_EQ(facts.runs, 5U);
    EXPECT_EQ(facts.outside, 5U);
    EXPECT_EQ(facts.pixels, 3);
    expect_extent(facts.columns, 0, 3);
    expect_extent(facts.rows, 0, 1);
}

TEST(RegionFacts, HoldForTheLargestFrame)
{
    const RegionFacts facts =
        facts_of(KivRegion(INT_MAX, INT_MAX, {{5, INT_MIN, INT_MAX}, {INT_MAX - 1, INT_MAX - 1, INT_MAX - 1}}));
    EXPECT_EQ(facts.outside, 1U);
    EXPECT_EQ(facts.pixels, INT_MAX + 1LL);
    expect_extent(facts.columns, 0, INT_MAX - 1);
    expect_extent(facts.rows, 5, INT_MAX - 1);
}

TEST(RegionFacts, OfNothingAreEmpty)
{
    const RegionFacts facts = facts_of(KivRegion());
    EXPECT_EQ(facts.runs, 0U);
    EXPECT_EQ(facts.pixels, 0);
    expect_extent(facts.columns, 0, -1);
    expect_extent(facts.rows, 0, -1);
}

} // namespace
