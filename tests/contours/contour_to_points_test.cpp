// SPDX-License-Identifier: MIT
// Contours listed as points: every bit is kept, and the array is emptied before anything else.
#include "support/coordinates.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <limits>

namespace
{

using KIVMV::KivContourToPointArray;
using support::PointList;

void expect_points(const PointList& list)
{
    KivContour contour = list.contour();
    KivPointArray points = {{7, 8}, {0.5, -3}};
    EXPECT_EQ(KivContourToPointArray(contour, &points), KIVMV::KIVMV_OK);
    EXPECT_EQ(support::bits_of(points), support::bits_of(list.points)) << support::text_of(points);
    EXPECT_EQ(support::bits_of(contour), support::bits_of(list.points)) << "the contour";
}

TEST(ContourToPoints, PointsKeepTheirOrderAndRepetitions)
{
    expect_points({{5, 1}, {2, 9}, {5, 1}, {-3, -4}});
}

TEST(ContourToPoints, OnePointIsEnough)
{
    expect_points({{3, 4}});
}

TEST(ContourToPoints, FractionsAreKeptToTheLastBit)
{
    expect_points({{0.1, 1.0 / 3.0}, {2.4999999999999996, -2.5}, {1e300, -1e-300}});
}

TEST(ContourToPoints, SpecialValuesAreKept)
{
    using limits = std::numeric_limits<double>;
    expect_points({{-0.0, 0.0},
                   {support::infinity, -support::infinity},
                   {limits::denorm_min(), -limits::denorm_min()},
                   {limits::max(), limits::lowest()},
                   {support::nan, -support::nan}});
}

TEST(ContourToPoints, AContourWithoutPointsIsRefusedAndTheArrayIsEmptied)
{
    KivContour contour;
    KivPointArray points = {{7, 8}, {0.5, -3}};
    EXPECT_EQ(KivContourToPointArray(contour, &points), KIVMV::KIVMV_ERR_PARAM_1);
    EXPECT_EQ(points.Length(), 0);
}

} // namespace
