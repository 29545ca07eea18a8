// SPDX-License-Identifier: MIT
// Transforms against OpenCV on masks, by their laws, and where ints end.
#include "run_sets.h"

#include <KivRLC/KivRunTransforms.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <random>
#include <stdexcept>
#include <vector>

namespace
{

using KivRuns::BlockRule;
using run_sets::mask_of_bits;
using run_sets::random_mask;
using run_sets::runs_of;
using run_sets::set_of;
using Runs = std::vector<Run>;

const KivRunSet hook{{0, 1, 3}, {0, 5, 5}, {2, 0, 0}};

TEST(RunTransforms, Translate)
{
    EXPECT_EQ(runs_of(KivRuns::Translate(hook, -2, 10)), (Runs{{10, -1, 1}, {10, 3, 3}, {12, -2, -2}}));
    EXPECT_EQ(KivRuns::Translate({{INT_MIN, INT_MIN, INT_MIN}}, INT_MAX, INT_MAX), (KivRunSet{{-1, -1, -1}}));
    EXPECT_TRUE(KivRuns::Translate(KivRunSet(), INT_MAX, INT_MIN).Empty());
}

TEST(RunTransforms, RefuseToLeaveTheInts)
{
    const auto expect_overflow = [](const std::function<void()>& transform) {
        EXPECT_THROW(transform(), std::overflow_error);
    };
    expect_overflow([] { KivRuns::Translate({{0, 0, INT_MAX}}, 1, 0); });
    expect_overflow([] { KivRuns::Translate({{0, INT_MIN, 0}}, -1, 0); });
    expect_overflow([] { KivRuns::Translate({{0, 0, 0}, {INT_MAX, 0, 0}}, 0, 1); });
    expect_overflow([] { KivRuns::Translate({{INT_MIN, 0, 0}, {0, 0, 0}}, 0, -1); });
    expect_overflow([] { KivRuns::FlipLeftRight({{0, INT_MIN, 0}}, {0, 0, 0, 0}); });
    expect_overflow([] { KivRuns::FlipUpDown({{INT_MIN, 0, 0}}, {0, 0, 0, 0}); });
    expect_overflow([] { KivRuns::Turn({{INT_MIN, 0, 0}}, 1, {0, 0, 0, 0}); });
    expect_overflow([] { KivRuns::Turn({{0, INT_MIN, INT_MIN}}, 3, {0, 0, 0, 0}); });
    expect_overflow([] { KivRuns::ScaleUp({{0, 0, INT_MAX / 2 + 1}}, 2, 1); });
    expect_overflow([] { KivRuns::ScaleUp({{INT_MAX / 2 + 1, 0, 0}}, 1, 2); });
    EXPECT_EQ(KivRuns::FlipLeftRight({{0, INT_MIN, INT_MAX}}, {0, 0, -1, 0}), (KivRunSet{{0, INT_MIN, INT_MAX}}));
}

TEST(RunTransforms, Flip)
{
    const KivRunBox box{0, 2, 0, 5};
    EXPECT_EQ(runs_of(KivRuns::FlipLeftRight(hook, box)), (Runs{{0, 0, 0}, {0, 2, 4}, {2, 5, 5}}));
    EXPECT_EQ(runs_of(KivRuns::FlipUpDown(hook, box)), (Runs{{0, 0, 0}, {2, 1, 3}, {2, 5, 5}}));
    EXPECT_EQ(runs_of(KivRuns::FlipLeftRight(hook, {9, 9, 1, 2})), (Runs{{0, -2, -2}, {0, 0, 2}, {2, 3, 3}}));
}

TEST(RunTransforms, Turn)
{
    const KivRunBox box{0, 2, 0, 5};
    EXPECT_EQ(runs_of(KivRuns::Turn(hook, 1, box)), (Runs{{0, 0, 0}, {1, 2, 2}, {2, 2, 2}, {3, 2, 2}, {5, 2, 2}}));
    EXPECT_EQ(runs_of(KivRuns::Turn(hook, 2, box)), (Runs{{0, 5, 5}, {2, 0, 0}, {2, 2, 4}}));
    EXPECT_EQ(runs_of(KivRuns::Turn(hook, 3, box)), (Runs{{0, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 2, 2}}));
    EXPECT_EQ(KivRuns::Turn(hook, -1, box), KivRuns::Turn(hook, 3, box));
    EXPECT_EQ(KivRuns::Turn(hook, 4, box), hook);
    EXPECT_EQ(KivRuns::Turn(hook, INT_MIN, box), hook);
    EXPECT_EQ(KivRuns::Turn({{11, 21, 21}}, 1, {10, 12, 20, 25}), (KivRunSet{{11, 21, 21}}));
    EXPECT_EQ(KivRuns::Turn({{10, 20, 20}}, 1, {10, 12, 20, 25}), (KivRunSet{{10, 22, 22}}));
    EXPECT_EQ(KivRuns::Turn({{10, 20, 20}}, 3, {10, 12, 20, 25}), (KivRunSet{{15, 20, 20}}));
}

TEST(RunTransforms, Transpose)
{
    EXPECT_EQ(runs_of(KivRuns::Transpose(hook)), (Runs{{0, 2, 2}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {5, 0, 0}}));
    EXPECT_TRUE(KivRuns::Transpose(KivRunSet()).Empty());
    for (const int row : {INT_MIN, INT_MAX - 2}) {
        EXPECT_EQ(runs_of(KivRuns::Transpose({{row, 7, 7}, {row + 1, 7, 7}, {row + 2, 7, 7}})),
                  (Runs{{7, row, row + 2}}));
    }
    const KivRunSet far{
        {INT_MIN, INT_MAX, INT_MAX}, {INT_MIN + 1, INT_MAX, INT_MAX}, {0, 7, 7}, {INT_MAX, INT_MIN, INT_MIN}};
    EXPECT_EQ(runs_of(KivRuns::Transpose(far)),
              (Runs{{INT_MIN, INT_MAX, INT_MAX}, {7, 0, 0}, {INT_MAX, INT_MIN, INT_MIN + 1}}));
    EXPECT_EQ(KivRuns::Transpose(KivRuns::Transpose(far)), far);
}

TEST(RunTransforms, TransposeWideSets)
{
    Runs diagonal;
    for (int i = 0; i < 3000; ++i) {
        diagonal.push_back({i, 40 * i, 40 * i + 1}); // further than one counting sort reaches
    }
    const KivRunSet transposed = KivRuns::Transpose(KivRunSet(diagonal));
    ASSERT_EQ(transposed.Runs().size(), 6000U);
    ASSERT_EQ(KivRunSet::WhyNotCanonical(transposed.Runs()), "");
    EXPECT_EQ(transposed.Runs()[5999], (::Run{40 * 2999 + 1, 2999, 2999}));
    EXPECT_EQ(KivRuns::Transpose(transposed), KivRunSet(diagonal));
    EXPECT_EQ(runs_of(KivRuns::Transpose({{0, 65535, 65535}, {1, 0, 0}})), (Runs{{0, 1, 1}, {65535, 0, 0}}));
    EXPECT_EQ(runs_of(KivRuns::Transpose({{0, 65536, 65536}, {1, 0, 0}})), (Runs{{0, 1, 1}, {65536, 0, 0}}));
}

TEST(RunTransforms, Crop)
{
    EXPECT_EQ(runs_of(KivRuns::Crop(hook, {0, 1, 2, 9})), (Runs{{0, 2, 3}, {0, 5, 5}}));
    EXPECT_EQ(runs_of(KivRuns::Crop(hook, {0, 2, 0, 0})), (Runs{{2, 0, 0}}));
    EXPECT_EQ(KivRuns::Crop(hook, {INT_MIN, INT_MAX, INT_MIN, INT_MAX}), hook);
    EXPECT_TRUE(KivRuns::Crop(hook, {2, 0, 0, 9}).Empty());
    EXPECT_TRUE(KivRuns::Crop(hook, {3, -1, 0, 9}).Empty()); // with runs in between
    EXPECT_TRUE(KivRuns::Crop(hook, {0, 2, 3, 1}).Empty());
}

TEST(RunTransforms, ScaleUp)
{
    EXPECT_EQ(runs_of(KivRuns::ScaleUp({{-1, -1, 0}, {-1, 2, 2}}, 3, 2)),
              (Runs{{-2, -3, 2}, {-2, 6, 8}, {-1, -3, 2}, {-1, 6, 8}}));
    EXPECT_EQ(KivRuns::ScaleUp(hook, 1, 1), hook);
    EXPECT_THROW(KivRuns::ScaleUp(hook, 0, 1), std::invalid_argument);
    EXPECT_THROW(KivRuns::ScaleUp(hook, 1, -1), std::invalid_argument);
    EXPECT_EQ(KivRuns::ScaleUp({{0, INT_MIN / 2, INT_MAX / 2}}, 2, 1), (KivRunSet{{0, INT_MIN, INT_MAX}}));
}

TEST(RunTransforms, ScaleDownByEachRule)
{
    // Of the blocks of 2 x 2 from left to right 1, 2, 3 and 4 pixels belong, then none.
    const KivRunSet set{{0, 0, 0}, {0, 2, 7}, {1, 5, 7}};
    EXPECT_EQ(runs_of(KivRuns::ScaleDown(set, 2, 2, BlockRule::Any)), (Runs{{0, 0, 3}}));
    EXPECT_EQ(runs_of(KivRuns::ScaleDown(set, 2, 2, BlockRule::Most)), (Runs{{0, 2, 3}}));
    EXPECT_EQ(runs_of(KivRuns::ScaleDown(set, 2, 2, BlockRule::All)), (Runs{{0, 3, 3}}));
    EXPECT_EQ(runs_of(KivRuns::ScaleDown({{-1, -3, -1}}, 2, 2, BlockRule::Any)), (Runs{{-1, -2, -1}}));
    const KivRunSet everything{{0, INT_MIN, INT_MAX}};
    EXPECT_EQ(KivRuns::ScaleDown(everything, 1, 1, BlockRule::All), everything);
    EXPECT_EQ(runs_of(KivRuns::ScaleDown(everything, INT_MAX, 1, BlockRule::Any)), (Runs{{0, -2, 1}}));
    EXPECT_EQ(runs_of(KivRuns::ScaleDown(everything, INT_MAX, 1, BlockRule::Most)), (Runs{{0, -1, 0}}));
    EXPECT_TRUE(KivRuns::ScaleDown(everything, INT_MAX, INT_MAX, BlockRule::All).Empty());
    EXPECT_THROW(KivRuns::ScaleDown(set, 0, 1, BlockRule::Any), std::invalid_argument);
    EXPECT_THROW(KivRuns::ScaleDown(set, 1, 0, BlockRule::Any), std::invalid_argument);
}

/// The mask scaled down, block by block.
cv::Mat scaled_down(const cv::Mat& mask, int columns, int rows, BlockRule rule)
{
    cv::Mat result = cv::Mat::zeros(mask.rows / rows, mask.cols / columns, CV_8UC1);
    for (int y = 0; y < result.rows; ++y) {
        for (int x = 0; x < result.cols; ++x) {
            const int pixels = cv::countNonZero(mask(cv::Rect(x * columns, y * rows, columns, rows)));
            const int all = columns * rows;
            const bool kept = rule == BlockRule::Any    ? pixels > 0
                              : rule == BlockRule::Most ? 2 * pixels > all
                                                        : pixels == all;
            result.at<uchar>(y, x) = kept ? 255 : 0;
        }
    }
    return result;
}

void expect_as_masks(const cv::Mat& mask)
{
    const KivRunSet set = set_of(mask);
    const KivRunBox box{0, mask.rows - 1, 0, mask.cols - 1};
    cv::Mat flipped;
    cv::flip(mask, flipped, 1);
    ASSERT_EQ(KivRuns::FlipLeftRight(set, box), set_of(flipped));
    cv::flip(mask, flipped, 0);
    ASSERT_EQ(KivRuns::FlipUpDown(set, box), set_of(flipped));
    const KivRunSet transposed = KivRuns::Transpose(set);
    ASSERT_EQ(KivRunSet::WhyNotCanonical(transposed.Runs()), "");
    ASSERT_EQ(transposed, set_of(cv::Mat(mask.t())));
    const int codes[] = {cv::ROTATE_90_CLOCKWISE, cv::ROTATE_180, cv::ROTATE_90_COUNTERCLOCKWISE};
    for (int quarters = 1; quarters <= 3; ++quarters) {
        cv::Mat turned;
        cv::rotate(mask, turned, codes[quarters - 1]);
        ASSERT_EQ(KivRuns::Turn(set, quarters, box), set_of(turned)) << quarters << " quarters";
    }
}

TEST(RunTransforms, AgreeWithMasksOnAllOfThreeByFour)
{
    for (unsigned bits = 0; bits < 4096; ++bits) {
        expect_as_masks(mask_of_bits(bits, 4, 3));
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "mask " << bits;
    }
}

TEST(RunTransforms, AgreeWithMasksAtRandom)
{
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        expect_as_masks(random_mask(1 + i, 1 + static_cast<int>(random() % 60), 1 + i % 30, random));
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "mask " << i;
    }
}

