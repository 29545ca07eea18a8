// SPDX-License-Identifier: MIT
// Measures of contours, and contours made of contours, held against values computed by hand, and against OpenCV where
// it has the same measure.
#include <KivData/KivContourMeasures.h>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>
#include <vector>

namespace
{

using Point = cv::Point_<double>;

// Outer borders run down their left side; this one is 4 wide and 3 high.
const KivContour rectangle = {{1, 2}, {1, 5}, {5, 5}, {5, 2}};
const KivContour hole = {{5, 2}, {5, 5}, {1, 5}, {1, 2}};
const KivContour point = {{3, 4}};
const KivContour there_and_back = {{0, 0}, {3, 4}};
const KivContour line = {{0, 0}, {2, 2}, {6, 6}}; // goes back over (2, 2)
const KivContour bow = {{0, 0}, {2, 2}, {2, 0}, {0, 2}};

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

KivContour random_contour(std::mt19937& random, int points, int size)
{
    std::uniform_int_distribution<int> coordinate(0, size - 1);
    KivContour::Points made;
    for (int i = 0; i < points; ++i) {
        made.emplace_back(coordinate(random), coordinate(random));
    }
    return KivContour(std::move(made));
}

std::vector<cv::Point2f> floats_of(const KivContour& contour)
{
    return {contour.AllPoints().begin(), contour.AllPoints().end()};
}

TEST(ContourMeasures, LengthIsThatOfTheClosedLine)
{
    EXPECT_EQ(KivContours::Length(rectangle), 14.0);
    EXPECT_EQ(KivContours::Length(there_and_back), 10.0);
    EXPECT_EQ(KivContours::Length(point), 0.0);
    EXPECT_EQ(KivContours::Length({}), 0.0);
    EXPECT_EQ(KivContours::Length({{0, 0}, {0, 0}}), 0.0);
}

TEST(ContourMeasures, AreaHasTheSignOfTheDirection)
{
    EXPECT_EQ(KivContours::SignedArea(rectangle), -12.0);
    EXPECT_EQ(KivContours::SignedArea(hole), 12.0);
    EXPECT_FALSE(rectangle.IsHole());
    EXPECT_TRUE(hole.IsHole());
    EXPECT_EQ(KivContours::SignedArea(bow), 0.0); // its halves cancel out
    EXPECT_EQ(KivContours::SignedArea(line), 0.0);
    EXPECT_EQ(KivContours::SignedArea({}), 0.0);
}

TEST(ContourMeasures, AreaFarFromTheOriginIsExact)
{
    const double far = std::ldexp(1.0, 50);
    EXPECT_EQ(KivContours::SignedArea({{far, far}, {far, far + 1}, {far + 1, far + 1}}), -0.5);
}

TEST(ContourMeasures, BoundsAreReached)
{
    EXPECT_EQ(KivContours::BoundsOf({{2, -1}, {0.5, 7}, {9, 3}}), (KivContours::Bounds{0.5, -1, 9, 7}));
    EXPECT_EQ(KivContours::BoundsOf({{9, 3}, {0.5, 7}, {2, -1}}), (KivContours::Bounds{0.5, -1, 9, 7}));
    EXPECT_EQ(KivContours::BoundsOf(point), (KivContours::Bounds{3, 4, 3, 4}));
    EXPECT_EQ(KivContours::BoundsOf({{-3, -4}}), (KivContours::Bounds{-3, -4, -3, -4}));
    EXPECT_NE(KivContours::BoundsOf(point), (KivContours::Bounds{3, 4, 3, 5}));
    EXPECT_THROW(KivContours::BoundsOf({}), std::invalid_argument);
}

TEST(ContourMeasures, CentroidIsThatOfTheAreaOrOfTheLineOrThePoint)
{
    EXPECT_EQ(KivContours::Centroid(rectangle), Point(3, 3.5));
    EXPECT_EQ(KivContours::Centroid(hole), Point(3, 3.5));
    EXPECT_EQ(KivContours::Centroid({{0, 0}, {0, 3}, {6, 0}}), Point(2, 1));
    EXPECT_EQ(KivContours::Centroid(there_and_back), Point(1.5, 2));
    EXPECT_EQ(KivContours::Centroid({{0, 0}, {4, 0}, {2, 0}, {2, 0}}), Point(2, 0));
    EXPECT_EQ(KivContours::Centroid(point), Point(3, 4));
    EXPECT_EQ(KivContours::Centroid({{3, 4}, {3, 4}}), Point(3, 4));
    EXPECT_THROW(KivContours::Centroid({}), std::invalid_argument);
}

TEST(ContourMeasures, OrientationIsThatOfTheLongerSide)
{
    EXPECT_EQ(KivContours::Orientation(rectangle), 0.0);
    EXPECT_EQ(KivContours::Orientation(hole), 0.0);
    EXPECT_DOUBLE_EQ(KivContours::Orientation({{0, 0}, {0, 5}, {2, 5}, {2, 0}}), CV_PI / 2.0);
    EXPECT_DOUBLE_EQ(KivContours::Orientation({{0, 1}, {1, 0}, {5, 4}, {4, 5}}), CV_PI / 4.0);
    EXPECT_DOUBLE_EQ(KivContours::Orientation({{0, 4}, {1, 5}, {5, 1}, {4, 0}}), -CV_PI / 4.0);
    EXPECT_EQ(KivContours::Orientation({{0, 0}, {0, 0.25}, {1, 0.25}, {1, 0}}), 0.0);
    EXPECT_DOUBLE_EQ(KivContours::Orientation(line), CV_PI / 4.0);
    EXPECT_DOUBLE_EQ(KivContours::Orientation({{2, 1}, {2, 8}}), CV_PI / 2.0);
    EXPECT_EQ(KivContours::Orientation({{0, 0}, {0, 2}, {2, 2}, {2, 0}}), 0.0); // extends equally everywhere
    EXPECT_EQ(KivContours::Orientation(point), 0.0);
    EXPECT_THROW(KivContours::Orientation({}), std::invalid_argument);
}

TEST(ContourMeasures, MomentsAgreeWithThoseOfOpenCv)
{
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        const KivContour contour = KivContours::Hull(random_contour(random, 12, 50));
        const cv::Moments moments = cv::moments(floats_of(contour));
        if (moments.m00 == 0.0) {
            continue;
        }
        EXPECT_NEAR(std::abs(KivContours::SignedArea(contour)), moments.m00, 1e-6);
        EXPECT_NEAR(KivContours::Centroid(contour).x, moments.m10 / moments.m00, 1e-6);
        EXPECT_NEAR(KivContours::Centroid(contour).y, moments.m01 / moments.m00, 1e-6);
        EXPECT_NEAR(KivContours::Orientation(contour),
                    std::atan2(2.0 * moments.mu11, moments.mu20 - moments.mu02) / 2.0, 1e-6);
        EXPECT_NEAR(KivContours::Length(contour), cv::arcLength(floats_of(contour), true), 1e-4);
    }
}

