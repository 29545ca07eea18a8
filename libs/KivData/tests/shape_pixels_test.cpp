// SPDX-License-Identifier: MIT
// The runs of random shapes against asking for every pixel of the frame, and both against the textbook: a signed
// distance-like value of each shape, in long double, negative inside, that must agree wherever it is not almost 0.
#include <KivData/KivROI.h>

#include "support/pictures.h"
#include "support/pixel_runs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

namespace
{

using Real = long double;
using Points = std::vector<cv::Point_<double>>;

constexpr int rounds = 2000;
constexpr Real radians = 3.14159265358979323846264338327950288L / 180;

/// What no rounding of coordinates up to a few hundred can bridge.
constexpr Real doubtful = 1e-9L;

class RandomShapes
{
public:
    explicit RandomShapes(unsigned seed) : random_(seed) {}

    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    int side() { return below(12) == 0 ? below(3) : 1 + below(40); }

    /// A coordinate in or near the frame: often an integer or a half, so that centres of pixels fall on borders.
    double coordinate(int side)
    {
        const double value = std::uniform_real_distribution<double>(-0.5 * side - 3, 1.5 * side + 3)(random_);
        return rounded(value);
    }
    double size(int side)
    {
        return below(10) == 0 ? 0.0 : rounded(std::uniform_real_distribution<double>(0, 1.2 * side + 1)(random_));
    }
    double angle()
    {
        const double value = std::uniform_real_distribution<double>(-400, 400)(random_);
        return below(3) == 0 ? value : std::nearbyint(value / 15) * 15;
    }
    double sweep()
    {
        const double value = std::uniform_real_distribution<double>(0, 360)(random_);
        return below(3) == 0 ? value : std::nearbyint(value / 45) * 45;
    }
    Points corners(int width, int height)
    {
        Points points(static_cast<std::size_t>(below(9)));
        for (cv::Point_<double>& point : points) {
            point = {coordinate(width), coordinate(height)};
        }
        if (points.size() > 2 && below(4) == 0) {
            points[1] = points[0]; // repeated
        }
        if (points.size() > 3 && below(4) == 0) {
            points[3] = (points[0] + points[1]) * 0.5; // in line
        }
        if (points.size() > 4 && below(4) == 0) {
            points[4].y = points[3].y; // a level edge
        }
        return points;
    }

private:
    double rounded(double value)
    {
        switch (below(3)) {
        case 0:
            return value;
        case 1:
            return std::nearbyint(value);
        default:
            return std::nearbyint(value * 2) / 2;
        }
    }

    std::mt19937 random_;
};

/// The pixels that Contains() names, as runs.
std::vector<Run> runs_by_pixels(const IKivROIPara& parameters)
{
    return support::runs_where(parameters.Height(), parameters.Width(),
                               [&parameters](int row, int column) { return parameters.Contains(column, row); });
}

std::string picture_of(const std::vector<Run>& runs, const IKivROIPara& parameters)
{
    return support::picture_of(runs, parameters.Width(), parameters.Height());
}

/// Checks shapes, and that their pixels were many enough to prove something.
class Checker
{
public:
    template <class Textbook>
    void check(const KivROI& roi, Textbook outside)
    {
        const IKivROIPara& parameters = roi.Parameters();
        const std::vector<Run> runs = parameters.MaskRuns();
        const std::vector<Run> expected = runs_by_pixels(parameters);
        ASSERT_EQ(runs, expected) << picture_of(runs, parameters) << '\n' << picture_of(expected, parameters);
        for (int y = 0; y < parameters.Height(); ++y) {
            for (int x = 0; x < parameters.Width(); ++x) {
                const Real value = outside(Real(x), Real(y));
                const bool belongs = parameters.Contains(x, y);
                pixels_ += belongs ? 1 : 0;
                if (std::abs(value) > doubtful) {
                    ASSERT_EQ(belongs, value < 0) << "pixel " << x << ", " << y << '\n' << picture_of(runs, parameters);
                }
            }
        }
    }

    ~Checker() { EXPECT_GT(pixels_, 10000); }

private:
    int pixels_ = 0;
};

TEST(ShapePixels, OfRectanglesAreExact)
{
    RandomShapes random(1);
    Checker checker;
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const int width = random.side();
        const int height = random.side();
        const double left = random.coordinate(width);
        const double top = random.coordinate(height);
        const double right = random.coordinate(width);
        const double bottom = random.coordinate(height);
        checker.check(KivROI::Rectangle(left, top, right, bottom, width, height), [&](Real x, Real y) {
            return std::max({left - x, x - right, top - y, y - bottom});
        });
    }
}

