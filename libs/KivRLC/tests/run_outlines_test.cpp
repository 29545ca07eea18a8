// SPDX-License-Identifier: MIT
// Outlines: literal ones, and what holds for those of every set.
#include "outline_laws.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using KivRuns::OutlineRing;
using KivRuns::Outlines;
using KivRuns::PixelCorner;
using run_sets::mask_of_bits;
using run_sets::random_mask;

/// A ring as text, such as "outer 0: 0,0 1,0 1,1 0,1".
std::string text_of(const Outlines& outlines, const OutlineRing& ring)
{
    std::ostringstream text;
    text << (ring.isHole ? "hole " : "outer ") << ring.outer << ":";
    for (std::size_t i = ring.begin; i < ring.end; ++i) {
        text << " " << outlines.corners[i].x << "," << outlines.corners[i].y;
    }
    return text.str();
}

std::vector<std::string> texts_of(const KivRunSet& set)
{
    const Outlines outlines = KivRuns::OutlinesOf(set);
    std::vector<std::string> texts;
    for (const OutlineRing& ring : outlines.rings) {
        texts.push_back(text_of(outlines, ring));
    }
    return texts;
}

using Texts = std::vector<std::string>;

TEST(RunOutlines, GoRoundAPixelAndARectangle)
{
    EXPECT_EQ(texts_of(KivRunSet()), Texts());
    EXPECT_EQ(texts_of({{0, 0, 0}}), (Texts{"outer 0: 0,0 1,0 1,1 0,1"}));
    EXPECT_EQ(texts_of({{-3, -2, 4}, {-2, -2, 4}}), (Texts{"outer 0: -2,-3 5,-3 5,-1 -2,-1"}));
}

TEST(RunOutlines, TurnWhereRowsDiffer)
{
    // . x x
    // x x .
    EXPECT_EQ(texts_of({{0, 1, 2}, {1, 0, 1}}), (Texts{"outer 0: 1,0 3,0 3,1 2,1 2,2 0,2 0,1 1,1"}));
}

TEST(RunOutlines, GoRoundHoles)
{
    EXPECT_EQ(texts_of({{0, 0, 2}, {1, 0, 0}, {1, 2, 2}, {2, 0, 2}, {4, 1, 1}}),
              (Texts{"outer 0: 0,0 3,0 3,3 0,3", "hole 0: 1,1 1,2 2,2 2,1", "outer 2: 1,4 2,4 2,5 1,5"}));
}

TEST(RunOutlines, KeepPixelsThatMeetByACornerApart)
{
    EXPECT_EQ(texts_of({{0, 0, 0}, {1, 1, 1}}), (Texts{"outer 0: 0,0 1,0 1,1 0,1", "outer 1: 1,1 2,1 2,2 1,2"}));
    EXPECT_EQ(texts_of({{0, 1, 1}, {1, 0, 0}}), (Texts{"outer 0: 1,0 2,0 2,1 1,1", "outer 1: 0,1 1,1 1,2 0,2"}));
}

TEST(RunOutlines, TellCornersApartLeftOfTheOrigin)
{
    EXPECT_EQ(
        texts_of({{-1, -4, -4}, {0, -3, -3}, {1, -4, -4}}),
        (Texts{"outer 0: -4,-1 -3,-1 -3,0 -4,0", "outer 1: -3,0 -2,0 -2,1 -3,1", "outer 2: -4,1 -3,1 -3,2 -4,2"}));
}

TEST(RunOutlines, CloseAHoleAtACorner)
{
    // x x .    The hole is open to the upper right by a corner only.
    // x . x
    // x x x
    EXPECT_EQ(texts_of({{0, 0, 1}, {1, 0, 0}, {1, 2, 2}, {2, 0, 2}}),
              (Texts{"outer 0: 0,0 2,0 2,1 3,1 3,3 0,3", "hole 0: 1,1 1,2 2,2 2,1"}));
    // Two holes that meet by a corner.
    EXPECT_EQ(texts_of({{0, 0, 3}, {1, 0, 0}, {1, 2, 3}, {2, 0, 1}, {2, 3, 3}, {3, 0, 3}}),
              (Texts{"outer 0: 0,0 4,0 4,4 0,4", "hole 0: 1,1 1,2 2,2 2,1", "hole 0: 2,2 2,3 3,3 3,2"}));
}

TEST(RunOutlines, EndWhereIntsEnd)
{
    EXPECT_EQ(texts_of({{INT_MIN, INT_MIN, INT_MAX - 1}}),
              (Texts{"outer 0: -2147483648,-2147483648 2147483647,-2147483648 2147483647,-2147483647 "
                     "-2147483648,-2147483647"}));
    EXPECT_THROW(KivRuns::OutlinesOf({{0, 0, INT_MAX}}), std::overflow_error);
    EXPECT_THROW(KivRuns::OutlinesOf({{INT_MAX, 0, 0}}), std::overflow_error);
}

TEST(RunOutlines, HoldForAllMasksOfFourByFour)
{
    for (unsigned bits = 0; bits < 65536; ++bits) {
        outline_laws::expect_outlines(mask_of_bits(bits, 4, 4));
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "mask " << bits;
    }
}

TEST(RunOutlines, HoldAtRandom)
{
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        outline_laws::expect_outlines(random_mask(1 + i % 70, 1 + static_cast<int>(random() % 40), 1 + i % 8, random));
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "mask " << i;
    }
}

} // namespace
