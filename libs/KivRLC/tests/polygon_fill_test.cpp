// SPDX-License-Identifier: MIT
// Polygons filled into runs: by hand, against the definition pixel by pixel, and beside OpenCV's drawing.
#include "polygon_pixels.h"
#include "support/pictures.h"

#include <gtest/gtest.h>
#include <opencv2/core.hpp>
#include <opencv2/core/version.hpp>
#include <opencv2/imgproc.hpp>

#include <array>
#include <climits>
#include <cstdlib>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

// Found by GoogleTest, by argument-dependent lookup.
static void PrintTo(const KivPixel& pixel, std::ostream* out)
{
    *out << "(" << pixel.x << ", " << pixel.y << ")";
}

namespace
{

using polygon_pixels::filled;
using polygon_pixels::Polygon;
using polygon_pixels::Polygons;
using polygon_pixels::runs_by_pixels;
using Runs = std::vector<Run>;

std::string picture(const Polygons& polygons, int width, int height)
{
    return support::picture_of(filled(polygons, {0, height - 1, 0, width - 1}), width, height);
}

TEST(PolygonFill, OfNothingIsNothing)
{
    EXPECT_EQ(filled({}, {0, 9, 0, 9}), Runs());
    EXPECT_EQ(filled({{}, {}}, {0, 9, 0, 9}), Runs());
    EXPECT_EQ(filled({{{1, 1}, {5, 1}, {5, 5}}}, {0, 9, 0, -1}), Runs());
    EXPECT_EQ(filled({{{-1, 1}, {5, 1}, {5, 5}}}, {0, 9, 0, -1}), Runs());
    EXPECT_EQ(filled({{{-9, 1}, {7, 1}}}, {0, 9, 5, -5}), Runs());
    EXPECT_EQ(filled({{{1, 1}, {5, 1}, {5, 5}}}, {0, -1, 0, 9}), Runs());
    EXPECT_EQ(filled({{{1, 0}, {5, 0}, {5, 5}}}, {0, -1, 0, 9}), Runs());
    EXPECT_EQ(filled({{{1, 1}, {5, 1}, {5, 5}}}, {INT_MAX, INT_MIN, INT_MAX, INT_MIN}), Runs());
}

TEST(PolygonFill, OfOneCornerIsAPixelAndOfTwoALine)
{
    EXPECT_EQ(filled({{{2, 1}}}, {0, 9, 0, 9}), (Runs{{1, 2, 2}}));
    EXPECT_EQ(filled({{{2, 1}, {2, 1}, {2, 1}}}, {0, 9, 0, 9}), (Runs{{1, 2, 2}}));
    EXPECT_EQ(filled({{{2, 1}, {5, 1}}}, {0, 9, 0, 9}), (Runs{{1, 2, 5}}));
    EXPECT_EQ(filled({{{2, 1}, {2, 3}}}, {0, 9, 0, 9}), (Runs{{1, 2, 2}, {2, 2, 2}, {3, 2, 2}}));
    EXPECT_EQ(filled({{{2, 1}, {0, 3}}}, {0, 9, 0, 9}), (Runs{{1, 2, 2}, {2, 1, 1}, {3, 0, 0}}));
}

Runs filled_rounded(const std::vector<double>& coordinates, const KivRunBox& box)
{
    KivPolygonFill fill(box);
    fill.AddRounded(coordinates.data(), coordinates.size() / 2);
    return fill.Runs();
}

TEST(PolygonFill, RoundsCornersToTheNearestPixelTiesToEven)
{
    const KivRunBox box = {-9, 9, -9, 9};
    EXPECT_EQ(filled_rounded({0.5, 1.5}, box), (Runs{{2, 0, 0}}));
    EXPECT_EQ(filled_rounded({-0.5, -1.5}, box), (Runs{{-2, 0, 0}}));
    EXPECT_EQ(filled_rounded({2.5, -2.5}, box), (Runs{{-2, 2, 2}}));
    EXPECT_EQ(filled_rounded({0.49999999999999994, -0.50000000000000011}, box), (Runs{{-1, 0, 0}}));
    EXPECT_EQ(filled_rounded({1.2, 1.7, 4.6, 2.4}, box), (Runs{{2, 1, 5}}));
}

TEST(PolygonFill, RoundsCornersBeyondTheIntsToTheLastOnes)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(filled_rounded({2147483647.4, 0.0}, {0, 0, INT_MAX, INT_MAX}), (Runs{{0, INT_MAX, INT_MAX}}));
    EXPECT_EQ(filled_rounded({2147483647.5, 1e300}, {INT_MAX, INT_MAX, INT_MAX, INT_MAX}),
              (Runs{{INT_MAX, INT_MAX, INT_MAX}}));
    EXPECT_EQ(filled_rounded({-infinity, 3.0}, {0, 9, INT_MIN, INT_MIN}), (Runs{{3, INT_MIN, INT_MIN}}));
    EXPECT_EQ(filled_rounded({-infinity, 3.0, infinity, 3.0}, {0, 9, 0, 9}), (Runs{{3, 0, 9}}));
}