TEST(ShapePixels, OfRotatedRectanglesAreExact)
{
    RandomShapes random(2);
    Checker checker;
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const int width = random.side();
        const int height = random.side();
        const double cx = random.coordinate(width);
        const double cy = random.coordinate(height);
        const double length = random.size(2 * width);
        const double breadth = random.size(2 * height);
        const double angle = random.angle();
        checker.check(KivROI::RotatedRectangle(cx, cy, length, breadth, angle, width, height), [&](Real x, Real y) {
            const Real c = std::cos(angle * radians);
            const Real s = std::sin(angle * radians);
            return std::max(std::abs(c * (x - cx) + s * (y - cy)) - length / 2,
                            std::abs(c * (y - cy) - s * (x - cx)) - breadth / 2);
        });
    }
}

TEST(ShapePixels, OfCirclesAreExact)
{
    RandomShapes random(3);
    Checker checker;
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const int width = random.side();
        const int height = random.side();
        const double cx = random.coordinate(width);
        const double cy = random.coordinate(height);
        const double radius = random.size(width);
        checker.check(KivROI::Circle(cx, cy, radius, width, height),
                      [&](Real x, Real y) { return std::hypot(x - cx, y - cy) - radius; });
    }
}

TEST(ShapePixels, OfEllipsesAreExact)
{
    RandomShapes random(4);
    Checker checker;
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const int width = random.side();
        const int height = random.side();
        const double cx = random.coordinate(width);
        const double cy = random.coordinate(height);
        const double radius1 = random.size(width);
        const double radius2 = random.size(height);
        const double angle = random.angle();
        checker.check(KivROI::Ellipse(cx, cy, radius1, radius2, angle, width, height), [&](Real x, Real y) {
            const Real c = std::cos(angle * radians);
            const Real s = std::sin(angle * radians);
            const Real along = c * (x - cx) + s * (y - cy);
            const Real across = c * (y - cy) - s * (x - cx);
            if (radius1 == 0 || radius2 == 0) {
                return std::max(std::abs(along) - radius1, std::abs(across) - radius2);
            }
            return std::hypot(along / radius1, across / radius2) - 1;
        });
    }
}

TEST(ShapePixels, OfRingsAreExact)
{
    RandomShapes random(5);
    Checker checker;
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const int width = random.side();
        const int height = random.side();
        const double cx = random.coordinate(width);
        const double cy = random.coordinate(height);
        const double inner = random.size(width / 2);
        const double outer = random.size(width);
        checker.check(KivROI::Ring(cx, cy, inner, outer, width, height), [&](Real x, Real y) {
            const Real distance = std::hypot(x - cx, y - cy);
            return std::max(distance - outer, inner - distance);
        });
    }
}

TEST(ShapePixels, OfRingSectorsAreExact)
{
    RandomShapes random(6);
    Checker checker;
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const int width = random.side();
        const int height = random.side();
        const double cx = random.coordinate(width);
        const double cy = random.coordinate(height);
        const double inner = random.size(width / 2);
        const double outer = random.size(width);
        const double start = random.angle();
        const double sweep = random.sweep();
        checker.check(KivROI::RingSector(cx, cy, inner, outer, start, sweep, width, height), [&](Real x, Real y) {
            const Real distance = std::hypot(x - cx, y - cy);
            const Real in_ring = std::max(distance - outer, inner - distance);
            if (sweep == 360) {
                return in_ring;
            }
            // Degrees from the middle of the sweep, the short way round.
            const Real middle = Real(start) + Real(sweep) / 2;
            const Real away = std::abs(std::remainder(std::atan2(y - cy, x - cx) / radians - middle, Real(360)));
            const Real in_sweep = distance == 0 ? Real(0) : away - Real(sweep) / 2;
            return std::max(in_ring, in_sweep);
        });
    }
}

