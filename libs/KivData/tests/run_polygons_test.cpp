// SPDX-License-Identifier: MIT
// Polygons with holes, by both rules, and outlines filled again.
#include <KivData/KivRunBridges.h>
#include <KivData/KivRunPolygons.h>
#include <KivRLC/KivRunOutlines.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>
#include <vector>

namespace
{

using KivRuns::FillRule;
using Runs = std::vector<Run>;
using Ring = std::vector<cv::Point_<double>>;

Ring square(double begin, double end)
{
    return {{begin, begin}, {end, begin}, {end, end}, {begin, end}};
}

Ring reversed(Ring ring)
{
    return Ring(ring.rbegin(), ring.rend());
}

TEST(RunPolygons, FillAroundHolesByBothRules)
{
    const KivRunSet outer{{0, 0, 6}, {1, 0, 6}, {2, 0, 6}, {3, 0, 6}, {4, 0, 6}, {5, 0, 6}, {6, 0, 6}};
    const KivRunSet inside_of_hole{{3, 3, 3}};
    EXPECT_EQ(KivRuns::FromPolygons({square(0, 6)}, 9, 9), outer);
    EXPECT_EQ(KivRuns::FromPolygons({square(0, 6), square(2, 4)}, 9, 9), outer - inside_of_hole);
    EXPECT_EQ(KivRuns::FromPolygons({square(0, 6), square(2, 4)}, 9, 9, FillRule::NonZero), outer);
    EXPECT_EQ(KivRuns::FromPolygons({square(0, 6), reversed(square(2, 4))}, 9, 9, FillRule::NonZero),
              outer - inside_of_hole);
    EXPECT_EQ(KivRuns::FromPolygons({square(0, 6), square(0, 6)}, 9, 9, FillRule::NonZero), outer);
    // Twice round is outside by the even-odd rule; the edges stay.
    EXPECT_EQ(KivRuns::FromPolygons({square(0, 6), square(0, 6)}, 9, 9), outer - KivRunSet::FromBox({1, 5, 1, 5}));
    EXPECT_TRUE(KivRuns::FromPolygons(std::vector<Ring>(), 9, 9).Empty());
    EXPECT_TRUE(KivRuns::FromPolygons(std::vector<Ring>(2), 9, 9).Empty());
}

TEST(RunPolygons, StayInTheFrame)
{
    EXPECT_EQ(KivRuns::FromPolygons({square(-5, 20)}, 2, 1), (KivRunSet{{0, 0, 1}}));
    EXPECT_TRUE(KivRuns::FromPolygons({square(-5, 20)}, 0, 3).Empty());
    EXPECT_THROW(KivRuns::FromPolygons({square(0, 6)}, -1, 3), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromPolygons({square(0, std::numeric_limits<double>::infinity())}, 3, 3),
                 std::invalid_argument);
    EXPECT_THROW(KivRuns::FromPolygons({square(std::numeric_limits<double>::quiet_NaN(), 1)}, 3, 3),
                 std::invalid_argument);
    EXPECT_THROW(KivRuns::FromPolygons({{{0, 0}, {HUGE_VAL, 1}, {1, 1}}}, 3, 3), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromPolygons({{{0, 0}, {1, HUGE_VAL}, {1, 1}}}, 3, 3), std::invalid_argument);
}

TEST(RunPolygons, TakeHugeCoordinatesInAnyRing)
{
    const Ring huge = {{1e200, -1.5e200}, {1e200, 1e200}, {-1e200, 1e200}}; // its area overflows a double
    const KivRunSet frame{{0, 0, 2}, {1, 0, 2}};
    EXPECT_EQ(KivRuns::FromPolygons({huge, square(7, 8)}, 3, 2), frame);
    EXPECT_EQ(KivRuns::FromPolygons({square(7, 8), huge}, 3, 2), frame);
}

TEST(RunPolygons, HaveThePixelsOfRegionsOfInterest)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(-3.0, 23.0);
    for (int i = 0; i < 300; ++i) {
        Ring ring;
        for (int count = i % 9; count > 0; --count) {
            ring.emplace_back(i % 2 == 0 ? place(random) : std::round(place(random)), std::round(place(random)));
        }
        ASSERT_EQ(KivRuns::FromPolygons({ring}, 20, 20), KivRuns::SetOf(KivROI::Polygon(ring, 20, 20)));
    }
}

TEST(RunPolygons, FillOutlinesAgain)
{
    std::mt19937 random(2);
    for (int i = 0; i < 200; ++i) {
        Runs pixels;
        for (int count = 0; count < 2 + i; ++count) {
            const int x = static_cast<int>(random() % 16);
            pixels.push_back({static_cast<int>(random() % 16), x, x});
        }
        const KivRunSet set(pixels);
        const KivRuns::Outlines outlines = KivRuns::OutlinesOf(set);
        std::vector<Ring> rings;
        for (const KivRuns::OutlineRing& ring : outlines.rings) {
            rings.emplace_back();
            for (std::size_t k = ring.begin; k < ring.end; ++k) {
                rings.back().emplace_back(outlines.corners[k].x - 0.5, outlines.corners[k].y - 0.5);
            }
        }
        ASSERT_EQ(KivRuns::FromPolygons(rings, 16, 16), set);
        ASSERT_EQ(KivRuns::FromPolygons(rings, 16, 16, FillRule::NonZero), set);
    }
}

} // namespace
