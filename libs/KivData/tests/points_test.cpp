// SPDX-License-Identifier: MIT
#include <KivData/KivPoint.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using Runs = std::vector<Run>;

const KivPointArray sample{KivPoint{1.0, 2.0}, KivPoint{-3.5, 0.25}};

TEST(Point, StartsWithItsTwoCoordinates)
{
    const KivPoint point{1.5, -2.5};
    double coordinates[2];
    std::memcpy(coordinates, &point, sizeof coordinates);
    EXPECT_EQ(coordinates[0], 1.5);
    EXPECT_EQ(coordinates[1], -2.5);
    EXPECT_EQ(KivPoint(), (KivPoint{0.0, 0.0}));
    EXPECT_NE(point, (KivPoint{1.5, 2.5}));
    EXPECT_NE(point, (KivPoint{0.0, -2.5}));
}

TEST(PointArray, KeepsWhatIsAppended)
{
    KivPointArray array;
    KivPoint point{1.0, 2.0};
    array.Append(point);
    array.Append(KivPoint{-3.5, 0.25});
    point.x = 9.0;
    EXPECT_EQ(array.Length(), 2);
    EXPECT_EQ(array, sample);
    EXPECT_EQ(array.Points().size(), 2U);
    EXPECT_EQ(std::distance(array.begin(), array.end()), 2);
}

TEST(PointArray, AppendsItsOwnElements)
{
    KivPointArray array(sample);
    for (int i = 0; i < 100; ++i) {
        array.Append(array[i]);
    }
    for (int i = 0; i < array.Length(); ++i) {
        EXPECT_EQ(array[i], sample[i % 2]);
    }
}

TEST(PointArray, IsAssignableThroughItsReferences)
{
    KivPointArray array(sample);
    array[1].x = 7.0;
    array[0] = array[1];
    EXPECT_EQ(std::as_const(array)[0], (KivPoint{7.0, 0.25}));
}

TEST(PointArray, RefusesIndicesOutside)
{
    KivPointArray array(sample);
    for (const int index : {-1, 2}) {
        EXPECT_THROW(array[index], std::out_of_range);
        EXPECT_THROW(sample[index], std::out_of_range);
    }
}

TEST(PointArray, HasValueSemantics)
{
    KivPointArray copy(sample);
    EXPECT_EQ(copy, sample);
    copy[0].y = 5.0;
    EXPECT_NE(copy, sample);
    const KivPointArray& same = copy = sample;
    copy = same;
    EXPECT_EQ(copy, sample);

    KivPointArray moved(std::move(copy));
    EXPECT_EQ(moved, sample);
    EXPECT_EQ(copy.Length(), 0);
    copy.Append(KivPoint{1.0, 1.0});
    EXPECT_EQ(copy.Length(), 1);
    moved.Clear();
    EXPECT_EQ(moved, KivPointArray());
}

TEST(PointArray, AppendsThePixelsOfARow)
{
    KivPointArray array(sample);
    array.Reserve(100);
    EXPECT_EQ(array, sample);

    KivPointArray expected(sample);
    for (const KivPoint& pixel : {KivPoint{-1, 5}, KivPoint{0, 5}, KivPoint{INT_MAX, INT_MIN}}) {
        expected.Append(pixel);
    }
    array.AppendPixels(5, -1, 0);
    array.AppendPixels(INT_MIN, INT_MAX, INT_MAX);
    EXPECT_EQ(array, expected);
}

TEST(PointArray, HasRoomForAsManyPointsAsAnIntCounts)
{
    KivPointArray array(sample);
    EXPECT_THROW(array.AppendPixels(0, INT_MIN, INT_MAX), std::length_error);
    EXPECT_THROW(array.AppendPixels(0, 0, INT_MAX - 1), std::length_error);
    EXPECT_EQ(array, sample);
}

TEST(PointArray, ThePixelsOfRunsAreAppendedInTheirOrder)
{
    KivPointArray none;
    none.AppendPixels(Runs{{5, 2, -9}});
    EXPECT_EQ(none, KivPointArray());
    Runs runs = {{5, 2, 1}, {3, -1, 0}, {3, -1, -1}, {INT_MIN, INT_MAX - 1, INT_MAX}};
    for (int i = 0; i < 700; ++i) {
        runs.push_back({i, 7 * i, 8 * i});
    }
    std::vector<KivPoint> expected = {{0.5, 0.5}};
    for (const auto& run : runs) {
        for (long long column = run.colBegin; column <= run.colEnd; ++column) {
            expected.push_back({static_cast<double>(column), static_cast<double>(run.row)});
        }
    }
    KivPointArray points = {{0.5, 0.5}};
    points.AppendPixels(runs);
    EXPECT_EQ(points, KivPointArray(expected));
}

TEST(PointArray, RunsOfTooManyPixelsAreRejected)
{
    KivPointArray points = {{0.5, 0.5}};
    const Runs runs = {{0, 0, INT_MAX - 1}};
    EXPECT_THROW(points.AppendPixels(runs), std::length_error);
    EXPECT_EQ(points, (KivPointArray{{0.5, 0.5}}));
}

} // namespace