TEST(ContourMeasures, InsideIsByTheEvenOddRuleWithTheLine)
{
    EXPECT_TRUE(KivContours::Contains(rectangle, {3, 3}));
    EXPECT_TRUE(KivContours::Contains(hole, {3, 3}));
    EXPECT_FALSE(KivContours::Contains(rectangle, {0.5, 3}));
    EXPECT_FALSE(KivContours::Contains(rectangle, {6, 3}));
    EXPECT_FALSE(KivContours::Contains(rectangle, {3, 5.25}));
    for (const Point& on_line : {Point(1, 3), Point(5, 3), Point(3, 2), Point(3, 5), Point(1, 2), Point(5, 5)}) {
        EXPECT_TRUE(KivContours::Contains(rectangle, on_line)) << on_line;
    }
    EXPECT_FALSE(KivContours::Contains(rectangle, {0, 2})); // in line with a side
    EXPECT_FALSE(KivContours::Contains(rectangle, {6, 5}));
    const KivContour twice = {{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}, {1, 1}, {1, 3}, {3, 3}, {3, 1}, {1, 1}};
    EXPECT_FALSE(KivContours::Contains(twice, {2, 2.5}));
    EXPECT_TRUE(KivContours::Contains(twice, {0.5, 2}));
    EXPECT_TRUE(KivContours::Contains(point, {3, 4}));
    EXPECT_FALSE(KivContours::Contains(point, {3, 5}));
    EXPECT_TRUE(KivContours::Contains(there_and_back, {1.5, 2}));
    EXPECT_FALSE(KivContours::Contains({}, {0, 0}));
}

TEST(ContourMeasures, InsideAgreesWithOpenCv)
{
    std::mt19937 random(2);
    for (int i = 0; i < 40; ++i) {
        const KivContour contour = random_contour(random, 3 + i % 8, 12);
        const std::vector<cv::Point2f> floats = floats_of(contour);
        for (int y = -1; y < 13; ++y) {
            for (int x = -1; x < 13; ++x) {
                const cv::Point2f place(static_cast<float>(x), static_cast<float>(y));
                EXPECT_EQ(KivContours::Contains(contour, place), cv::pointPolygonTest(floats, place, false) >= 0.0);
            }
        }
    }
}

