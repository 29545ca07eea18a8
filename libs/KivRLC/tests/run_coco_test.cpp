// SPDX-License-Identifier: MIT
// Counts and packed counts: worked by hand, there and back, and refused.
#include "run_sets.h"

#include <KivRLC/KivRunCoco.h>
#include <KivRLC/KivRunMat.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using run_sets::coco_counts_of;
using run_sets::mask_of_bits;
using run_sets::random_mask;
using run_sets::set_of;
using Counts = std::vector<std::int64_t>;

TEST(RunCoco, CountsColumnByColumn)
{
    // 0 1 1
    // 0 0 1
    const KivRunSet set{{0, 1, 2}, {1, 2, 2}};
    EXPECT_EQ(KivRuns::ToCocoCounts(set, 3, 2), (Counts{2, 1, 1, 2}));
    EXPECT_EQ(KivRuns::FromCocoCounts({2, 1, 1, 2}, 3, 2), set);
    EXPECT_EQ(KivRuns::ToCocoCounts({{0, 0, 2}, {1, 0, 2}}, 3, 2), (Counts{0, 6}));
    EXPECT_EQ(KivRuns::ToCocoCounts(KivRunSet(), 3, 2), (Counts{6}));
    EXPECT_EQ(KivRuns::ToCocoCounts({{1, 0, 0}}, 1, 2), (Counts{1, 1}));
    EXPECT_EQ(KivRuns::ToCocoCounts(KivRunSet(), 0, 5), (Counts{0}));
    EXPECT_EQ(KivRuns::ToCocoCounts(KivRunSet(), 5, 0), (Counts{0}));
}

TEST(RunCoco, LeavesOutWhatLiesOutsideOfTheFrame)
{
    EXPECT_EQ(KivRuns::ToCocoCounts({{-1, 0, 0}, {0, -5, 9}, {2, 0, 0}}, 2, 2), (Counts{0, 1, 1, 1, 1}));
}

TEST(RunCoco, TakesCountsOfNothingAnywhere)
{
    EXPECT_EQ(KivRuns::FromCocoCounts({0, 1, 0, 1, 4, 0}, 3, 2), (KivRunSet{{0, 0, 0}, {1, 0, 0}}));
    EXPECT_TRUE(KivRuns::FromCocoCounts({}, 0, 0).Empty());
    EXPECT_TRUE(KivRuns::FromCocoCounts({0}, 7, 0).Empty());
    EXPECT_TRUE(KivRuns::FromCocoCounts({0, 0, 0}, 7, 0).Empty());
}

TEST(RunCoco, PaintsCountsByColumns)
{
    // Two columns of three pixels, a byte apart: 1 that does not belong, 3 that do, which go on in the next column, 2.
    using Pixels = std::vector<std::uint8_t>;
    Pixels pixels(8, 5);
    const KivImageView<std::uint8_t> columns{pixels.data(), 3, 2, 4};
    KivRuns::PaintCocoCounts({1, 0, 0, 3, 2}, columns, 9, 7);
    EXPECT_EQ(pixels, (Pixels{7, 9, 9, 5, 9, 7, 7, 5}));
    EXPECT_THROW(KivRuns::PaintCocoCounts({0, 5}, columns, 1, 0), std::invalid_argument);
    EXPECT_THROW(KivRuns::PaintCocoCounts({0, 7}, columns, 1, 0), std::invalid_argument);
    EXPECT_THROW(KivRuns::PaintCocoCounts({0, 7, -1}, columns, 1, 0), std::invalid_argument);
    EXPECT_THROW(KivRuns::PaintCocoCounts({}, {nullptr, -1, 0, 0}, 1, 0), std::invalid_argument);
    EXPECT_EQ(pixels, (Pixels{7, 9, 9, 5, 9, 7, 7, 5}));
    KivRuns::PaintCocoCounts({0, 6}, columns, 2, 0);
    EXPECT_EQ(pixels, (Pixels{2, 2, 2, 5, 2, 2, 2, 5}));
    KivRuns::PaintCocoCounts({}, {nullptr, 0, 7, 0}, 1, 0);
}

TEST(RunCoco, PaintsCountsAsTheirSetsAre)
{
    std::mt19937 random(8);
    for (int i = 0; i < 200; ++i) {
        const int height = 1 + i % 70;
        const int width = 1 + i / 10;
        const cv::Mat mask = run_sets::random_mask(width, height, 1 + i % 5, random);
        cv::Mat columns(width, height + i % 3, CV_8UC1, cv::Scalar(3)); // with some bytes behind each
        const cv::Mat border = columns.colRange(height, columns.cols);
        KivRuns::PaintCocoCounts(KivRuns::ToCocoCounts(KivRuns::FromMask(mask), width, height),
                                 KivRuns::ViewOf<std::uint8_t>(columns.colRange(0, height)), 255, 0);
        ASSERT_EQ(cv::countNonZero(columns.colRange(0, height).t() != (mask != 0)), 0);
        ASSERT_TRUE(border.empty() || cv::countNonZero(border != 3) == 0);
    }
}