TEST(ShapePixels, OfPolygonsAreExact)
{
    RandomShapes random(7);
    Checker checker;
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const int width = random.side();
        const int height = random.side();
        const Points points = random.corners(width, height);
        checker.check(KivROI::Polygon(points, width, height), [&](Real x, Real y) {
            // The distance from the nearest edge, negative when the edges wind round the point an odd number of times.
            Real distance = 1e9L;
            Real turns = 0;
            for (std::size_t i = 0; i < points.size(); ++i) {
                const Real px = points[i].x - x;
                const Real py = points[i].y - y;
                const Real qx = points[(i + 1) % points.size()].x - x;
                const Real qy = points[(i + 1) % points.size()].y - y;
                const Real ex = qx - px;
                const Real ey = qy - py;
                const Real squared = ex * ex + ey * ey;
                const Real nearest =
                    squared > 0 ? std::clamp(-(px * ex + py * ey) / squared, Real(0), Real(1)) : Real(0);
                distance = std::min(distance, std::hypot(px + nearest * ex, py + nearest * ey));
                turns += std::atan2(px * qy - py * qx, px * qx + py * qy);
            }
            const long winding = std::lround(turns / (360 * radians));
            return winding % 2 != 0 ? -distance : distance;
        });
    }
}

TEST(ShapePixels, OnThePolygonsEdgesBelong)
{
    // Exact where all coordinates are integers.
    RandomShapes random(8);
    for (int round = 0; round < rounds; ++round) {
        Points points = random.corners(30, 30);
        for (cv::Point_<double>& point : points) {
            point = {std::nearbyint(point.x), std::nearbyint(point.y)};
        }
        const KivROI roi = KivROI::Polygon(points, 30, 30);
        for (std::size_t i = 0; i < points.size(); ++i) {
            const cv::Point_<double> p = points[i];
            const cv::Point_<double> edge = points[(i + 1) % points.size()] - p;
            for (int y = 0; y < 30; ++y) {
                for (int x = 0; x < 30; ++x) {
                    const cv::Point_<double> to(x - p.x, y - p.y);
                    if (edge.cross(to) == 0 && edge.dot(to) >= 0 && to.dot(to) <= edge.dot(edge) &&
                        (edge.dot(edge) > 0 || to.dot(to) == 0)) {
                        ASSERT_TRUE(roi.Parameters().Contains(x, y)) << x << ", " << y;
                    }
                }
            }
        }
    }
}

TEST(ShapePixels, FollowTheFormulaFarFromTheOrigin)
{
    // Where one unit in the last place is larger than a pixel, only the formula says what belongs.
    RandomShapes random(9);
    for (int round = 0; round < rounds; ++round) {
        const auto far = [&random] { return std::ldexp(random.coordinate(40), random.below(70)); };
        const auto large = [&random] { return std::ldexp(random.size(40), random.below(70)); };
        const KivROI rois[] = {
            KivROI::Rectangle(far(), far(), far(), far(), 20, 15),
            KivROI::RotatedRectangle(far(), far(), large(), large(), random.angle(), 20, 15),
            KivROI::Circle(far(), far(), large(), 20, 15),
            KivROI::Ellipse(far(), far(), large(), large(), random.angle(), 20, 15),
            KivROI::Ring(far(), far(), large(), large(), 20, 15),
            KivROI::RingSector(far(), far(), large(), large(), random.angle(), random.sweep(), 20, 15),
            KivROI::Polygon({{far(), far()}, {far(), far()}, {far(), far()}, {far(), far()}}, 20, 15)};
        for (const KivROI& roi : rois) {
            ASSERT_EQ(roi.Parameters().MaskRuns(), runs_by_pixels(roi.Parameters())) << "type " << roi.ROIType();
        }
    }
}

TEST(ShapePixels, FollowTheFormulaOnBordersThroughTheOrigin)
{
    // Radius and distance of the centre are equal: the border passes right by the frame's corner at any size.
    for (int exponent = 0; exponent < 200; ++exponent) {
        const double size = std::ldexp(1.25, exponent);
        const KivROI rois[] = {KivROI::Circle(size, 0, size, 20, 15),
                               KivROI::Circle(0, size, size, 20, 15),
                               KivROI::Circle(0, size, std::nextafter(size, 0), 20, 15),
                               KivROI::Ellipse(size * 0.8, size * 0.6, size, 5, 36.87, 20, 15),
                               KivROI::RotatedRectangle(size * 0.8, size * 0.6, size * 2, 5, 36.87, 20, 15),
                               KivROI::Ring(size, size, size * std::sqrt(2.0), size * 2, 20, 15)};
        for (const KivROI& roi : rois) {
            ASSERT_EQ(roi.Parameters().MaskRuns(), runs_by_pixels(roi.Parameters()))
                << "type " << roi.ROIType() << ", size " << size;
        }
    }
}

} // namespace
