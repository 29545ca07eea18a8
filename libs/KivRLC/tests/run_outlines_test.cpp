// SPDX-License-Identifier: MIT
// Outlines: literal ones, and what holds for those of every set.
#include "run_sets.h"

#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunOutlines.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

using KivRuns::OutlineRing;
using KivRuns::Outlines;
using KivRuns::PixelCorner;
using run_sets::mask_of_bits;
using run_sets::random_mask;
using run_sets::set_of;

/// A ring as text, such as "outer 0: 0,0 1,0 1,1 0,1".
std::string text_of(const Outlines& outlines, const OutlineRing& ring)
{
    std::ostringstream text;
    text << (ring.isHole ? "hole " : "outer ") << ring.outer << ":";
    for (std::size_t i = ring.begin; i < ring.end; ++i) {
        text << " " << outlines.corners[i].x << "," << outlines.corners[i].y;
    }
    return text.str();
}

std::vector<std::string> texts_of(const KivRunSet& set)
{
    const Outlines outlines = KivRuns::OutlinesOf(set);
    std::vector<std::string> texts;
    for (const OutlineRing& ring : outlines.rings) {
        texts.push_back(text_of(outlines, ring));
    }
    return texts;
}

using Texts = std::vector<std::string>;

TEST(RunOutlines, GoRoundAPixelAndARectangle)
{
    EXPECT_EQ(texts_of(KivRunSet()), Texts());
    EXPECT_EQ(texts_of({{0, 0, 0}}), (Texts{"outer 0: 0,0 1,0 1,1 0,1"}));
    EXPECT_EQ(texts_of({{-3, -2, 4}, {-2, -2, 4}}), (Texts{"outer 0: -2,-3 5,-3 5,-1 -2,-1"}));
}

TEST(RunOutlines, TurnWhereRowsDiffer)
{
    // . x x
    // x x .
    EXPECT_EQ(texts_of({{0, 1, 2}, {1, 0, 1}}), (Texts{"outer 0: 1,0 3,0 3,1 2,1 2,2 0,2 0,1 1,1"}));
}

TEST(RunOutlines, GoRoundHoles)
{
    EXPECT_EQ(texts_of({{0, 0, 2}, {1, 0, 0}, {1, 2, 2}, {2, 0, 2}, {4, 1, 1}}),
              (Texts{"outer 0: 0,0 3,0 3,3 0,3", "hole 0: 1,1 1,2 2,2 2,1", "outer 2: 1,4 2,4 2,5 1,5"}));
}

TEST(RunOutlines, KeepPixelsThatMeetByACornerApart)
{
    EXPECT_EQ(texts_of({{0, 0, 0}, {1, 1, 1}}), (Texts{"outer 0: 0,0 1,0 1,1 0,1", "outer 1: 1,1 2,1 2,2 1,2"}));
    EXPECT_EQ(texts_of({{0, 1, 1}, {1, 0, 0}}), (Texts{"outer 0: 1,0 2,0 2,1 1,1", "outer 1: 0,1 1,1 1,2 0,2"}));
}

TEST(RunOutlines, CloseAHoleAtACorner)
{
    // x x .    The hole is open to the upper right by a corner only.
    // x . x
    // x x x
    EXPECT_EQ(texts_of({{0, 0, 1}, {1, 0, 0}, {1, 2, 2}, {2, 0, 2}}),
              (Texts{"outer 0: 0,0 2,0 2,1 3,1 3,3 0,3", "hole 0: 1,1 1,2 2,2 2,1"}));
    // Two holes that meet by a corner.
    EXPECT_EQ(texts_of({{0, 0, 3}, {1, 0, 0}, {1, 2, 3}, {2, 0, 1}, {2, 3, 3}, {3, 0, 3}}),
              (Texts{"outer 0: 0,0 4,0 4,4 0,4", "hole 0: 1,1 1,2 2,2 2,1", "hole 0: 2,2 2,3 3,3 3,2"}));
}

TEST(RunOutlines, EndWhereIntsEnd)
{
    EXPECT_EQ(texts_of({{INT_MIN, INT_MIN, INT_MAX - 1}}),
              (Texts{"outer 0: -2147483648,-2147483648 2147483647,-2147483648 2147483647,-2147483647 "
                     "-2147483648,-2147483647"}));
    EXPECT_THROW(KivRuns::OutlinesOf({{0, 0, INT_MAX}}), std::overflow_error);
    EXPECT_THROW(KivRuns::OutlinesOf({{INT_MAX, 0, 0}}), std::overflow_error);
}

