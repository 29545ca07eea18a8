// SPDX-License-Identifier: MIT
#include "kivconvert/outlines.h"
#include "tools/nested_mask.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace
{

kivconvert::TracedContours traced(cv::Mat mask)
{
    KivImage image(mask);
    return kivconvert::contours_of(image, "mask");
}

/// The numbers of holes, by the row of the topmost point of the outer border.
std::map<int, std::size_t> holes_by_top_row(const std::vector<kivconvert::Outline>& outlines)
{
    std::map<int, std::size_t> holes;
    for (const kivconvert::Outline& outline : outlines) {
        const auto& points = outline.outer->AllPoints();
        const auto top = std::min_element(points.begin(), points.end(), [](auto a, auto b) { return a.y < b.y; });
        holes[static_cast<int>(top->y)] = outline.holes.size();
    }
    return holes;
}

TEST(Outlines, HaveTheHolesOfTheirOwnPiece)
{
    kivconvert::TracedContours contours = traced(tools_tests::nested_mask());
    EXPECT_EQ(contours.contours.Length(), 7);
    // The frame has three holes, the disc one, the pixel none.
    EXPECT_EQ(holes_by_top_row(kivconvert::outlines_of(contours)),
              (std::map<int, std::size_t>{{3, 3}, {12, 1}, {20, 0}}));
}

TEST(Outlines, HaveTheHolesInTheSmallestOfThem)
{
    const KivContour large = {{0.0, 0.0}, {0.0, 10.0}, {10.0, 10.0}, {10.0, 0.0}};
    const KivContour beside = {{11.0, 1.0}, {11.0, 10.0}, {20.0, 10.0}, {20.0, 1.0}};
    const KivContour small = {{2.0, 2.0}, {2.0, 8.0}, {8.0, 8.0}, {8.0, 2.0}};
    const KivContour hole = {{3.0, 3.0}, {6.0, 3.0}, {6.0, 6.0}, {3.0, 6.0}};
    using Holes = std::map<int, std::size_t>;
    EXPECT_EQ(holes_by_top_row(kivconvert::outlines_of({30, 12, {hole, large, beside}})), (Holes{{0, 1}, {1, 0}}));
    EXPECT_EQ(holes_by_top_row(kivconvert::outlines_of({30, 12, {small, large, hole}})), (Holes{{2, 1}, {0, 0}}));
    EXPECT_EQ(holes_by_top_row(kivconvert::outlines_of({30, 12, {beside, hole}})), (Holes{{1, 0}, {3, 0}}));
}

/// Squares of foreground and background in turn, one within the other.
cv::Mat squares(int count)
{
    cv::Mat mask = cv::Mat::zeros(4 * count, 4 * count, CV_8UC1);
    for (int i = 0; i < count; ++i) {
        const cv::Point corner(2 * i, 2 * i);
        cv::rectangle(mask, corner, cv::Point(4 * count - 1, 4 * count - 1) - corner, cv::Scalar(i % 2 == 0 ? 255 : 0),
                      cv::FILLED);
    }
    return mask;
}

TEST(Outlines, HaveTheHolesOfIslandsInHoles)
{
    kivconvert::TracedContours contours = traced(squares(6));
    const auto outlines = kivconvert::outlines_of(contours);
    ASSERT_EQ(outlines.size(), 3U);
    for (const kivconvert::Outline& outline : outlines) {
        ASSERT_EQ(outline.holes.size(), 1U);
        const auto outer = outline.outer->AllPoints().front();
        const auto hole = outline.holes.front()->AllPoints().front();
        EXPECT_LE(std::abs(hole.x - outer.x), 2) << "the hole begins two columns to the right, or one";
        EXPECT_LE(std::abs(hole.y - outer.y), 2);
    }
}

TEST(Outlines, CostNothingForTheFrame)
{
    const KivContour outer = {{0.0, 0.0}, {0.0, 1e6}, {1e6, 1e6}, {1e6, 0.0}};
    const KivContour hole = {{9.0, 9.0}, {99.0, 9.0}, {99.0, 99.0}, {9.0, 99.0}};
    const auto outlines = kivconvert::outlines_of({1 << 20, 1 << 20, {outer, hole}}); // 2^40 pixels
    ASSERT_EQ(outlines.size(), 1U);
    EXPECT_EQ(outlines.front().holes.size(), 1U);
}

TEST(Outlines, OfPixelsAndLinesHaveNoHoles)
{
    for (const cv::Size size : {cv::Size(1, 1), cv::Size(1, 5), cv::Size(5, 1), cv::Size(3, 3)}) {
        kivconvert::TracedContours contours = traced(cv::Mat(size, CV_8UC1, cv::Scalar(9)));
        const auto outlines = kivconvert::outlines_of(contours);
        ASSERT_EQ(outlines.size(), 1U) << size;
        EXPECT_TRUE(outlines.front().holes.empty()) << size;
    }
}

TEST(Outlines, OfNothingAreNone)
{
    kivconvert::TracedContours contours = traced(cv::Mat::zeros(4, 4, CV_8UC1));
    EXPECT_TRUE(kivconvert::outlines_of(contours).empty());
}

} // namespace
