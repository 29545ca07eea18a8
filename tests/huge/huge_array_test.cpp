// SPDX-License-Identifier: MIT
// Arrays with as many elements as an int can count. They take seconds to fill, so they are tried only with
// KIV_LONG_TESTS in the environment.
#include "huge/folded_memory.h"

#include <KivData/KivContour.h>
#include <KivData/KivPoint.h>
#include <KivData/KivVarArray.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdlib>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

constexpr std::size_t one_too_many = std::size_t{INT_MAX} + 1;

class HugeArray : public testing::Test
{
protected:
    void SetUp() override
    {
        if (std::getenv("KIV_LONG_TESTS") == nullptr || !huge::can_fold_memory()) {
            GTEST_SKIP() << "needs KIV_LONG_TESTS and a build without sanitizers";
        }
    }
};

template <class Array, class Element>
void expect_one_too_many_rejected()
{
    std::vector<Element> elements(one_too_many);
    EXPECT_THROW(Array(std::move(elements)), std::length_error);
}

} // namespace

TEST_F(HugeArray, GrowsNoLongerThanAnIntCanCount)
{
    std::vector<int> ints;
    ints.reserve(one_too_many);
    ints.resize(one_too_many - 2);
    KivVarArray array(std::move(ints));

    array.Append(KivVar(5));
    ASSERT_EQ(array.Length(), INT_MAX);
    EXPECT_THROW(array.Append(KivVar(6)), std::length_error);
    EXPECT_EQ(array.Length(), INT_MAX);
    EXPECT_EQ(array.PackedInts()->back(), 5);
}

TEST_F(HugeArray, TakesNoMoreIntsThanAnIntCanCount)
{
    expect_one_too_many_rejected<KivVarArray, int>();
}

TEST_F(HugeArray, TakesNoMorePointsThanAnIntCanCount)
{
    expect_one_too_many_rejected<KivPointArray, KivPoint>();
}

TEST_F(HugeArray, TakesNoMorePointsOfAContourThanAnIntCanCount)
{
    expect_one_too_many_rejected<KivContour, cv::Point_<double>>();
}

TEST_F(HugeArray, TakesNoMoreContoursThanAnIntCanCount)
{
    std::vector<KivContour> contours;
    contours.reserve(one_too_many);
    contours.resize(one_too_many - 1);
    KivContourArray array(std::move(contours));
    EXPECT_EQ(array.Length(), INT_MAX);
    EXPECT_THROW(array.Append(KivContour()), std::length_error);
    EXPECT_EQ(array.Length(), INT_MAX);
}