TEST(RunTransforms, ScalingAgreesWithMasksAtRandom)
{
    std::mt19937 random(2);
    for (int i = 0; i < 300; ++i) {
        const int columns = 1 + static_cast<int>(random() % 5);
        const int rows = 1 + static_cast<int>(random() % 5);
        const cv::Mat mask = random_mask(columns * 12, rows * 6, 1 + i % 9, random);
        // Blocks are aligned to (0, 0), wherever the mask lies.
        const KivRunSet set = set_of(mask, -columns * 5, -rows * 2);
        for (const BlockRule rule : {BlockRule::Any, BlockRule::Most, BlockRule::All}) {
            const KivRunSet scaled = KivRuns::ScaleDown(set, columns, rows, rule);
            ASSERT_EQ(KivRunSet::WhyNotCanonical(scaled.Runs()), "");
            ASSERT_EQ(scaled, set_of(scaled_down(mask, columns, rows, rule), -5, -2));
            ASSERT_EQ(KivRuns::ScaleDown(KivRuns::ScaleUp(set, columns, rows), columns, rows, rule), set);
        }
    }
}

TEST(RunTransforms, CommuteWithTranslation)
{
    std::mt19937 random(3);
    for (int i = 0; i < 100; ++i) {
        const KivRunSet a = set_of(random_mask(70, 9, 1 + i % 12, random));
        const KivRunSet b = set_of(random_mask(70, 9, 1 + i % 12, random));
        const int dx = static_cast<int>(random() % 200) - 100;
        const int dy = static_cast<int>(random() % 20) - 10;
        const auto moved = [dx, dy](const KivRunSet& set) { return KivRuns::Translate(set, dx, dy); };
        ASSERT_EQ(moved(a) | moved(b), moved(a | b));
        ASSERT_EQ(moved(a) & moved(b), moved(a & b));
        ASSERT_EQ(moved(a) - moved(b), moved(a - b));
        ASSERT_EQ(moved(a) ^ moved(b), moved(a ^ b));
        ASSERT_EQ(KivRuns::Transpose(moved(a)), KivRuns::Translate(KivRuns::Transpose(a), dy, dx));
        ASSERT_EQ(moved(a).Area(), a.Area());
        ASSERT_EQ(KivRuns::Translate(moved(a), -dx, -dy), a);
    }
}

} // namespace
