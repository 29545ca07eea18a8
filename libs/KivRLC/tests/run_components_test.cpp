// SPDX-License-Identifier: MIT
// Components and holes: on pictures, on all masks of 4 x 4 pixels by flood fill, on random ones by OpenCV.
#include "run_brute.h"

#include <KivRLC/KivRunComponents.h>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include <climits>
#include <map>

namespace
{

using KivRuns::Connectivity;

constexpr std::array<Connectivity, 2> connectivities{Connectivity::Four, Connectivity::Eight};

/// Two rows, joined by a corner only; a pixel in the middle of a ring; far away, a single pixel.
const KivRunSet corner{{0, 0, 1}, {1, 2, 3}};
const KivRunSet eye{{0, 0, 4}, {1, 0, 0}, {1, 4, 4}, {2, 0, 0}, {2, 2, 2}, {2, 4, 4}, {3, 0, 0}, {3, 4, 4}, {4, 0, 4}};

TEST(RunComponents, OfTheEmptySetAreNone)
{
    for (const Connectivity connectivity : connectivities) {
        EXPECT_EQ(KivRuns::NumberComponents({}, connectivity).count, 0);
        EXPECT_TRUE(KivRuns::NumberComponents({}, connectivity).ofRun.empty());
        EXPECT_TRUE(KivRuns::Components({}, connectivity).empty());
        EXPECT_TRUE(KivRuns::SummarizeComponents({}, connectivity).empty());
        EXPECT_TRUE(KivRuns::MeasureComponents({}, connectivity).empty());
        EXPECT_TRUE(KivRuns::LargestComponent({}, connectivity).Empty());
        EXPECT_TRUE(KivRuns::ComponentsByArea({}, connectivity, 0).Empty());
        EXPECT_TRUE(KivRuns::WithoutBorderComponents({}, connectivity, {0, 9, 0, 9}).Empty());
        EXPECT_TRUE(KivRuns::Holes({}, connectivity).Empty());
        EXPECT_TRUE(KivRuns::FillHoles({}, connectivity).Empty());
    }
}

TEST(RunComponents, HangTogetherByCornersOnlyIfTheyMay)
{
    EXPECT_EQ(KivRuns::Components(corner, Connectivity::Four), (std::vector<KivRunSet>{{{0, 0, 1}}, {{1, 2, 3}}}));
    EXPECT_EQ(KivRuns::Components(corner, Connectivity::Eight), std::vector<KivRunSet>{corner});
    EXPECT_EQ(KivRuns::NumberComponents({{0, 2, 3}, {1, 0, 1}}, Connectivity::Four).count, 2);
    EXPECT_EQ(KivRuns::NumberComponents({{0, 2, 3}, {1, 0, 1}}, Connectivity::Eight).count, 1);
    EXPECT_EQ(KivRuns::NumberComponents({{0, 0, 1}, {1, 3, 3}}, Connectivity::Eight).count, 2);
    EXPECT_EQ(KivRuns::NumberComponents({{0, 0, 1}, {2, 0, 1}}, Connectivity::Eight).count, 2);
}

TEST(RunComponents, AreInTheOrderOfTheirFirstPixels)
{
    // Three legs, of which the first and the last one are joined further down, by way of a number given in between.
    const KivRunSet legs{{0, 0, 0}, {0, 4, 4}, {0, 8, 8}, {1, 0, 0}, {1, 4, 4},
                         {1, 8, 8}, {2, 0, 0}, {2, 8, 8}, {3, 0, 8}, {5, 3, 3}};
    const KivRuns::ComponentNumbers numbers = KivRuns::NumberComponents(legs, Connectivity::Four);
    EXPECT_EQ(numbers.ofRun, (std::vector<int>{0, 1, 0, 0, 1, 0, 0, 0, 0, 2}));
    EXPECT_EQ(numbers.count, 3);
    const auto summaries = KivRuns::SummarizeComponents(legs, Connectivity::Four);
    ASSERT_EQ(summaries.size(), 3U);
    EXPECT_EQ(summaries[1].area, 2);
    EXPECT_EQ(summaries[1].box, (KivRunBox{0, 1, 4, 4}));
    EXPECT_EQ(summaries[1].centroid, (KivRuns::Place{4.0, 0.5}));
    EXPECT_EQ(summaries[0].box, (KivRunBox{0, 3, 0, 8}));
}

TEST(RunComponents, ReachToTheEndsOfTheInts)
{
    const KivRunSet set{{INT_MIN, INT_MIN, INT_MIN},     {INT_MIN + 1, INT_MIN + 1, INT_MAX - 1},
                        {INT_MIN + 2, INT_MAX, INT_MAX}, {INT_MAX - 1, INT_MIN, INT_MIN},
                        {INT_MAX - 1, INT_MAX, INT_MAX}, {INT_MAX, INT_MIN, INT_MAX}};
    EXPECT_EQ(KivRuns::NumberComponents(set, Connectivity::Eight).ofRun, (std::vector<int>{0, 0, 0, 1, 1, 1}));
    EXPECT_EQ(KivRuns::NumberComponents(set, Connectivity::Four).ofRun, (std::vector<int>{0, 1, 2, 3, 3, 3}));
    const KivRunSet frame{{INT_MIN, INT_MIN, INT_MAX},
                          {INT_MIN + 1, INT_MIN, INT_MIN},
                          {INT_MIN + 1, INT_MAX, INT_MAX},
                          {INT_MIN + 2, INT_MIN, INT_MAX}};
    EXPECT_EQ(KivRuns::Holes(frame, Connectivity::Four), KivRunSet({{INT_MIN + 1, INT_MIN + 1, INT_MAX - 1}}));
    EXPECT_EQ(KivRuns::FillHoles(frame, Connectivity::Four).Runs().size(), 3U);
}

TEST(RunComponents, MeasuredOneByOneAreMeasuredAsSets)
{
    std::mt19937 random(7);
    for (int i = 0; i < 50; ++i) {
        const KivRunSet set = run_sets::set_of(run_sets::random_mask(30 + 2 * i, 20, 1 + i % 5, random), -9, -9);
        for (const Connectivity connectivity : connectivities) {
            const std::vector<KivRunSet> sets = KivRuns::Components(set, connectivity);
            const auto all = KivRuns::MeasureComponents(set, connectivity);
            const auto summaries = KivRuns::SummarizeComponents(set, connectivity);
            ASSERT_EQ(all.size(), sets.size());
            ASSERT_EQ(summaries.size(), sets.size());
            for (std::size_t k = 0; k < sets.size(); ++k) {
                const KivRuns::Measures alone = KivRuns::Measure(sets[k], connectivity);
                EXPECT_EQ(all[k].box, alone.box);
                EXPECT_EQ(all[k].moments.area, alone.moments.area);
                EXPECT_EQ(all[k].moments.centroid, alone.moments.centroid);
                EXPECT_EQ(all[k].moments.xx, alone.moments.xx);
                EXPECT_EQ(all[k].moments.xy, alone.moments.xy);
                EXPECT_EQ(all[k].moments.yy, alone.moments.yy);
                EXPECT_EQ(all[k].edgePerimeter, alone.edgePerimeter);
                EXPECT_EQ(all[k].croftonPerimeter, alone.croftonPerimeter);
                EXPECT_EQ(all[k].eulerNumber, alone.eulerNumber);
                EXPECT_EQ(all[k].eulerNumber, 1 - KivRuns::HoleCount(sets[k], connectivity));
                EXPECT_EQ(summaries[k].area, alone.moments.area);
                EXPECT_EQ(summaries[k].box, alone.box);
                EXPECT_EQ(summaries[k].centroid, alone.moments.centroid);
            }
        }
    }
}

TEST(RunComponents, TheLargestIsTheFirstOfSeveral)
{
    const KivRunSet set{{0, 0, 1}, {2, 0, 2}, {4, 0, 2}, {6, 0, 0}};
    EXPECT_EQ(KivRuns::LargestComponent(set, Connectivity::Four), KivRunSet({{2, 0, 2}}));
}

TEST(RunComponents, AreChosenByAreaWithBothLimitsIncluded)
{
    const KivRunSet set{{0, 0, 1}, {2, 0, 2}, {4, 0, 3}, {6, 0, 0}};
    EXPECT_EQ(KivRuns::ComponentsByArea(set, Connectivity::Four, 2, 3), KivRunSet({{0, 0, 1}, {2, 0, 2}}));
    EXPECT_EQ(KivRuns::ComponentsByArea(set, Connectivity::Four, 3), KivRunSet({{2, 0, 2}, {4, 0, 3}}));
    EXPECT_EQ(KivRuns::ComponentsByArea(set, Connectivity::Four, 0), set);
    EXPECT_TRUE(KivRuns::ComponentsByArea(set, Connectivity::Four, 3, 2).Empty());
}

TEST(RunComponents, ThatTouchABoxFromWithinAreRemoved)
{
    const KivRunBox box{0, 9, 0, 9};
    const auto kept = [&box](const KivRunSet& set) {
        return KivRuns::WithoutBorderComponents(set, Connectivity::Four, box) == set;
    };
    EXPECT_TRUE(kept({{1, 1, 8}, {8, 1, 8}}));
    EXPECT_FALSE(kept({{0, 4, 4}}));
    EXPECT_FALSE(kept({{9, 4, 4}}));
    EXPECT_FALSE(kept({{4, 0, 0}}));
    EXPECT_FALSE(kept({{4, 9, 9}}));
    EXPECT_FALSE(kept({{4, -3, 12}}));
    EXPECT_FALSE(kept({{-1, 4, 4}, {0, 4, 4}, {1, 4, 4}}));
    EXPECT_TRUE(kept({{-1, 4, 4}}));
    EXPECT_TRUE(kept({{10, 4, 4}}));
    EXPECT_TRUE(kept({{4, -1, -1}}));
    EXPECT_TRUE(kept({{4, 10, 10}}));
    EXPECT_TRUE(kept({{0, -1, -1}, {9, 10, 10}}));
    const KivRunSet both{{4, 0, 1}, {4, 3, 4}, {5, 1, 1}};
    EXPECT_EQ(KivRuns::WithoutBorderComponents(both, Connectivity::Four, box), KivRunSet({{4, 3, 4}}));
    EXPECT_EQ(KivRuns::WithoutBorderComponents(both, Connectivity::Four, {5, 4, 0, 9}), both);
    EXPECT_EQ(KivRuns::WithoutBorderComponents(both, Connectivity::Four, {4, 4, 4, 1}), both);
    EXPECT_EQ(KivRuns::WithoutBorderComponents(both, Connectivity::Four, {4, 4, 1, 4}), KivRunSet());
    EXPECT_EQ(KivRuns::WithoutBorderComponents(both, Connectivity::Four, {0, 9, 1, 1}), KivRunSet({{4, 3, 4}}));
}

TEST(Holes, AreFiniteComponentsOfTheBackground)
{
    const KivRunSet around_the_pupil{{1, 1, 3}, {2, 1, 1}, {2, 3, 3}, {3, 1, 3}};
    EXPECT_EQ(KivRuns::Holes(eye, Connectivity::Four), around_the_pupil);
    EXPECT_EQ(KivRuns::FillHoles(eye, Connectivity::Four).Area(), 25);
    EXPECT_EQ(KivRuns::Holes(eye, Connectivity::Four, 8), around_the_pupil);
    EXPECT_TRUE(KivRuns::Holes(eye, Connectivity::Four, 7).Empty());
    EXPECT_EQ(KivRuns::FillHoles(eye, Connectivity::Four, 7), eye);
}

TEST(Holes, OpenByACornerOnlyIfTheBackgroundMayPassThere)
{
    const KivRunSet diamond{{0, 1, 1}, {1, 0, 0}, {1, 2, 2}, {2, 1, 1}};
    EXPECT_TRUE(KivRuns::Holes(diamond, Connectivity::Four).Empty());
    EXPECT_EQ(KivRuns::Holes(diamond, Connectivity::Eight), KivRunSet({{1, 1, 1}}));
    EXPECT_EQ(KivRuns::FillHoles(diamond, Connectivity::Eight), KivRunSet({{0, 1, 1}, {1, 0, 2}, {2, 1, 1}}));
}

TEST(Holes, AreOpenTowardsRowsWithoutPixels)
{
    EXPECT_TRUE(KivRuns::Holes({{0, 0, 2}, {1, 0, 0}, {1, 2, 2}, {3, 0, 2}}, Connectivity::Eight).Empty());
    EXPECT_TRUE(KivRuns::Holes({{0, 0, 2}, {2, 0, 0}, {2, 2, 2}, {3, 0, 2}}, Connectivity::Eight).Empty());
    EXPECT_TRUE(KivRuns::Holes({{0, 0, 2}, {1, 0, 0}, {1, 2, 2}}, Connectivity::Eight).Empty());
    EXPECT_TRUE(KivRuns::Holes({{1, 0, 0}, {1, 2, 2}, {2, 0, 2}}, Connectivity::Eight).Empty());
    EXPECT_TRUE(
        KivRuns::Holes({{INT_MIN, 0, 0}, {INT_MIN, 2, 2}, {INT_MAX, 0, 0}, {INT_MAX, 2, 2}}, Connectivity::Eight)
            .Empty());
}

/// The sets of pixels as run sets.
std::vector<KivRunSet> sets_of(const std::vector<brute::Pixels>& all)
{
    std::vector<KivRunSet> sets;
    for (const brute::Pixels& pixels : all) {
        sets.push_back(brute::set_of(pixels));
    }
    return sets;
}

KivRunSet together(const std::vector<brute::Pixels>& all, std::size_t least, std::size_t most)
{
    brute::Pixels pixels;
    for (const brute::Pixels& part : all) {
        if (least <= part.size() && part.size() <= most) {
            pixels.insert(part.begin(), part.end());
        }
    }
    return brute::set_of(pixels);
}

void expect_components_and_holes(const KivRunSet& set)
{
    const brute::Pixels pixels = brute::pixels_of(set);
    for (const Connectivity connectivity : connectivities) {
        const std::vector<brute::Pixels> components = brute::components(pixels, connectivity);
        EXPECT_EQ(KivRuns::Components(set, connectivity), sets_of(components));
        EXPECT_EQ(KivRuns::ComponentsByArea(set, connectivity, 2, 4), together(components, 2, 4));
        const std::vector<brute::Pixels> holes = brute::holes(pixels, connectivity);
        EXPECT_EQ(KivRuns::Holes(set, connectivity), together(holes, 1, 1000));
        EXPECT_EQ(KivRuns::Holes(set, connectivity, 1), together(holes, 1, 1));
        brute::Pixels filled = pixels;
        for (const brute::Pixels& hole : holes) {
            filled.insert(hole.begin(), hole.end());
        }
        EXPECT_EQ(KivRuns::FillHoles(set, connectivity), brute::set_of(filled));
    }
}

TEST(RunComponents, OfAllMasksOf4x4PixelsAreThoseOfFloodFill)
{
    for (unsigned bits = 0; bits < 0x10000 && !testing::Test::HasFailure(); ++bits) {
        SCOPED_TRACE("mask " + std::to_string(bits));
        expect_components_and_holes(run_sets::set_of(run_sets::mask_of_bits(bits, 4, 4), -2, -1));
    }
}

TEST(RunComponents, OfRandomMasksAreOpenCvs)
{
    for (unsigned seed = 0; seed < 200 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const cv::Mat mask = run_sets::random_mask_of(seed);
        const KivRunSet set = run_sets::set_of(mask);
        for (const Connectivity connectivity : connectivities) {
            cv::Mat labels;
            cv::Mat stats;
            cv::Mat centroids;
            const int count =
                cv::connectedComponentsWithStats(mask, labels, stats, centroids, static_cast<int>(connectivity));
            const KivRuns::ComponentNumbers numbers = KivRuns::NumberComponents(set, connectivity);
            const auto summaries = KivRuns::SummarizeComponents(set, connectivity);
            ASSERT_EQ(numbers.count, count - 1);
            std::map<int, int> label_of; // OpenCV's numbers may be in another order
            for (std::size_t i = 0; i < numbers.ofRun.size(); ++i) {
                const ::Run& run = set.Runs()[i];
                const auto [entry, is_new] = label_of.emplace(numbers.ofRun[i], labels.at<int>(run.row, run.colBegin));
                EXPECT_EQ(entry->second, labels.at<int>(run.row, run.colBegin));
                EXPECT_TRUE(!is_new || entry->first + 1 == static_cast<int>(label_of.size()));
            }
            for (const auto& [number, label] : label_of) {
                const KivRuns::ComponentSummary& summary = summaries[static_cast<std::size_t>(number)];
                EXPECT_EQ(summary.area, stats.at<int>(label, cv::CC_STAT_AREA));
                const int top = stats.at<int>(label, cv::CC_STAT_TOP);
                const int left = stats.at<int>(label, cv::CC_STAT_LEFT);
                EXPECT_EQ(summary.box, (KivRunBox{top, top + stats.at<int>(label, cv::CC_STAT_HEIGHT) - 1, left,
                                                  left + stats.at<int>(label, cv::CC_STAT_WIDTH) - 1}));
                EXPECT_DOUBLE_EQ(summary.centroid.x, centroids.at<double>(label, 0));
                EXPECT_DOUBLE_EQ(summary.centroid.y, centroids.at<double>(label, 1));
            }
        }
    }
}

// Rows of many short runs are numbered in another way than others are, wherever they lie, above longer and shorter
// ones.
TEST(RunComponents, OfDenseRowsDoNotDependOnTheirPlace)
{
    std::mt19937 random(7);
    for (int i = 0; i < 40; ++i) {
        const int height = 6;
        const int width = 40 + 4 * i;
        cv::Mat mask = run_sets::random_mask(width, height, 1 + i % 3, random);
        mask(cv::Rect(0, 0, i % 9, i % height)).setTo(0); // so that rows begin and end at different columns
        mask(cv::Rect(width - i % 7, i % height, i % 7, height - i % height)).setTo(0);
        const KivRunSet set = run_sets::set_of(mask);
        for (const Connectivity connectivity : connectivities) {
            cv::Mat labels;
            const int count =
                cv::connectedComponents(mask, labels, connectivity == Connectivity::Four ? 4 : 8, CV_32S) - 1;
            const KivRuns::ComponentNumbers numbers = KivRuns::NumberComponents(set, connectivity);
            ASSERT_EQ(numbers.count, count);
            for (const int left : {INT_MIN, -width, INT_MAX - width + 1}) {
                const KivRunSet moved = run_sets::set_of(mask, left, 3);
                ASSERT_EQ(KivRuns::NumberComponents(moved, connectivity).ofRun, numbers.ofRun) << i << " at " << left;
            }
        }
    }
}

TEST(RunComponents, OfDenseRowsThatReachFurtherThanThoseAbove)
{
    std::vector<::Run> runs;
    for (int i = 0; i < 20; ++i) {
        runs.push_back({0, 2 * i, 2 * i});
        const int below = i < 10 ? 4 * i : 40 + 2 * i; // under every other one, then where none is above
        runs.push_back({1, below, below});
    }
    const KivRuns::ComponentNumbers numbers = KivRuns::NumberComponents(KivRunSet(runs), Connectivity::Four);
    EXPECT_EQ(numbers.count, 30);
    EXPECT_EQ(numbers.ofRun.back(), 29);
}

TEST(RunComponents, OfRowsOfVeryManyRuns)
{
    for (const int count : {65534, 65535, 65536, 65537}) {
        std::vector<::Run> bars;    // of two pixels, one above the other
        std::vector<::Run> zigzags; // one line, by corners
        for (const int row : {0, 1}) {
            for (int i = 0; i < count; ++i) {
                bars.push_back({row, 2 * i, 2 * i});
                zigzags.push_back({row, 2 * i + row, 2 * i + row});
            }
        }
        const KivRuns::ComponentNumbers numbers = KivRuns::NumberComponents(KivRunSet(bars), Connectivity::Four);
        EXPECT_EQ(numbers.count, count);
        EXPECT_EQ(numbers.ofRun.back(), count - 1);
        EXPECT_EQ(KivRuns::NumberComponents(KivRunSet(zigzags), Connectivity::Four).count, 2 * count);
        EXPECT_EQ(KivRuns::NumberComponents(KivRunSet(zigzags), Connectivity::Eight).count, 1);
    }
}

} // namespace
