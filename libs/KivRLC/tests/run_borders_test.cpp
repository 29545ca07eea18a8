// SPDX-License-Identifier: MIT
// Borders traced along runs: by hand, and against following them pixel by pixel. With KIV_LONG_TESTS set in the
// environment many times as many masks are compared.
#include "../src/border_tracer.h"
#include <KivRLC/KivPolygonFill.h>
#include <KivRLC/KivRunBorders.h>
#include <KivRLC/KivRunSet.h>

#include "mask_tracer.h"
#include "support/pictures.h"

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <ostream>
#include <random>
#include <vector>

namespace mask_tracer
{

static void PrintTo(const Chain& chain, std::ostream* out)
{
    *out << "of " << chain.outer << ":";
    for (const KivPixel& point : chain.points) {
        *out << " (" << point.x << ", " << point.y << ")";
    }
}

} // namespace mask_tracer

namespace
{

using mask_tracer::Chains;
using mask_tracer::chains_of;
using Runs = std::vector<Run>;

Runs runs_of(const cv::Mat& mask)
{
    Runs runs;
    KivRLC::AppendRuns(mask, runs);
    return runs;
}

Chains traced(std::initializer_list<const char*> picture)
{
    return chains_of(KivRunBorders::Of(runs_of(support::mask_of(picture))));
}

Runs filled(const KivRunBorders& borders, const cv::Mat& mask)
{
    KivPolygonFill fill({0, mask.rows - 1, 0, mask.cols - 1});
    for (const KivRunBorder& border : borders.borders) {
        fill.Add(borders.points.data() + border.begin, border.end - border.begin);
    }
    return fill.Runs();
}

/// The mask is traced as it is pixel by pixel, and filled back.
void expect_traced_and_filled(const cv::Mat& mask)
{
    const Runs runs = runs_of(mask);
    const KivRunBorders borders = KivRunBorders::Of(runs);
    ASSERT_EQ(chains_of(borders), mask_tracer::traced(mask)) << support::picture_of(mask);
    ASSERT_EQ(filled(borders, mask), runs) << support::picture_of(mask);
}

TEST(RunBorders, OfNothingAreNone)
{
    EXPECT_EQ(chains_of(KivRunBorders::Of({})), Chains());
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{3, 5, 4}})), Chains());
}

TEST(RunBorders, OfAPixelIsThePixel)
{
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{7, -3, -3}})), (Chains{{{{-3, 7}}, 0}}));
}

TEST(RunBorders, OfALineGoThereAndBack)
{
    EXPECT_EQ(traced({"###"}), (Chains{{{{0, 0}, {1, 0}, {2, 0}, {1, 0}}, 0}}));
    EXPECT_EQ(traced({"#", "#", "#"}), (Chains{{{{0, 0}, {0, 1}, {0, 2}, {0, 1}}, 0}}));
    EXPECT_EQ(traced({"#..", ".#.", "..#"}), (Chains{{{{0, 0}, {1, 1}, {2, 2}, {1, 1}}, 0}}));
}

TEST(RunBorders, RunCounterclockwiseFromTheUppermostRowsLeftmostPixel)
{
    EXPECT_EQ(traced({
                  ".##.",
                  "####",
                  ".#..",
              }),
              (Chains{{{{1, 0}, {0, 1}, {1, 2}, {2, 1}, {3, 1}, {2, 0}}, 0}}));
}

TEST(RunBorders, OfAHoleRunClockwiseOnThePixelsAroundIt)
{
    EXPECT_EQ(traced({
                  "####",
                  "#..#",
                  "####",
              }),
              (Chains{{{{0, 0}, {0, 1}, {0, 2}, {1, 2}, {2, 2}, {3, 2}, {3, 1}, {3, 0}, {2, 0}, {1, 0}}, 0},
                      {{{0, 1}, {1, 0}, {2, 0}, {3, 1}, {2, 2}, {1, 2}}, 0}}));
}