TEST(ContourMeasures, NearestIsFoundOnEdgesAsLongAsDoublesGo)
{
    constexpr double huge = 1e308;
    const KivContour level = {{huge, 0}, {-huge, 0}};
    EXPECT_EQ(KivContours::Nearest(level, {0, 3}).point, cv::Point_<double>(0, 0));
    EXPECT_EQ(KivContours::Nearest(level, {0, 3}).distance, 3.0);
    const KivContour diagonal = {{huge, huge}, {-huge, -huge}};
    EXPECT_EQ(KivContours::Nearest(diagonal, {huge / 2, -huge / 2}).point, cv::Point_<double>(0, 0));
    EXPECT_NEAR(KivContours::Nearest(diagonal, {huge / 2, -huge / 2}).distance / huge, std::sqrt(0.5), 1e-15);
    const auto beyond = KivContours::Nearest({{1e160, 1e-300}, {2e160, 1e-300}}, {3e160, 1e-300});
    EXPECT_EQ(beyond.point, cv::Point_<double>(2e160, 1e-300));
    EXPECT_DOUBLE_EQ(beyond.distance, 1e160);
    const auto opposite = KivContours::Nearest({{-huge, 5}, {-huge, -5}}, {huge / 2, 1});
    EXPECT_EQ(opposite.point, cv::Point_<double>(-huge, 1));
    EXPECT_EQ(opposite.distance, 1.5 * huge);
}

TEST(ContourMeasures, NearestIsOnTheFirstOfTheNearestEdges)
{
    const auto nearest = KivContours::Nearest(rectangle, {3, 7});
    EXPECT_EQ(nearest.point, Point(3, 5));
    EXPECT_EQ(nearest.distance, 2.0);
    EXPECT_EQ(nearest.edge, 1);
    const auto corner = KivContours::Nearest(rectangle, {-2, -2}); // both edges at the corner end there
    EXPECT_EQ(corner.point, Point(1, 2));
    EXPECT_EQ(corner.distance, 5.0);
    EXPECT_EQ(corner.edge, 0);
    EXPECT_EQ(KivContours::Nearest(rectangle, {4, 1}).edge, 3); // the one back to the first point
    EXPECT_EQ(KivContours::Nearest(point, {3, 6}).distance, 2.0);
    const auto exact = KivContours::Nearest({{1, 0}, {1e-17, 0}}, {1e-17, 0}); // 1 + (1e-17 - 1) is 0
    EXPECT_EQ(exact.point, Point(1e-17, 0));
    EXPECT_EQ(exact.distance, 0.0);
    EXPECT_EQ(exact.edge, 0);
    EXPECT_THROW(KivContours::Nearest({}, {0, 0}), std::invalid_argument);
}

TEST(ContourMeasures, SimplifiedKeepsCorners)
{
    const KivContour stepped = {{1, 2}, {1, 3}, {1, 5}, {2, 5}, {5, 5}, {5, 2}, {3, 2}};
    EXPECT_EQ(KivContours::Simplified(stepped, 0.0), rectangle);
    const KivContour flat_roof = {{0, 4}, {4, 4}, {4, 0}, {2, -0.5}, {0, 0}};
    EXPECT_EQ(KivContours::Simplified(flat_roof, 0.5), (KivContour{{0, 4}, {4, 4}, {4, 0}, {0, 0}}));
    EXPECT_EQ(KivContours::Simplified(flat_roof, 0.25), flat_roof);
    EXPECT_EQ(KivContours::Simplified(rectangle, infinity).Length(), 2);
    EXPECT_EQ(KivContours::Simplified({{0, 0}, {0, 2}, {2, 0}}, infinity), (KivContour{{0, 0}, {0, 2}})); // both as far
    EXPECT_EQ(KivContours::Simplified({{3, 4}, {3, 4}, {3, 4}}, 0.0), point);
    EXPECT_EQ(KivContours::Simplified({{3, 4}, {3, 4}}, 0.0), point);
    EXPECT_EQ(KivContours::Simplified(there_and_back, infinity), there_and_back);
    EXPECT_EQ(KivContours::Simplified(point, 1.0), point);
    EXPECT_EQ(KivContours::Simplified({}, 1.0), KivContour());
    EXPECT_THROW(KivContours::Simplified(rectangle, -1.0), std::invalid_argument);
    EXPECT_THROW(KivContours::Simplified(rectangle, nan), std::invalid_argument);
}

