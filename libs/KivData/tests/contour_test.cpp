// SPDX-License-Identifier: MIT
#include <KivData/KivContour.h>

#include "first_member.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace
{

using Points = KivContour::Points;

const KivContour square{{0.0, 0.0}, {0.0, 2.0}, {2.0, 2.0}, {2.0, 0.0}};
const KivContour other{{5.0, 5.0}};

KivContour reversed(const KivContour& contour)
{
    Points points = contour.AllPoints();
    std::reverse(points.begin(), points.end());
    return KivContour(points);
}

KivContour moved_by(const KivContour& contour, double distance)
{
    Points points = contour.AllPoints();
    for (cv::Point_<double>& point : points) {
        point += cv::Point_<double>(distance, distance);
    }
    return KivContour(points);
}

void expect_points_first(const KivContour& contour)
{
    EXPECT_EQ(first_member<Points>(contour), &contour.AllPoints());
}

TEST(Contour, PointsToItsPointsFirst)
{
    KivContour contour;
    expect_points_first(contour);
    contour = square;
    expect_points_first(contour);
    const KivContour copied(contour);
    expect_points_first(copied);
    const KivContour moved(std::move(contour));
    expect_points_first(moved);
    expect_points_first(contour);
    contour = KivContour(square);
    expect_points_first(contour);
}

TEST(Contour, CountsPointsPushedThroughItsFirstMember)
{
    KivContour contour;
    const_cast<Points*>(first_member<Points>(contour))->push_back({1.0, 2.0});
    EXPECT_EQ(contour.Length(), 1);
    EXPECT_EQ(contour, (KivContour{{1.0, 2.0}}));
}

TEST(Contour, HasValueSemantics)
{
    KivContour copy(square);
    EXPECT_EQ(copy, square);
    EXPECT_NE(copy, other);
    copy = other;
    EXPECT_EQ(copy, other);
    const KivContour& same = copy;
    copy = same;
    EXPECT_EQ(copy, other);

    KivContour moved(std::move(copy));
    EXPECT_EQ(moved, other);
    EXPECT_EQ(copy, KivContour());
    copy = std::move(moved);
    EXPECT_EQ(copy, other);
    EXPECT_EQ(moved, KivContour());
    KivContour& itself = copy;
    copy = std::move(itself);
    EXPECT_EQ(copy, other);
}

TEST(Contour, IsAHoleWhenItsPointsRunClockwiseOnTheScreen)
{
    for (const double distance : {0.0, -1000.0, 1e9}) {
        EXPECT_FALSE(moved_by(square, distance).IsHole());
        EXPECT_TRUE(moved_by(reversed(square), distance).IsHole());
    }
}

TEST(Contour, IsAHoleHoweverSmall)
{
    EXPECT_TRUE((KivContour{{0.0, 0.0}, {1e-3, 0.0}, {0.0, 1e-3}}).IsHole());
    EXPECT_FALSE((KivContour{{0.0, 0.0}, {0.0, 1e-3}, {1e-3, 0.0}}).IsHole());
}

TEST(Contour, IsNoHoleWithoutAnInside)
{
    EXPECT_FALSE(KivContour().IsHole());
    EXPECT_FALSE(other.IsHole());
    EXPECT_FALSE((KivContour{{0.0, 0.0}, {3.0, 1.0}}).IsHole());
    EXPECT_FALSE((KivContour{{0.0, 0.0}, {1.0, 1.0}, {2.0, 2.0}, {1.0, 1.0}}).IsHole());
    EXPECT_FALSE((KivContour{{0.0, 0.0}, {std::nan(""), 1.0}, {2.0, 2.0}}).IsHole());
}

TEST(ContourArray, KeepsWhatIsAppended)
{
    KivContourArray array;
    EXPECT_EQ(array.Length(), 0);
    array.Append(square);
    array.Append(other);
    EXPECT_EQ(array.Length(), 2);
    EXPECT_EQ(array[0], square);
    EXPECT_EQ(std::as_const(array)[1], other);
    EXPECT_EQ(array, (KivContourArray{square, other}));
    EXPECT_EQ(std::count(array.begin(), array.end(), square), 1);
    array[0] = other;
    EXPECT_NE(array, (KivContourArray{square, other}));
    array.Append(array[0]);
    EXPECT_EQ(array, (KivContourArray{other, other, other}));
    array.Clear();
    EXPECT_EQ(array, KivContourArray());
}

TEST(ContourArray, PointsOfItsContoursSurviveGrowth)
{
    KivContourArray array;
    for (int i = 0; i < 100; ++i) {
        array.Append(square);
    }
    for (const KivContour& contour : array) {
        EXPECT_EQ(first_member<Points>(contour), &contour.AllPoints());
    }
}

TEST(ContourArray, RefusesIndicesOutside)
{
    KivContourArray array{square};
    const KivContourArray& constant = array;
    for (const int index : {-1, 1}) {
        EXPECT_THROW(array[index], std::out_of_range);
        EXPECT_THROW(constant[index], std::out_of_range);
    }
}

TEST(ContourArray, HasValueSemantics)
{
    const KivContourArray sample{square, other};
    KivContourArray copy(sample);
    KivContourArray moved(std::move(copy));
    EXPECT_EQ(moved, sample);
    EXPECT_EQ(copy.Length(), 0);
    copy = moved;
    EXPECT_EQ(copy, sample);
    const KivContourArray& same = copy;
    copy = same;
    EXPECT_EQ(copy, sample);
}

} // namespace
