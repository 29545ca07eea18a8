// SPDX-License-Identifier: MIT
#if defined(CV_VERSION) // where it is included before everything else
#define KIV_INCLUDED_OPENCV
#endif
#include <KivRLC/KivRun.h>
#if defined(CV_VERSION) && !defined(KIV_INCLUDED_OPENCV)
#error "KivRun.h needs no OpenCV"
#endif

#include <gtest/gtest.h>

namespace
{

constexpr Run run{1, 2, 3};
constexpr Run same = run;
constexpr Run others[] = {{0, 2, 3}, {1, 0, 3}, {1, 2, 0}};

TEST(RunTest, IsEqualWhenAllMembersAre)
{
    EXPECT_TRUE(run == same);
    EXPECT_FALSE(run != same);
    for (const auto& other : others) {
        EXPECT_FALSE(run == other);
        EXPECT_TRUE(run != other);
    }
}

} // namespace
