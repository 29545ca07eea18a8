// SPDX-License-Identifier: MIT
// Contours of points: every bit is kept, and the contour is emptied before anything else.
#include "support/coordinates.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <limits>

namespace
{

using KIVMV::KivPointArrayToContour;
using support::PointList;

void expect_contour(const PointList& list)
{
    KivPointArray points = list.array();
    KivContour contour = {{7, 8}, {0.5, -3}};
    EXPECT_EQ(KivPointArrayToContour(points, &contour), KIVMV::KIVMV_OK);
    EXPECT_EQ(support::bits_of(contour), support::bits_of(list.points)) << support::text_of(contour);
    EXPECT_EQ(support::bits_of(points), support::bits_of(list.points)) << "the point array";
}

TEST(PointsToContour, PointsKeepTheirOrderAndRepetitions)
{
    expect_contour({{5, 1}, {2, 9}, {5, 1}, {-3, -4}});
}

TEST(PointsToContour, OnePointIsEnough)
{
    expect_contour({{3, 4}});
}

TEST(PointsToContour, FractionsAreKeptToTheLastBit)
{
    expect_contour({{0.1, 1.0 / 3.0}, {2.4999999999999996, -2.5}, {1e300, -1e-300}});
}

TEST(PointsToContour, SpecialValuesAreKept)
{
    using limits = std::numeric_limits<double>;
    expect_contour({{-0.0, 0.0},
                    {support::infinity, -support::infinity},
                    {limits::denorm_min(), -limits::denorm_min()},
                    {limits::max(), limits::lowest()},
                    {support::nan, -support::nan}});
}

TEST(PointsToContour, NoPointsAreRefusedAndTheContourIsEmptied)
{
    KivPointArray points;
    KivContour contour = {{7, 8}, {0.5, -3}};
    EXPECT_EQ(KivPointArrayToContour(points, &contour), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_EQ(contour.Length(), 0);
}

// The contour is emptied in place: its points' memory stays its own.
TEST(PointsToContour, TheMemoryOfTheContoursPointsIsKept)
{
    KivContour contour(KivContour::Points(100));
    const auto* memory = contour.AllPoints().data();
    KivPointArray points = {{1, 2}, {3, 4}};
    ASSERT_EQ(KivPointArrayToContour(points, &contour), KIVMV::KIVMV_OK);
    EXPECT_EQ(contour.AllPoints().data(), memory);
    EXPECT_GE(contour.AllPoints().capacity(), 100U);

    KivPointArray none;
    ASSERT_EQ(KivPointArrayToContour(none, &contour), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_GE(contour.AllPoints().capacity(), 100U);
}

} // namespace