TEST(RunCoco, PacksCountsIntoText)
{
    // 6 = 00110: '6'. 31 = 11111 has the sign bit set, so 1 00000 follows: 1 11111 = 63 + 48 = 'o', then '0'.
    EXPECT_EQ(KivRuns::ToCocoText(KivRunSet(), 3, 2), "6");
    EXPECT_EQ(KivRuns::ToCocoText(KivRunSet(), 31, 1), "o0");
    // 16 = 10000 has the sign bit set: 1 10000 = 48 + 48 = '`', then '0'.
    EXPECT_EQ(KivRuns::ToCocoText(KivRunSet(), 16, 1), "`0");
    // Counts 2 1 1 2: the fourth is 2 - 1.
    EXPECT_EQ(KivRuns::ToCocoText({{0, 1, 2}, {1, 2, 2}}, 3, 2), "2111");
    // Counts 5 4 1 2 8: the fourth is 2 - 4 = -2 = 11110: 30 + 48 = 'N'; the fifth 8 - 1 = 7.
    const KivRunSet one_column{{5, 0, 0}, {6, 0, 0}, {7, 0, 0}, {8, 0, 0}, {10, 0, 0}, {11, 0, 0}};
    EXPECT_EQ(KivRuns::ToCocoCounts(one_column, 1, 20), (Counts{5, 4, 1, 2, 8}));
    EXPECT_EQ(KivRuns::ToCocoText(one_column, 1, 20), "541N7");
    EXPECT_EQ(KivRuns::FromCocoText("541N7", 1, 20), one_column);
    // 1000 = 31 * 32 + 8: 1 01000 = 40 + 48 = 'X', then 31, whose sign bit is set: 'o', '0'.
    EXPECT_EQ(KivRuns::ToCocoText(KivRunSet(), 1000, 1), "Xo0");
    EXPECT_TRUE(KivRuns::FromCocoText("Xo0", 1000, 1).Empty());
}

TEST(RunCoco, UnpacksNumbersOfAnyLength)
{
    // 32 = 'P' says that more follows, 16 = '@' is the sign of the last five bits.
    EXPECT_EQ(KivRuns::CocoCountsFromText("@"), (Counts{-16}));
    EXPECT_EQ(KivRuns::CocoCountsFromText("P@"), (Counts{-512}));
    EXPECT_EQ(KivRuns::CocoCountsFromText("PPPPPPPPPPP@"), (Counts{-(std::int64_t{1} << 59)}));
    EXPECT_EQ(KivRuns::CocoCountsFromText("PPPPPPPPPPP?"), (Counts{std::int64_t{15} << 55}));
    EXPECT_EQ(KivRuns::CocoCountsFromText("PPPPPPPPPPPP1"), (Counts{std::int64_t{1} << 60}));
}

void expect_refused(const Counts& counts, int width, int height, const std::string& why)
{
    try {
        KivRuns::FromCocoCounts(counts, width, height);
        ADD_FAILURE() << "taken, though " << why;
    } catch (const std::invalid_argument& error) {
        EXPECT_NE(std::string(error.what()).find(why), std::string::npos) << error.what();
    }
}

void expect_text_refused(const std::string& text, const std::string& why)
{
    try {
        KivRuns::FromCocoText(text, 3, 2);
        ADD_FAILURE() << text << " is taken, though " << why;
    } catch (const std::invalid_argument& error) {
        EXPECT_NE(std::string(error.what()).find(why), std::string::npos) << error.what();
    }
}

TEST(RunCoco, RefusesCountsThatDoNotFitTheFrame)
{
    expect_refused({5}, 3, 2, "fewer pixels");
    expect_refused({}, 3, 2, "fewer pixels");
    expect_refused({7}, 3, 2, "more pixels");
    expect_refused({3, 3, 1}, 3, 2, "more pixels");
    expect_refused({INT64_MAX, INT64_MAX}, 3, 2, "more pixels");
    expect_refused({7, -1}, 3, 2, "more pixels");
    expect_refused({5, -1, 2}, 3, 2, "negative");
    expect_refused({INT64_MIN}, 3, 2, "negative");
    expect_refused({0}, -1, 2, "negative width or height");
    expect_refused({0}, 1, -2, "negative width or height");
    EXPECT_THROW(KivRuns::ToCocoCounts(KivRunSet(), -1, 0), std::invalid_argument);
    EXPECT_THROW(KivRuns::ToCocoCounts(KivRunSet(), 0, -1), std::invalid_argument);
}