/// The pixels of a mask whose centres are inside of an odd number of rings: those right of an odd number of upright
/// edges.
cv::Mat mask_inside(const Outlines& outlines, int width, int height)
{
    cv::Mat flips = cv::Mat::zeros(height, width + 1, CV_8UC1);
    for (const OutlineRing& ring : outlines.rings) {
        for (std::size_t i = ring.begin; i < ring.end; ++i) {
            const PixelCorner a = outlines.corners[i];
            const PixelCorner b = outlines.corners[i + 1 < ring.end ? i + 1 : ring.begin];
            for (int y = std::min(a.y, b.y); y < std::max(a.y, b.y); ++y) {
                flips.at<uchar>(y, a.x) ^= 255;
            }
        }
    }
    for (int x = 1; x < width; ++x) {
        flips.col(x) ^= flips.col(x - 1);
    }
    return flips.colRange(0, width).clone();
}

/// Twice the area within a ring; positive if it runs clockwise as seen with y pointing down.
long doubled_area(const Outlines& outlines, const OutlineRing& ring)
{
    long area = 0;
    for (std::size_t i = ring.begin; i < ring.end; ++i) {
        const PixelCorner a = outlines.corners[i];
        const PixelCorner b = outlines.corners[i + 1 < ring.end ? i + 1 : ring.begin];
        area += static_cast<long>(a.x) * b.y - static_cast<long>(b.x) * a.y;
    }
    return area;
}

void expect_ring_is_simple(const Outlines& outlines, const OutlineRing& ring)
{
    const auto corner = [&](std::size_t i) { return outlines.corners[ring.begin + i % (ring.end - ring.begin)]; };
    std::set<std::pair<int, int>> places; // all that the ring passes
    ASSERT_GE(ring.end - ring.begin, 4U);
    for (std::size_t i = 0; i < ring.end - ring.begin; ++i) {
        const PixelCorner a = corner(i);
        const PixelCorner b = corner(i + 1);
        ASSERT_NE(a.x == b.x, a.y == b.y);             // level or upright
        ASSERT_EQ(a.x == b.x, b.x != corner(i + 2).x); // in turn
        const int steps = std::max(std::abs(b.x - a.x), std::abs(b.y - a.y));
        for (int step = 0; step < steps; ++step) {
            const std::pair<int, int> place(a.x + (b.x - a.x) / steps * step, a.y + (b.y - a.y) / steps * step);
            ASSERT_TRUE(places.insert(place).second)
                << "the ring touches itself at " << place.first << ", " << place.second;
        }
        const PixelCorner first = corner(0);
        ASSERT_TRUE(i == 0 || a.y > first.y || (a.y == first.y && a.x > first.x));
    }
}

void expect_outlines(const cv::Mat& mask)
{
    const KivRunSet set = set_of(mask);
    const Outlines outlines = KivRuns::OutlinesOf(set);
    ASSERT_EQ(set_of(mask_inside(outlines, mask.cols, mask.rows)), set);
    std::vector<long> areas(outlines.rings.size()); // of outer rings, less their holes
    for (std::size_t i = 0; i < outlines.rings.size(); ++i) {
        const OutlineRing& ring = outlines.rings[i];
        expect_ring_is_simple(outlines, ring);
        ASSERT_EQ(doubled_area(outlines, ring) < 0, ring.isHole);
        ASSERT_EQ(ring.isHole, ring.outer != i);
        ASSERT_FALSE(outlines.rings[ring.outer].isHole);
        areas[ring.outer] += doubled_area(outlines, ring) / 2;
        if (i > 0) {
            const PixelCorner last = outlines.corners[outlines.rings[i - 1].begin];
            const PixelCorner first = outlines.corners[ring.begin];
            ASSERT_TRUE(last.y < first.y || (last.y == first.y && last.x < first.x));
        }
    }
    std::vector<long> of_components;
    for (const KivRunSet& component : KivRuns::Components(set, KivRuns::Connectivity::Four)) {
        of_components.push_back(component.Area());
    }
    areas.erase(std::remove(areas.begin(), areas.end(), 0), areas.end()); // holes
    ASSERT_EQ(areas, of_components);
}

TEST(RunOutlines, HoldForAllMasksOfFourByFour)
{
    for (unsigned bits = 0; bits < 65536; ++bits) {
        expect_outlines(mask_of_bits(bits, 4, 4));
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "mask " << bits;
    }
}

TEST(RunOutlines, HoldAtRandom)
{
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        expect_outlines(random_mask(1 + i % 70, 1 + static_cast<int>(random() % 40), 1 + i % 8, random));
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "mask " << i;
    }
}

} // namespace