double furthest_from(const KivContour& from, const KivContour& to)
{
    double furthest = 0.0;
    const KivContour places = KivContours::Resampled(from, 997);
    for (const Point& place : places.AllPoints()) {
        furthest = std::max(furthest, KivContours::Nearest(to, place).distance);
    }
    return furthest;
}

TEST(ContourMeasures, SimplifiedStaysWithinTheTolerance)
{
    std::mt19937 random(3);
    for (int i = 0; i < 100; ++i) {
        const KivContour contour = random_contour(random, 2 + i % 40, 20);
        const double tolerance = i % 7;
        const KivContour simplified = KivContours::Simplified(contour, tolerance);
        EXPECT_LE(furthest_from(contour, simplified), tolerance + 1e-9);
        EXPECT_LE(furthest_from(simplified, contour), tolerance + 1e-9);
    }
}

TEST(ContourMeasures, HullRunsAsOuterBordersDo)
{
    EXPECT_EQ(KivContours::Hull({{5, 5}, {3, 4}, {1, 2}, {5, 2}, {1, 5}, {3, 2}, {1, 2}}), rectangle);
    EXPECT_EQ(KivContours::Hull(hole), rectangle);
    EXPECT_EQ(KivContours::Hull(line), (KivContour{{0, 0}, {6, 6}}));
    EXPECT_EQ(KivContours::Hull({{3, 4}, {3, 4}}), point);
    EXPECT_EQ(KivContours::Hull({}), KivContour());
}

TEST(ContourMeasures, HullAgreesWithOpenCv)
{
    std::mt19937 random(4);
    for (int i = 0; i < 300; ++i) {
        const KivContour contour = random_contour(random, 1 + i % 30, 9);
        const KivContour hull = KivContours::Hull(contour);
        std::vector<cv::Point2f> expected;
        cv::convexHull(floats_of(contour), expected);
        const auto by_place = [](const cv::Point2f& a, const cv::Point2f& b) {
            return a.y != b.y ? a.y < b.y : a.x < b.x;
        };
        std::vector<cv::Point2f> found = floats_of(hull);
        std::sort(found.begin(), found.end(), by_place);
        std::sort(expected.begin(), expected.end(), by_place);
        EXPECT_EQ(found, expected);
        EXPECT_FALSE(hull.IsHole());
    }
}

TEST(ContourMeasures, ResampledPointsAreEquallyFarApart)
{
    EXPECT_EQ(KivContours::Resampled(rectangle, 7),
              (KivContour{{1, 2}, {1, 4}, {2, 5}, {4, 5}, {5, 4}, {5, 2}, {3, 2}}));
    EXPECT_EQ(KivContours::Resampled(rectangle, 1), (KivContour{{1, 2}}));
    EXPECT_EQ(KivContours::Resampled(there_and_back, 4), (KivContour{{0, 0}, {1.5, 2}, {3, 4}, {1.5, 2}}));
    EXPECT_EQ(KivContours::Resampled(point, 3), (KivContour{{3, 4}, {3, 4}, {3, 4}}));
    EXPECT_THROW(KivContours::Resampled(rectangle, 0), std::invalid_argument);
    EXPECT_THROW(KivContours::Resampled({}, 3), std::invalid_argument);
}

TEST(ContourMeasures, CoordinatesMustBeFinite)
{
    for (const double bad : {nan, infinity, -infinity}) {
        const KivContour contour = {{0, 0}, {bad, 1}, {1, 1}};
        EXPECT_THROW(KivContours::Length(contour), std::invalid_argument);
        EXPECT_THROW(KivContours::SignedArea(contour), std::invalid_argument);
        EXPECT_THROW(KivContours::BoundsOf(contour), std::invalid_argument);
        EXPECT_THROW(KivContours::Centroid(contour), std::invalid_argument);
        EXPECT_THROW(KivContours::Orientation(contour), std::invalid_argument);
        EXPECT_THROW(KivContours::Contains(contour, {0, 0}), std::invalid_argument);
        EXPECT_THROW(KivContours::Contains(rectangle, {0, bad}), std::invalid_argument);
        EXPECT_THROW(KivContours::Nearest(contour, {0, 0}), std::invalid_argument);
        EXPECT_THROW(KivContours::Nearest(rectangle, {bad, 0}), std::invalid_argument);
        EXPECT_THROW(KivContours::Simplified(contour, 1.0), std::invalid_argument);
        EXPECT_THROW(KivContours::Hull(contour), std::invalid_argument);
        EXPECT_THROW(KivContours::Resampled(contour, 2), std::invalid_argument);
    }
}

} // namespace