TEST(RunCoco, RefusesTextThatIsNone)
{
    expect_text_refused("", "fewer pixels");
    expect_text_refused("3", "fewer pixels");
    expect_text_refused("7", "more pixels");
    expect_text_refused("N", "negative"); // -2
    expect_text_refused("2N", "negative");
    expect_text_refused("2 4", "has something else than the characters from 0 to o at character 2");
    expect_text_refused("p", "0 to o at character 1");
    expect_text_refused(std::string("6\0", 2), "0 to o at character 2");
    expect_text_refused("\xFF", "0 to o at character 1");
    expect_text_refused("o", "ends within a count at character 2");
    expect_text_refused("6oo", "ends within a count at character 4");
    expect_text_refused("ooooooooooooooooooooo0", "too large at character 14");
    expect_text_refused("oooooooooooo7", "more pixels");
    // The fourth count is the second one, 1, and a number that is only just one of 64 bits.
    expect_text_refused("011oooooooooooo7", "too large at character 16");
}

TEST(RunCoco, PacksAndUnpacksCountsOfNoFrame)
{
    EXPECT_EQ(KivRuns::CocoCountsFromText(""), Counts());
    EXPECT_EQ(KivRuns::CocoTextFromCounts({}), "");
    EXPECT_EQ(KivRuns::CocoCountsFromText("541N7"), (Counts{5, 4, 1, 2, 8}));
    EXPECT_EQ(KivRuns::CocoTextFromCounts({5, 4, 1, 2, 8}), "541N7");
    EXPECT_EQ(KivRuns::CocoCountsFromText("0N0"), (Counts{0, -2, 0}));
    const Counts large{0, std::int64_t{1} << 62, 1, 0, std::int64_t{1} << 62};
    EXPECT_EQ(KivRuns::CocoCountsFromText(KivRuns::CocoTextFromCounts(large)), large);
}

TEST(RunCoco, TakesHugeFramesWithoutTheirMemory)
{
    const int most = std::numeric_limits<int>::max();
    const std::int64_t pixels = std::int64_t{most} * most;
    const KivRunSet last = KivRuns::FromCocoCounts({pixels - 1, 1}, most, most);
    EXPECT_EQ(last, (KivRunSet{{most - 1, most - 1, most - 1}}));
    EXPECT_EQ(KivRuns::ToCocoCounts(last, most, most), (Counts{pixels - 1, 1}));
    EXPECT_EQ(KivRuns::FromCocoText(KivRuns::ToCocoText(last, most, most), most, most), last);
}

TEST(RunCoco, TakesFullColumnsAsOne)
{
    const int most = std::numeric_limits<int>::max();
    const KivRunSet strip{{0, 0, most - 1}, {1, 0, most - 1}};
    EXPECT_EQ(KivRuns::FromCocoCounts({0, std::int64_t{2} * most}, most, 2), strip);
    EXPECT_EQ(KivRuns::ToCocoCounts(strip, most, 2), (Counts{0, std::int64_t{2} * most}));
    // Half a column, full ones, and half a column.
    const KivRunSet cut = strip - KivRunSet{{0, 0, 0}, {1, most - 1, most - 1}};
    EXPECT_EQ(KivRuns::FromCocoCounts({1, std::int64_t{2} * most - 2, 1}, most, 2), cut);
    EXPECT_EQ(KivRuns::ToCocoCounts(cut, most, 2), (Counts{1, std::int64_t{2} * most - 2, 1}));
}

TEST(RunCoco, GoesThereAndBack)
{
    std::mt19937 random(1);
    for (int i = 0; i < 400; ++i) {
        const cv::Mat mask =
            random_mask(1 + i % 50, 1 + static_cast<int>(random() % (i % 2 == 0 ? 4 : 40)), 1 + i % 15, random);
        const KivRunSet set = set_of(mask);
        const Counts counts = coco_counts_of(mask);
        ASSERT_EQ(KivRuns::ToCocoCounts(set, mask.cols, mask.rows), counts);
        ASSERT_EQ(KivRuns::FromCocoCounts(counts, mask.cols, mask.rows), set);
        ASSERT_EQ(KivRuns::FromCocoText(KivRuns::ToCocoText(set, mask.cols, mask.rows), mask.cols, mask.rows), set);
    }
}

TEST(RunCoco, GoesThereAndBackForAllOfThreeByThree)
{
    for (unsigned bits = 0; bits < 512; ++bits) {
        const cv::Mat mask = mask_of_bits(bits, 3, 3);
        ASSERT_EQ(KivRuns::ToCocoCounts(set_of(mask), 3, 3), coco_counts_of(mask));
        ASSERT_EQ(KivRuns::FromCocoText(KivRuns::ToCocoText(set_of(mask), 3, 3), 3, 3), set_of(mask));
    }
}

} // namespace