TEST(PolygonFill, LeavesOutCornersThatAreNoNumbers)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(filled_rounded({}, {0, 9, 0, 9}), Runs());
    EXPECT_EQ(filled_rounded({nan, 1.0, 1.0, nan}, {0, 9, 0, 9}), Runs());
    EXPECT_EQ(filled_rounded({nan, 1.0}, {0, 9, INT_MIN, INT_MIN + 9}), Runs());
    const std::vector<double> square = {nan, 7, 1, 1, nan, 5, 3, 1, 5, nan, 3, 3, 1, 3, nan, nan};
    EXPECT_EQ(filled_rounded(square, {0, 9, 0, 9}), (Runs{{1, 1, 3}, {2, 1, 3}, {3, 1, 3}}));
}

TEST(PolygonFill, PassesTheNearestPixelsOfFlatEdges)
{
    EXPECT_EQ(picture({{{0, 0}, {6, 2}}}, 7, 3), "##.....\n"
                                                 "..###..\n"
                                                 ".....##\n");
    EXPECT_EQ(picture({{{0, 2}, {6, 0}}}, 7, 3), ".....##\n"
                                                 "..###..\n"
                                                 "##.....\n");
}

TEST(PolygonFill, PassesTheSideOfItsLeftEndWhereAnEdgeRunsMidwayBetweenTwoPixels)
{
    EXPECT_EQ(picture({{{0, 0}, {4, 2}}}, 5, 3), "##...\n"
                                                 "..##.\n"
                                                 "....#\n");
    EXPECT_EQ(picture({{{0, 2}, {4, 0}}}, 5, 3), "....#\n"
                                                 "..##.\n"
                                                 "##...\n");
    EXPECT_EQ(picture({{{0, 0}, {2, 4}}}, 3, 5), "#..\n"
                                                 "#..\n"
                                                 ".#.\n"
                                                 ".#.\n"
                                                 "..#\n");
    EXPECT_EQ(picture({{{2, 0}, {0, 4}}}, 3, 5), "..#\n"
                                                 ".#.\n"
                                                 ".#.\n"
                                                 "#..\n"
                                                 "#..\n");
}

TEST(PolygonFill, FillsTheInsideByTheEvenOddRuleOverAllPolygons)
{
    const Polygon square = {{0, 0}, {6, 0}, {6, 6}, {0, 6}};
    const Polygon hole = {{2, 2}, {2, 4}, {4, 4}, {4, 2}};
    EXPECT_EQ(picture({square, hole}, 7, 7), "#######\n"
                                             "#######\n"
                                             "#######\n"
                                             "###.###\n"
                                             "#######\n"
                                             "#######\n"
                                             "#######\n");
    EXPECT_EQ(picture({square, square}, 7, 3), "#######\n"
                                               "#.....#\n"
                                               "#.....#\n");
    // A star of five points, which crosses itself.
    EXPECT_EQ(picture({{{6, 0}, {10, 11}, {0, 4}, {12, 4}, {2, 11}}}, 13, 12), "......#......\n"
                                                                               "......#......\n"
                                                                               ".....###.....\n"
                                                                               ".....###.....\n"
                                                                               "#############\n"
                                                                               ".####...####.\n"
                                                                               "...##...##...\n"
                                                                               "...###..##...\n"
                                                                               "...#######...\n"
                                                                               "...###.###...\n"
                                                                               "..###...###..\n"
                                                                               "..#.......#..\n");
}

