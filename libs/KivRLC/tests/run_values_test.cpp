// SPDX-License-Identifier: MIT
// Which values of the small types are equal.
#include <KivRLC/KivRunBorders.h>
#include <KivRLC/KivRunBox.h>
#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunOutlines.h>

#include <gtest/gtest.h>

#include <initializer_list>

namespace
{

template <class Value>
void expect_equal_to_itself_only(const Value& value, std::initializer_list<Value> others)
{
    const Value copy = value;
    EXPECT_TRUE(value == copy);
    EXPECT_FALSE(value != copy);
    for (const Value& other : others) {
        EXPECT_FALSE(value == other);
        EXPECT_TRUE(value != other);
    }
}

TEST(RunValues, AreEqualIfAllMembersAre)
{
    expect_equal_to_itself_only<KivRunBox>({1, 2, 3, 4}, {{9, 2, 3, 4}, {1, 9, 3, 4}, {1, 2, 9, 4}, {1, 2, 3, 9}});
    expect_equal_to_itself_only<KivPixel>({1, 2}, {{9, 2}, {1, 9}});
    expect_equal_to_itself_only<KivRuns::PixelCorner>({1, 2}, {{9, 2}, {1, 9}});
    expect_equal_to_itself_only<KivRuns::Place>({1.0, 2.0}, {{9.0, 2.0}, {1.0, 9.0}});
}

} // namespace