TEST(RunBorders, ComeFromTheLastToTheFirstEachBeforeItsHoles)
{
    const Chains chains = traced({
        "#########..",
        "#.#...#.#.#",
        "###.#.###..",
        "#.#...#.#..",
        "#########..",
    });
    // In the order of the search: the frame (0) with holes at (1, 1), (3, 1), (7, 1), (1, 3), (7, 3); the pixel at (10,
    // 1); the one at (4, 2).
    std::vector<KivPixel> starts;
    std::vector<std::size_t> outer;
    for (const auto& chain : chains) {
        starts.push_back(chain.points.front());
        outer.push_back(chain.outer);
    }
    EXPECT_EQ(starts, (std::vector<KivPixel>{{4, 2}, {10, 1}, {0, 0}, {6, 3}, {0, 3}, {6, 1}, {2, 1}, {0, 1}}));
    EXPECT_EQ(outer, (std::vector<std::size_t>{0, 1, 2, 2, 2, 2, 2, 2}));
}

TEST(RunBorders, TakeRunsInAnyForm)
{
    const Runs untidy = {{2, 3, 5}, {1, 1, 2}, {2, 1, 3}, {1, 9, 8}, {1, 1, 2}, {1, 3, 5}};
    EXPECT_EQ(chains_of(KivRunBorders::Of(untidy)), chains_of(KivRunBorders::Of(Runs{{1, 1, 5}, {2, 1, 5}})));
}

TEST(RunBorders, OfABoxAreThoseOfThePixelsInIt)
{
    const Runs runs = {{-1, 0, 5}, {0, -7, 2}, {1, 4, 9}, {1, 10, 12}, {2, 0, 9}, {3, 0, 3}};
    EXPECT_EQ(chains_of(KivRunBorders::Of(runs, {0, 2, 0, 5})),
              chains_of(KivRunBorders::Of(Runs{{0, 0, 2}, {1, 4, 5}, {2, 0, 5}})));
    EXPECT_EQ(chains_of(KivRunBorders::Of(runs, {5, 9, 0, 9})), Chains());
    EXPECT_EQ(chains_of(KivRunBorders::Of(runs, {0, 9, 6, 5})), Chains());
    const Chains cut = {{{{2, 0}, {3, 0}}, 0}};
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{0, 1, 3}}, {0, 2, 2, 5})), cut);
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{0, 2, 4}}, {0, 2, 0, 3})), cut);
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{-1, 3, 3}}, {0, 2, 0, 5})), Chains());
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{3, 3, 3}}, {0, 2, 0, 5})), Chains());
}

TEST(RunBorders, OfRunsThatMeetAreThoseOfOneRun)
{
    const Chains line = {{{{0, 7}, {1, 7}, {2, 7}, {1, 7}}, 0}};
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{7, 0, 1}, {7, 2, 2}})), line); // touch
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{7, 0, 1}, {7, 1, 2}})), line); // overlap
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{7, 0, 2}, {7, 0, 1}})), line); // one in the other
}

TEST(RunBorders, DoNotDependOnWhatStandsBehindTheRuns)
{
    const Runs runs = {{0, 0, 3}, {1, 0, 1}, {1, 3, 3}};
    EXPECT_EQ(chains_of(KivRunBorders::Of(KivRunView(runs.data(), 2))),
              (Chains{{{{0, 0}, {0, 1}, {1, 1}, {2, 0}, {3, 0}, {2, 0}, {1, 0}}, 0}}));
}