TEST(PolygonFill, IsTheSameWhateverRoomWasMade)
{
    const Polygon square = {{1, 1}, {4, 1}, {4, 4}, {1, 4}};
    for (const std::size_t corners : {0U, 1U, 4U, 1000U}) {
        KivPolygonFill fill({0, 9, 0, 9});
        fill.Reserve(1, corners);
        fill.Add(square.data(), square.size());
        EXPECT_EQ(fill.Runs(), (Runs{{1, 1, 4}, {2, 1, 4}, {3, 1, 4}, {4, 1, 4}}));
    }
}

TEST(PolygonFill, IsCutAtTheBox)
{
    const Polygons diamond = {{{0, -10}, {10, 0}, {0, 10}, {-10, 0}}};
    EXPECT_EQ(filled(diamond, {-1, 1, -2, 20}), (Runs{{-1, -2, 9}, {0, -2, 10}, {1, -2, 9}}));
    EXPECT_EQ(filled(diamond, {-1, 1, -20, -9}), (Runs{{-1, -9, -9}, {0, -10, -9}, {1, -9, -9}}));
    EXPECT_EQ(filled(diamond, {-30, -9, -3, 3}), (Runs{{-10, 0, 0}, {-9, -1, 1}}));
    EXPECT_EQ(filled(diamond, {0, 0, 0, 0}), (Runs{{0, 0, 0}}));
    EXPECT_EQ(filled(diamond, {8, 9, 5, 9}), Runs());
}

TEST(PolygonFill, FillsABoxThatLiesDeepInside)
{
    const int far = INT_MAX;
    EXPECT_EQ(filled({{{-far, -far}, {far, -far}, {far, far}, {-far, far}}}, {5, 7, 1, 3}),
              (Runs{{5, 1, 3}, {6, 1, 3}, {7, 1, 3}}));
    EXPECT_EQ(filled({{{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MAX}}}, {0, 2, 0, 2}),
              (Runs{{0, 0, 0}, {1, 0, 1}, {2, 0, 2}}));
}

TEST(PolygonFill, TakesBoxesAtTheLargestAndSmallestInts)
{
    const KivRunBox corner = {INT_MAX - 1, INT_MAX, INT_MAX - 1, INT_MAX};
    EXPECT_EQ(filled({{{INT_MAX, INT_MAX}}}, corner), (Runs{{INT_MAX, INT_MAX, INT_MAX}}));
    EXPECT_EQ(filled({{{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}}}, corner),
              (Runs{{INT_MAX - 1, INT_MAX - 1, INT_MAX - 1}, {INT_MAX, INT_MAX, INT_MAX}}));
    EXPECT_EQ(filled({{{INT_MIN, 7}, {INT_MIN, 8}}}, {INT_MIN, INT_MAX, INT_MIN, INT_MIN + 5}),
              (Runs{{7, INT_MIN, INT_MIN}, {8, INT_MIN, INT_MIN}}));
    EXPECT_EQ(filled({{{0, INT_MIN}, {0, INT_MIN + 1}}, {{3, INT_MAX}}}, {INT_MIN, INT_MAX, 0, INT_MAX - 1}),
              (Runs{{INT_MIN, 0, 0}, {INT_MIN + 1, 0, 0}, {INT_MAX, 3, 3}}));
}

