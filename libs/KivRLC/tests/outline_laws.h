// SPDX-License-Identifier: MIT
/// @file
/// What holds for the outlines of every set of pixels: they enclose it, as simple rings in order.
#pragma once

#include "run_sets.h"

#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunOutlines.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <utility>
#include <vector>

namespace outline_laws
{

using KivRuns::OutlineRing;
using KivRuns::Outlines;
using KivRuns::PixelCorner;

/// The pixels of a mask whose centres are inside of an odd number of rings: those right of an odd number of upright
/// edges.
inline cv::Mat mask_inside(const Outlines& outlines, int width, int height)
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
inline std::int64_t doubled_area(const Outlines& outlines, const OutlineRing& ring)
{
    std::int64_t area = 0;
    for (std::size_t i = ring.begin; i < ring.end; ++i) {
        const PixelCorner a = outlines.corners[i];
        const PixelCorner b = outlines.corners[i + 1 < ring.end ? i + 1 : ring.begin];
        area += std::int64_t{a.x} * b.y - std::int64_t{b.x} * a.y;
    }
    return area;
}

inline void expect_ring_is_simple(const Outlines& outlines, const OutlineRing& ring)
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

/// What holds for the outlines of every mask.
inline void expect_outlines(const cv::Mat& mask)
{
    const KivRunSet set = run_sets::set_of(mask);
    const Outlines outlines = KivRuns::OutlinesOf(set);
    ASSERT_EQ(run_sets::set_of(mask_inside(outlines, mask.cols, mask.rows)), set);
    std::vector<std::int64_t> areas(outlines.rings.size()); // of outer rings, less their holes
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
    std::vector<std::int64_t> of_components;
    for (const KivRunSet& component : KivRuns::Components(set, KivRuns::Connectivity::Four)) {
        of_components.push_back(component.Area());
    }
    areas.erase(std::remove(areas.begin(), areas.end(), 0), areas.end()); // holes
    ASSERT_EQ(areas, of_components);
}

} // namespace outline_laws