TEST(RunBorders, ReachTheLargestAndSmallestInts)
{
    for (const int row : {INT_MIN, INT_MAX - 1}) {
        for (const int column : {INT_MIN, INT_MAX - 1}) {
            EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{row, column, column + 1}, {row + 1, column, column + 1}})),
                      (Chains{{{{column, row}, {column, row + 1}, {column + 1, row + 1}, {column + 1, row}}, 0}}));
            EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{row, column, column}, {row + 1, column + 1, column + 1}})),
                      (Chains{{{{column, row}, {column + 1, row + 1}}, 0}}));
            EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{row, column + 1, column + 1}, {row + 1, column, column}})),
                      (Chains{{{{column + 1, row}, {column, row + 1}}, 0}}));
        }
    }
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{INT_MIN, 0, 0}, {INT_MAX, 0, 0}})),
              (Chains{{{{0, INT_MAX}}, 0}, {{{0, INT_MIN}}, 1}}));
    EXPECT_EQ(chains_of(KivRunBorders::Of(Runs{{0, INT_MIN, INT_MIN}, {1, INT_MAX, INT_MAX}})),
              (Chains{{{{INT_MAX, 1}}, 0}, {{{INT_MIN, 0}}, 1}}));
}

TEST(RunBorders, AreThoseFollowedPixelByPixelForAllMasksOfFourByFour)
{
    cv::Mat mask(4, 4, CV_8UC1);
    for (int bits = 0; bits < 1 << 16 && !testing::Test::HasFatalFailure(); ++bits) {
        for (int i = 0; i < 16; ++i) {
            mask.data[i] = (bits >> i & 1) != 0 ? 255 : 0;
        }
        expect_traced_and_filled(mask);
    }
}

/// Noise with rectangles of it inverted, so that holes nest.
cv::Mat random_mask(std::mt19937& random, int largest)
{
    const auto below = [&random](int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); };
    cv::Mat mask(1 + below(largest), 1 + below(largest), CV_8UC1);
    const int threshold = below(101);
    for (int i = 0; i < mask.rows * mask.cols; ++i) {
        mask.data[i] = below(100) < threshold ? 255 : 0;
    }
    for (int k = below(12); k > 0; --k) {
        const int x = below(mask.cols);
        const int y = below(mask.rows);
        cv::Mat part = mask(cv::Rect(x, y, 1 + below(mask.cols - x), 1 + below(mask.rows - y)));
        cv::bitwise_not(part, part);
    }
    return mask;
}

TEST(RunBorders, AreThoseFollowedPixelByPixelForRandomMasks)
{
    const int masks = std::getenv("KIV_LONG_TESTS") != nullptr ? 100000 : 3000;
    std::mt19937 random(14);
    for (int i = 0; i < masks && !testing::Test::HasFatalFailure(); ++i) {
        expect_traced_and_filled(random_mask(random, 64));
    }
}

TEST(RunBorders, AreThoseFollowedPixelByPixelForLargeMasks)
{
    std::mt19937 random(15);
    for (int i = 0; i < 12 && !testing::Test::HasFatalFailure(); ++i) {
        expect_traced_and_filled(random_mask(random, 1500));
    }
}

TEST(RunBorders, DoNotDependOnTheSizeOfLinks)
{
    std::mt19937 random(17);
    for (int i = 0; i < 300; ++i) {
        const Runs runs = runs_of(random_mask(random, 64));
        const Chains expected = chains_of(KivRunBorders::Of(runs));
        ASSERT_EQ(chains_of(kivrlc::borders_of<std::uint32_t>(runs)), expected);
        ASSERT_EQ(chains_of(kivrlc::borders_of<std::uint64_t>(runs)), expected);
    }
}

TEST(RunBorders, DoNotDependOnWhereThePixelsAre)
{
    std::mt19937 random(16);
    for (int i = 0; i < 100; ++i) {
        Runs runs = runs_of(random_mask(random, 20));
        Chains expected = chains_of(KivRunBorders::Of(runs));
        for (auto& run : runs) {
            run = {run.row - 1000, run.colBegin - 500, run.colEnd - 500};
        }
        for (auto& chain : expected) {
            for (KivPixel& point : chain.points) {
                point = {point.x - 500, point.y - 1000};
            }
        }
        std::shuffle(runs.begin(), runs.end(), random);
        ASSERT_EQ(chains_of(KivRunBorders::Of(runs)), expected);
    }
}

} // namespace