TEST(PolygonFill, CostsNothingForRowsOnWhichEdgesPassTheBoxBy)
{
    const KivRunBox strip = {INT_MIN, INT_MAX, 0, 3};
    for (const int column : {-9, 9}) {
        for (const int lower_column : {column, column - 1}) {
            EXPECT_EQ(filled({{{column, INT_MIN}, {lower_column, INT_MAX}}}, strip), Runs());
        }
    }
}

TEST(PolygonFill, RefusesBoxesOfMoreColumnsThanAnIntCounts)
{
    EXPECT_NO_THROW(KivPolygonFill({0, 0, -1, INT_MAX - 2}));
    EXPECT_THROW(KivPolygonFill({0, 0, -1, INT_MAX - 1}), std::invalid_argument);
    EXPECT_THROW(KivPolygonFill({0, 0, INT_MIN, INT_MAX}), std::invalid_argument);
}

/// Polygons of few corners of a kind: in the box, around it, anywhere, at the largest ints, all at one place.
Polygons random_polygons(std::mt19937& random, int width, int height)
{
    const auto between = [&random](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    const std::array<int, 8> extremes = {INT_MIN, INT_MAX, -1, 0, 5, width, 100000, -100000};
    const int kind = between(0, 4);
    const auto coordinate = [&](int size) {
        switch (kind) {
        case 0:
            return between(0, size - 1);
        case 1:
            return between(-2 * size - 9, 3 * size + 9);
        case 2:
            return between(INT_MIN, INT_MAX);
        case 3:
            return extremes[static_cast<std::size_t>(between(0, 7))];
        default:
            return between(-1, 4);
        }
    };
    Polygons polygons(static_cast<std::size_t>(between(1, 3)));
    for (Polygon& polygon : polygons) {
        for (int corners = between(0, 7); corners > 0; --corners) {
            polygon.push_back({coordinate(width), coordinate(height)});
        }
    }
    return polygons;
}

TEST(PolygonFill, HasThePixelsOfItsDefinition)
{
    const int rounds = std::getenv("KIV_LONG_TESTS") != nullptr ? 300000 : 6000;
    std::mt19937 random(41);
    for (int i = 0; i < rounds; ++i) {
        const int width = std::uniform_int_distribution<int>(1, 24)(random);
        const int height = std::uniform_int_distribution<int>(1, 24)(random);
        const Polygons polygons = random_polygons(random, width, height);
        const KivRunBox box = {0, height - 1, 0, width - 1};
        ASSERT_EQ(filled(polygons, box), runs_by_pixels(polygons, box)) << testing::PrintToString(polygons);
        const KivRunBox far = {INT_MAX - height, INT_MAX, INT_MIN, INT_MIN + width};
        ASSERT_EQ(filled(polygons, far), runs_by_pixels(polygons, far)) << testing::PrintToString(polygons);
    }
}

TEST(PolygonFill, HasThePixelsThatOpenCVDraws)
{
    if (CV_VERSION_MAJOR != 4 || CV_VERSION_MINOR != 6) {
        GTEST_SKIP() << "other versions of OpenCV draw other border pixels";
    }
    std::mt19937 random(42);
    for (int i = 0; i < 2000; ++i) {
        const int size = i % 2 == 0 ? 200 : 12;
        std::uniform_int_distribution<int> coordinate(0, size - 1);
        Polygon polygon;
        std::vector<cv::Point> chain;
        for (int corners = 1 + i % 12; corners > 0; --corners) {
            polygon.push_back({coordinate(random), coordinate(random)});
            chain.emplace_back(polygon.back().x, polygon.back().y);
        }
        cv::Mat drawn = cv::Mat::zeros(size, size, CV_8UC1);
        cv::drawContours(drawn, std::vector<std::vector<cv::Point>>{chain}, -1, cv::Scalar(255), cv::FILLED);
        ASSERT_EQ(picture({polygon}, size, size), support::picture_of(drawn));
    }
}

} // namespace
