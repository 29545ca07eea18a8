// SPDX-License-Identifier: MIT
// Measures: on shapes whose measures are known, on all masks of 4 x 4 pixels by their definitions, by OpenCV, and at
// the ends of the ints.
#include "run_brute.h"

#include <KivRLC/KivRunMeasures.h>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <stdexcept>

namespace
{

using KivRuns::Connectivity;
using KivRuns::Place;

constexpr double pi = 3.14159265358979323846;
constexpr std::array<Connectivity, 2> connectivities{Connectivity::Four, Connectivity::Eight};

/// A square ring, 4 columns wide and 3 rows high, with its corner at (10, 20).
KivRunSet ring()
{
    return {{20, 10, 13}, {21, 10, 10}, {21, 13, 13}, {22, 10, 13}};
}

KivRunSet rectangle(int left, int top, int width, int height)
{
    std::vector<::Run> runs;
    for (int i = 0; i < height; ++i) {
        runs.push_back({top + i, left, left + width - 1});
    }
    return KivRunSet(runs);
}

TEST(RunMeasures, OfARing)
{
    EXPECT_EQ(KivRuns::BoundingBox(ring()), (KivRunBox{20, 22, 10, 13}));
    EXPECT_EQ(KivRuns::Centroid(ring()), (Place{11.5, 21.0}));
    const KivRuns::Moments moments = KivRuns::MomentsOf(ring());
    EXPECT_EQ(moments.area, 10);
    EXPECT_EQ(moments.centroid, (Place{11.5, 21.0}));
    EXPECT_EQ(moments.xx, 6 * 2.25 + 4 * 0.25); // three pixels in each outer column, two in each inner one
    EXPECT_EQ(moments.xy, 0.0);
    EXPECT_EQ(moments.yy, 8.0);
    EXPECT_EQ(KivRuns::EdgePerimeter(ring()), 14 + 6);
    EXPECT_EQ(KivRuns::EulerNumber(ring(), Connectivity::Four), 0);
    EXPECT_EQ(KivRuns::EulerNumber(ring(), Connectivity::Eight), 0);
    EXPECT_EQ(KivRuns::HoleCount(ring(), Connectivity::Four), 1);
    EXPECT_EQ(KivRuns::HoleCount(ring(), Connectivity::Eight), 1);
    EXPECT_EQ(KivRuns::ConvexHull(ring()), (std::vector<Place>{{9.5, 19.5}, {13.5, 19.5}, {13.5, 22.5}, {9.5, 22.5}}));
    EXPECT_EQ(KivRuns::FeretDiametersOf(ring()).largest, 5.0);
    EXPECT_EQ(KivRuns::FeretDiametersOf(ring()).smallest, 3.0);
}

TEST(RunMeasures, AllAtOnceAreTheSame)
{
    for (const Connectivity connectivity : connectivities) {
        const KivRuns::Measures all = KivRuns::Measure({{0, 0, 0}, {1, 1, 1}}, connectivity);
        EXPECT_EQ(all.box, (KivRunBox{0, 1, 0, 1}));
        EXPECT_EQ(all.moments.area, 2);
        EXPECT_EQ(all.moments.xy, 0.5);
        EXPECT_EQ(all.edgePerimeter, 8);
        EXPECT_DOUBLE_EQ(all.croftonPerimeter, pi / 4 * (4 + 3 / std::sqrt(2.0)));
        EXPECT_EQ(all.eulerNumber, connectivity == Connectivity::Four ? 2 : 1);
    }
}

TEST(RunMeasures, RefuseWhatTheEmptySetHasNot)
{
    EXPECT_THROW(KivRuns::BoundingBox({}), std::invalid_argument);
    EXPECT_THROW(KivRuns::Centroid({}), std::invalid_argument);
    EXPECT_THROW(KivRuns::MomentsOf({}), std::invalid_argument);
    EXPECT_THROW(KivRuns::FeretDiametersOf({}), std::invalid_argument);
    EXPECT_THROW(KivRuns::Measure({}, Connectivity::Four), std::invalid_argument);
    EXPECT_EQ(KivRuns::EdgePerimeter({}), 0);
    EXPECT_EQ(KivRuns::CroftonPerimeter({}), 0.0);
    EXPECT_EQ(KivRuns::EulerNumber({}, Connectivity::Four), 0);
    EXPECT_EQ(KivRuns::HoleCount({}, Connectivity::Eight), 0);
    EXPECT_TRUE(KivRuns::ConvexHull({}).empty());
}

TEST(RunMeasures, EllipseOfALineHasNoWidth)
{
    const KivRuns::Ellipse flat = KivRuns::EllipseOf(KivRuns::MomentsOf({{5, 0, 2}}));
    EXPECT_DOUBLE_EQ(flat.majorAxis, 4 * std::sqrt(2.0 / 3));
    EXPECT_EQ(flat.minorAxis, 0.0);
    EXPECT_EQ(flat.angle, 0.0);
    const KivRuns::Ellipse upright = KivRuns::EllipseOf(KivRuns::MomentsOf({{0, 7, 7}, {1, 7, 7}, {2, 7, 7}}));
    EXPECT_DOUBLE_EQ(upright.majorAxis, 4 * std::sqrt(2.0 / 3));
    EXPECT_EQ(upright.minorAxis, 0.0);
    EXPECT_DOUBLE_EQ(upright.angle, pi / 2);
    const KivRuns::Ellipse falling = KivRuns::EllipseOf(KivRuns::MomentsOf({{0, 0, 0}, {1, 1, 1}}));
    EXPECT_DOUBLE_EQ(falling.majorAxis, 4 * std::sqrt(0.5));
    EXPECT_NEAR(falling.minorAxis, 0.0, 1e-9);
    EXPECT_DOUBLE_EQ(falling.angle, pi / 4);
    EXPECT_DOUBLE_EQ(KivRuns::EllipseOf(KivRuns::MomentsOf({{0, 1, 1}, {1, 0, 0}})).angle, -pi / 4);
    // Where rounding makes the square of the width a little less than 0.
    EXPECT_NEAR(KivRuns::EllipseOf(KivRuns::MomentsOf({{0, 0, 0}, {1, 9, 9}, {2, 18, 18}})).minorAxis, 0.0, 1e-6);
    EXPECT_NEAR(KivRuns::EllipseOf(KivRuns::MomentsOf({{0, 0, 0}, {9, 1, 1}, {18, 2, 2}})).minorAxis, 0.0, 1e-6);
    const KivRuns::Ellipse square = KivRuns::EllipseOf(KivRuns::MomentsOf(rectangle(0, 0, 5, 5)));
    EXPECT_EQ(square.majorAxis, square.minorAxis);
    EXPECT_EQ(square.angle, 0.0);
}

TEST(RunMeasures, OfAnEllipseAreItsOwn)
{
    const double a = 200;
    const double b = 80;
    const double angle = 0.6;
    std::vector<::Run> runs;
    for (int y = -250; y <= 250; ++y) {
        for (int x = -250; x <= 250; ++x) {
            const double u = (x * std::cos(angle) + y * std::sin(angle)) / a;
            const double v = (y * std::cos(angle) - x * std::sin(angle)) / b;
            if (u * u + v * v <= 1) {
                runs.push_back({y, x, x});
            }
        }
    }
    const KivRunSet shape(runs);
    const KivRuns::Ellipse same = KivRuns::EllipseOf(KivRuns::MomentsOf(shape));
    EXPECT_NEAR(same.majorAxis, 2 * a, 0.2);
    EXPECT_NEAR(same.minorAxis, 2 * b, 0.2);
    EXPECT_NEAR(same.angle, angle, 1e-3);
    const double perimeter = 920.91; // by Ramanujan's second formula
    EXPECT_NEAR(KivRuns::CroftonPerimeter(shape), perimeter, 0.01 * perimeter);
    EXPECT_NEAR(KivRuns::FeretDiametersOf(shape).largest, 2 * a, 2.0);
    EXPECT_NEAR(KivRuns::FeretDiametersOf(shape).smallest, 2 * b, 2.0);
}

// What scikit-image's perimeter_crofton gives for the same pixels with four directions.
TEST(RunMeasures, CroftonPerimeterHasItsUsualWeights)
{
    EXPECT_DOUBLE_EQ(KivRuns::CroftonPerimeter({{0, 0, 0}}), pi / 2 * (1 + 1 / std::sqrt(2.0)));
    EXPECT_DOUBLE_EQ(KivRuns::CroftonPerimeter(rectangle(3, 3, 2, 2)), pi / 4 * (4 + 6 / std::sqrt(2.0)));
    EXPECT_DOUBLE_EQ(KivRuns::CroftonPerimeter(rectangle(0, 0, 10, 1)), pi / 4 * (11 + 20 / std::sqrt(2.0)));
}

/// The corners of the pixels' squares.
std::vector<Place> corners_of(const brute::Pixels& pixels)
{
    std::vector<Place> corners;
    for (const auto& [row, column] : pixels) {
        for (const double x : {column - 0.5, column + 0.5}) {
            for (const double y : {row - 0.5, row + 0.5}) {
                corners.push_back({x, y});
            }
        }
    }
    return corners;
}

double turn(const Place& a, const Place& b, const Place& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// The hull by its definition: it is convex, holds all corners, and its own corners are among them.
void expect_hull(const std::vector<Place>& hull, const std::vector<Place>& corners)
{
    ASSERT_GE(hull.size(), 4U);
    for (std::size_t i = 0; i < hull.size(); ++i) {
        const Place& from = hull[i];
        const Place& to = hull[(i + 1) % hull.size()];
        EXPECT_GT(turn(from, to, hull[(i + 2) % hull.size()]), 0.0);
        EXPECT_NE(std::find(corners.begin(), corners.end(), from), corners.end());
        for (const Place& corner : corners) {
            EXPECT_GE(turn(from, to, corner), 0.0);
        }
    }
    const auto before = [](const Place& a, const Place& b) { return a.y != b.y ? a.y < b.y : a.x < b.x; };
    EXPECT_EQ(hull.front(), *std::min_element(corners.begin(), corners.end(), before));
}

/// The diameters of a hull by their definition, in the directions in which all corners are on one side of two of them.
KivRuns::FeretDiameters feret_of(const std::vector<Place>& corners)
{
    KivRuns::FeretDiameters diameters{0.0, std::numeric_limits<double>::infinity()};
    for (const Place& a : corners) {
        for (const Place& b : corners) {
            const double length = std::hypot(b.x - a.x, b.y - a.y);
            diameters.largest = std::max(diameters.largest, length);
            double least = 0.0;
            double most = 0.0;
            for (const Place& c : corners) {
                least = std::min(least, turn(a, b, c));
                most = std::max(most, turn(a, b, c));
            }
            if (least == 0.0 && length > 0.0) {
                diameters.smallest = std::min(diameters.smallest, most / length);
            }
        }
    }
    return diameters;
}

void expect_measures(const KivRunSet& set)
{
    const brute::Pixels pixels = brute::pixels_of(set);
    const double count = static_cast<double>(pixels.size());
    double sum_x = 0.0;
    double sum_y = 0.0;
    for (const auto& [row, column] : pixels) {
        sum_x += column;
        sum_y += row;
    }
    double xx = 0.0;
    double xy = 0.0;
    double yy = 0.0;
    KivRunBox box{pixels.begin()->first, pixels.rbegin()->first, INT_MAX, INT_MIN};
    for (const auto& [row, column] : pixels) {
        const double x = column - sum_x / count;
        const double y = row - sum_y / count;
        xx += x * x;
        xy += x * y;
        yy += y * y;
        box.colBegin = std::min(box.colBegin, column);
        box.colEnd = std::max(box.colEnd, column);
    }
    EXPECT_EQ(KivRuns::BoundingBox(set), box);
    EXPECT_EQ(KivRuns::Centroid(set), (Place{sum_x / count, sum_y / count}));
    const KivRuns::Moments moments = KivRuns::MomentsOf(set);
    EXPECT_EQ(moments.area, set.Area());
    EXPECT_EQ(moments.centroid, KivRuns::Centroid(set));
    const double rounding = 1e-12 * count + 1e-14 * (xx + yy); // of the sums of doubles above
    EXPECT_NEAR(moments.xx, xx, rounding);
    EXPECT_NEAR(moments.xy, xy, rounding);
    EXPECT_NEAR(moments.yy, yy, rounding);

    const int straight = brute::entries(pixels, 0, 1) + brute::entries(pixels, 1, 0);
    const int diagonal = brute::entries(pixels, 1, 1) + brute::entries(pixels, 1, -1);
    EXPECT_EQ(KivRuns::EdgePerimeter(set), 2 * straight);
    EXPECT_DOUBLE_EQ(KivRuns::CroftonPerimeter(set), pi / 4 * (straight + diagonal / std::sqrt(2.0)));
    for (const Connectivity connectivity : connectivities) {
        const auto holes = static_cast<std::int64_t>(brute::holes(pixels, connectivity).size());
        const auto components = static_cast<std::int64_t>(brute::components(pixels, connectivity).size());
        EXPECT_EQ(KivRuns::HoleCount(set, connectivity), holes);
        EXPECT_EQ(KivRuns::EulerNumber(set, connectivity), components - holes);
        EXPECT_EQ(KivRuns::Measure(set, connectivity).eulerNumber, components - holes);
    }
    const std::vector<Place> hull = KivRuns::ConvexHull(set);
    expect_hull(hull, corners_of(pixels));
    const KivRuns::FeretDiameters diameters = KivRuns::FeretDiametersOf(set);
    const KivRuns::FeretDiameters expected = feret_of(hull);
    EXPECT_DOUBLE_EQ(diameters.largest, expected.largest);
    EXPECT_DOUBLE_EQ(diameters.smallest, expected.smallest);
}

TEST(RunMeasures, OfAllMasksOf4x4PixelsAreAsDefined)
{
    for (unsigned bits = 1; bits < 0x10000 && !testing::Test::HasFailure(); ++bits) {
        SCOPED_TRACE("mask " + std::to_string(bits));
        expect_measures(run_sets::set_of(run_sets::mask_of_bits(bits, 4, 4), -2, -1));
    }
}

TEST(RunMeasures, OfRowsOfManyRunsAreAsDefined)
{
    std::mt19937 random(5);
    for (int i = 0; i < 20 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE("mask " + std::to_string(i));
        expect_measures(run_sets::set_of(run_sets::random_mask(50 + 4 * i, 8, 1 + i % 3, random), -9, -2));
    }
}

/// Runs minus pairs that touch, each run compared with all of the row above.
std::int64_t euler_number_by_pairs(const KivRunSet& set, Connectivity connectivity)
{
    const std::int64_t reach = connectivity == Connectivity::Four ? 0 : 1;
    auto number = static_cast<std::int64_t>(set.Runs().size());
    for (const ::Run& run : set.Runs()) {
        for (const ::Run& above : run.row == INT_MIN ? KivRunView() : set.RunsOfRow(run.row - 1)) {
            number -= above.colBegin <= run.colEnd + reach && run.colBegin <= above.colEnd + reach ? 1 : 0;
        }
    }
    return number;
}

void expect_euler_number(const KivRunSet& set)
{
    for (const Connectivity connectivity : connectivities) {
        EXPECT_EQ(KivRuns::EulerNumber(set, connectivity), euler_number_by_pairs(set, connectivity));
    }
}

/// A row of runs of one pixel, with one pixel between them.
void add_comb(std::vector<::Run>& runs, int row, std::int64_t first, int count)
{
    for (int i = 0; i < count; ++i) {
        const auto column = static_cast<int>(first + 2 * i);
        runs.push_back({row, column, column});
    }
}

TEST(EulerNumber, OfRowsOfAllDensitiesIsAsDefined)
{
    std::mt19937 random(7);
    const auto up_to = [&random](unsigned most) { return static_cast<int>(random() % (most + 1)); };
    for (int i = 0; i < 300 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE("set " + std::to_string(i));
        const unsigned longest = 1U << up_to(5);
        std::vector<::Run> runs;
        for (int row = 0; row < 12; ++row) {
            int column = up_to(200) - 100 - 3000 * (up_to(9) / 9);
            for (int left = up_to(3) == 0 ? 2 : 10 + up_to(300); left > 0; --left) {
                const int end = column + up_to(longest - 1);
                runs.push_back({row + row / 5, column, end});
                column = end + 2 + up_to(longest - 1);
            }
        }
        expect_euler_number(KivRunSet(runs));
    }
}

TEST(EulerNumber, OfRowsOfAnyWidthIsAsDefined)
{
    for (const int first : {-8000, 0}) {
        for (int count = 8100; count < 8220; ++count) {
            std::vector<::Run> runs;
            add_comb(runs, 0, first, count);
            add_comb(runs, 1, first, count);
            add_comb(runs, 2, first + 1, count);
            const KivRunSet set(runs);
            EXPECT_EQ(KivRuns::EulerNumber(set, Connectivity::Four), 2 * count);
            EXPECT_EQ(KivRuns::EulerNumber(set, Connectivity::Eight), 3 * count - count - (2 * count - 1));
        }
    }
}

TEST(EulerNumber, OfRowsThatMoveAsideIsAsDefined)
{
    for (const int step : {-33, -1, 1, 33}) { // columns a row
        constexpr int count = 40;
        const int rows = 17000 / std::abs(step);
        std::vector<::Run> runs;
        for (int row = 0; row < rows; ++row) {
            add_comb(runs, row, std::int64_t{step} * row, count);
        }
        const KivRunSet set(runs);
        const int pairs = (rows - 1) * (2 * count - std::abs(step)); // by corners, as the steps are odd
        EXPECT_EQ(KivRuns::EulerNumber(set, Connectivity::Four), rows * count);
        EXPECT_EQ(KivRuns::EulerNumber(set, Connectivity::Eight), rows * count - pairs);
    }
}

TEST(EulerNumber, OfManyRunsAtTheEndsOfTheIntsIsAsDefined)
{
    for (const std::int64_t first : {std::int64_t{INT_MIN}, std::int64_t{INT_MAX} - 80}) {
        for (const int row : {INT_MIN, INT_MAX - 2}) {
            std::vector<::Run> runs;
            add_comb(runs, row, first, 40);
            add_comb(runs, row + 1, first + 1, 40);
            add_comb(runs, row + 2, first + 2, 40);
            const KivRunSet set(runs);
            expect_euler_number(set);
            EXPECT_EQ(KivRuns::EulerNumber(set, Connectivity::Eight), 120 - 79 - 79);
        }
    }
}

TEST(RunMeasures, OfRandomMasksAreOpenCvs)
{
    for (unsigned seed = 0; seed < 200 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const cv::Mat mask = run_sets::random_mask_of(seed);
        const KivRunSet set = run_sets::set_of(mask);
        if (set.Empty()) {
            continue;
        }
        const cv::Moments expected = cv::moments(mask, true);
        const KivRuns::Moments moments = KivRuns::MomentsOf(set);
        EXPECT_EQ(static_cast<double>(moments.area), expected.m00);
        EXPECT_DOUBLE_EQ(moments.centroid.x, expected.m10 / expected.m00);
        EXPECT_DOUBLE_EQ(moments.centroid.y, expected.m01 / expected.m00);
        EXPECT_NEAR(moments.xx, expected.mu20, 1e-9 * expected.m20);
        EXPECT_NEAR(moments.xy, expected.mu11, 1e-9 * expected.m20);
        EXPECT_NEAR(moments.yy, expected.mu02, 1e-9 * (expected.m02 + expected.m20));
        const cv::Rect box = cv::boundingRect(mask);
        EXPECT_EQ(KivRuns::BoundingBox(set), (KivRunBox{box.y, box.y + box.height - 1, box.x, box.x + box.width - 1}));

        std::vector<cv::Point2f> corners;
        for (const Place& corner : corners_of(brute::pixels_of(set))) {
            corners.emplace_back(static_cast<float>(corner.x), static_cast<float>(corner.y));
        }
        std::vector<cv::Point2f> hull;
        cv::convexHull(corners, hull);
        const std::vector<Place> ours = KivRuns::ConvexHull(set);
        EXPECT_EQ(ours.size(), hull.size());
        for (const Place& place : ours) {
            const cv::Point2f same(static_cast<float>(place.x), static_cast<float>(place.y));
            EXPECT_NE(std::find(hull.begin(), hull.end(), same), hull.end());
        }
    }
}

TEST(RunMeasures, AreExactAtTheEndsOfTheInts)
{
    const KivRunSet corners{{INT_MIN, INT_MIN, INT_MIN},
                            {INT_MIN, INT_MAX, INT_MAX},
                            {INT_MAX, INT_MIN, INT_MIN},
                            {INT_MAX, INT_MAX, INT_MAX}};
    const double side = 4294967296.0;
    EXPECT_EQ(KivRuns::BoundingBox(corners), (KivRunBox{INT_MIN, INT_MAX, INT_MIN, INT_MAX}));
    EXPECT_EQ(KivRuns::Centroid(corners), (Place{-0.5, -0.5}));
    const KivRuns::Moments moments = KivRuns::MomentsOf(corners);
    EXPECT_EQ(moments.xx, (side - 1) * (side - 1));
    EXPECT_EQ(moments.xy, 0.0);
    EXPECT_EQ(moments.yy, (side - 1) * (side - 1));
    EXPECT_EQ(KivRuns::ConvexHull(corners), (std::vector<Place>{{-side / 2 - 0.5, -side / 2 - 0.5},
                                                                {side / 2 - 0.5, -side / 2 - 0.5},
                                                                {side / 2 - 0.5, side / 2 - 0.5},
                                                                {-side / 2 - 0.5, side / 2 - 0.5}}));
    EXPECT_DOUBLE_EQ(KivRuns::FeretDiametersOf(corners).largest, side * std::sqrt(2.0));
    EXPECT_DOUBLE_EQ(KivRuns::FeretDiametersOf(corners).smallest, side);
    EXPECT_EQ(KivRuns::EdgePerimeter(corners), 16);
    EXPECT_EQ(KivRuns::EulerNumber(corners, Connectivity::Eight), 4);
}

TEST(RunMeasures, OfRowsAsWideAsTheIntsAreExact)
{
    const KivRunSet rows{{INT_MAX - 1, INT_MIN, INT_MAX}, {INT_MAX, INT_MIN, INT_MAX}};
    const double side = 4294967296.0;
    const KivRuns::Moments moments = KivRuns::MomentsOf(rows);
    EXPECT_EQ(moments.area, std::int64_t{1} << 33);
    EXPECT_EQ(moments.centroid, (Place{-0.5, INT_MAX - 0.5}));
    EXPECT_DOUBLE_EQ(moments.xx, 2 * side * (side * side - 1) / 12);
    EXPECT_EQ(moments.xy, 0.0);
    EXPECT_EQ(moments.yy, side / 2);
    EXPECT_EQ(KivRuns::EdgePerimeter(rows), 2 * (std::int64_t{1} << 32) + 4);
    EXPECT_DOUBLE_EQ(KivRuns::CroftonPerimeter(rows), pi / 4 * (2 + side + (2 * side + 2) / std::sqrt(2.0)));
    EXPECT_EQ(KivRuns::EulerNumber(rows, Connectivity::Four), 1);
}

TEST(RunMeasures, OfFarSmallShapesLoseNothing)
{
    for (const int row : {INT_MIN, 0, INT_MAX - 1}) {
        for (const int column : {INT_MIN, 0, INT_MAX - 2}) {
            const KivRuns::Moments moments = KivRuns::MomentsOf({{row, column, column + 2}, {row + 1, column, column}});
            EXPECT_EQ(moments.centroid, (Place{column + 0.75, row + 0.25}));
            EXPECT_EQ(moments.xx, 2.75);
            EXPECT_EQ(moments.xy, -0.75);
            EXPECT_EQ(moments.yy, 0.75);
        }
    }
}

} // namespace
