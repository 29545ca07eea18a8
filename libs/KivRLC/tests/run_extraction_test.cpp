// SPDX-License-Identifier: MIT
// The extractor against a loop over bytes.
#include "support/pages.h"
#include "support/pixel_runs.h"

#include <KivRLC/KivRLC.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <ostream>
#include <random>
#include <stdexcept>
#include <vector>

// Found by GoogleTest, by argument-dependent lookup.
static void PrintTo(const Run& run, std::ostream* out)
{
    *out << "(row " << run.row << ": " << run.colBegin << " to " << run.colEnd << ")";
}

namespace
{

using Runs = std::vector<Run>;

Runs runs_by_bytes(const cv::Mat& mask)
{
    return support::runs_where(mask.rows, mask.cols, [&mask](int row, int column) {
        return mask.data[static_cast<std::size_t>(row) * mask.step[0] + static_cast<std::size_t>(column)] != 0;
    });
}

void extract(cv::Mat& mask, Runs* runs)
{
    KivRLC::FindContours(mask, 1, nullptr, nullptr, nullptr, nullptr, runs, nullptr, true, -1, -1, 1, false);
}

/// What both ways to ask give.
Runs extracted(cv::Mat mask)
{
    Runs runs;
    extract(mask, &runs);
    Runs asked_shortly;
    KivRLC::AppendRuns(mask, asked_shortly);
    EXPECT_EQ(asked_shortly, runs);
    return runs;
}

/// Fills the mask with stretches of foreground and background about `mean_length` long; foreground is any non-zero
/// byte.
void fill_with_stretches(cv::Mat& mask, int mean_length, std::mt19937& random)
{
    std::uniform_int_distribution<int> foreground_byte(1, 255);
    std::bernoulli_distribution changes(1.0 / mean_length);
    bool inside = changes(random);
    for (int y = 0; y < mask.rows; ++y) {
        for (int x = 0; x < mask.cols; ++x) {
            inside = inside != changes(random);
            mask.at<uchar>(y, x) = static_cast<uchar>(inside ? foreground_byte(random) : 0);
        }
    }
}

TEST(RunExtraction, AgreesWithBytesOnAllMasksOfFourByFour)
{
    for (int bits = 0; bits < 65536; ++bits) {
        cv::Mat mask(4, 4, CV_8UC1);
        for (int i = 0; i < 16; ++i) {
            mask.at<uchar>(i / 4, i % 4) = (bits >> i & 1) != 0 ? 255 : 0;
        }
        ASSERT_EQ(extracted(mask), runs_by_bytes(mask)) << "mask " << bits;
    }
}

TEST(RunExtraction, AgreesWithBytesAtEveryWidthAndDensity)
{
    std::mt19937 random(1);
    for (int width = 1; width <= 200; ++width) {
        for (const int mean_length : {1, 2, 5, 30, 100}) {
            cv::Mat mask(5, width, CV_8UC1);
            fill_with_stretches(mask, mean_length, random);
            ASSERT_EQ(extracted(mask), runs_by_bytes(mask)) << "width " << width << ", length " << mean_length;
        }
    }
}

TEST(RunExtraction, FindsARunBetweenAnyTwoColumns)
{
    for (int begin = 0; begin < 130; ++begin) {
        for (int end = begin; end < 130; ++end) {
            cv::Mat mask(1, 130, CV_8UC1, cv::Scalar(0));
            mask.colRange(begin, end + 1).setTo(1);
            ASSERT_EQ(extracted(mask), (Runs{{0, begin, end}}));
        }
    }
}

TEST(RunExtraction, JoinsWhatCrossesWordsAndKeepsRowsApart)
{
    for (const int width : {1, 15, 16, 17, 63, 64, 65, 128, 200}) {
        const cv::Mat full(3, width, CV_8UC1, cv::Scalar(128));
        EXPECT_EQ(extracted(full), (Runs{{0, 0, width - 1}, {1, 0, width - 1}, {2, 0, width - 1}}));
    }
}

TEST(RunExtraction, ReadsOnlyTheViewOfALargerImage)
{
    std::mt19937 random(2);
    for (int x = 0; x < 20; ++x) {
        for (const int width : {1, 31, 64, 65, 129}) {
            cv::Mat image(9, 170, CV_8UC1);
            fill_with_stretches(image, 3, random);
            cv::Mat view = image(cv::Rect(x, 2, width, 5));
            ASSERT_EQ(extracted(view), runs_by_bytes(view));
            ASSERT_EQ(extracted(view), extracted(view.clone()));
            image.setTo(255);
            view.setTo(0);
            ASSERT_EQ(extracted(view), Runs());
        }
    }
}

TEST(RunExtraction, ReadsPaddedRows)
{
    std::vector<uchar> bytes(100 * 7, 255); // the padding is foreground
    cv::Mat mask(7, 70, CV_8UC1, bytes.data(), 100);
    mask.setTo(0);
    mask.at<uchar>(3, 69) = 1;
    EXPECT_EQ(extracted(mask), (Runs{{3, 69, 69}}));
}

TEST(RunExtraction, TakesOneRowAndOneColumn)
{
    std::mt19937 random(3);
    for (int length = 1; length <= 200; ++length) {
        cv::Mat row(1, length, CV_8UC1);
        cv::Mat column(length, 1, CV_8UC1);
        fill_with_stretches(row, 2, random);
        fill_with_stretches(column, 2, random);
        ASSERT_EQ(extracted(row), runs_by_bytes(row));
        ASSERT_EQ(extracted(column), runs_by_bytes(column));
    }
}

TEST(RunExtraction, TakesAnyNonZeroByteAsForeground)
{
    for (int byte = 0; byte < 256; ++byte) {
        const cv::Mat mask(1, 70, CV_8UC1, cv::Scalar(byte));
        EXPECT_EQ(extracted(mask), byte == 0 ? Runs() : (Runs{{0, 0, 69}})) << "byte " << byte;
    }
}

TEST(RunExtraction, LooksAtTheFirstBytesOfRowsOfSeveralChannels)
{
    cv::Mat colour(2, 4, CV_8UC3, cv::Scalar(0, 9, 0));
    EXPECT_EQ(extracted(colour), (Runs{{0, 1, 1}, {1, 1, 1}}));
    cv::Mat wide(1, 70, CV_16UC1, cv::Scalar(0xFF00));
    EXPECT_EQ(extracted(wide), runs_by_bytes(wide));
    EXPECT_EQ(extracted(wide).size(), 35U);
}

TEST(RunExtraction, FindsNothingInAnEmptyMask)
{
    EXPECT_EQ(extracted(cv::Mat()), Runs());
    EXPECT_EQ(extracted(cv::Mat(0, 5, CV_8UC1)), Runs());
    EXPECT_EQ(extracted(cv::Mat(5, 0, CV_8UC1)), Runs());
    EXPECT_EQ(extracted(cv::Mat(5, 5, CV_8UC1, cv::Scalar(0))), Runs());
}

TEST(RunExtraction, AppendsToWhatIsThere)
{
    cv::Mat mask(1, 3, CV_8UC1, cv::Scalar(255));
    Runs runs = {{7, 8, 9}};
    extract(mask, &runs);
    extract(mask, &runs);
    EXPECT_EQ(runs, (Runs{{7, 8, 9}, {0, 0, 2}, {0, 0, 2}}));
}

TEST(RunExtraction, AppendsToWhatIsThereWhenAskedShortly)
{
    const cv::Mat mask(1, 2, CV_8UC1, cv::Scalar(1));
    Runs runs{{7, 8, 9}};
    KivRLC::AppendRuns(mask, runs);
    EXPECT_EQ(runs, (Runs{{7, 8, 9}, {0, 0, 1}}));
}

TEST(RunExtraction, ReadsNothingBehindTheMask)
{
    const std::size_t page = support::Pages::size_of_one();
    support::Pages pages(2 * page);
    ASSERT_TRUE(pages.forbid_from(page)); // reading it ends the program
    uchar* const behind = pages.data() + page;
    for (const int columns : {1, 63, 64, 65, 128, 130}) {
        cv::Mat mask(1, columns, CV_8UC1, behind - columns);
        mask = cv::Scalar(0);
        EXPECT_EQ(extracted(mask), Runs());
        mask = cv::Scalar(255);
        EXPECT_EQ(extracted(mask), (Runs{{0, 0, columns - 1}}));
    }
}

TEST(RunExtraction, LeavesTheMaskAsItIs)
{
    std::mt19937 random(4);
    cv::Mat mask(40, 150, CV_8UC1);
    fill_with_stretches(mask, 4, random);
    const cv::Mat before = mask.clone();
    extracted(mask);
    EXPECT_EQ(cv::norm(mask, before, cv::NORM_INF), 0.0);
}

TEST(RunExtraction, RefusesMoreThanTwoDimensions)
{
    const int sizes[] = {2, 2, 2};
    const cv::Mat cube(3, sizes, CV_8UC1, cv::Scalar(1));
    Runs runs;
    EXPECT_THROW(KivRLC::AppendRuns(cube, runs), cv::Exception);
    EXPECT_TRUE(runs.empty());
}

TEST(RunExtraction, RefusesNullRuns)
{
    cv::Mat mask(1, 3, CV_8UC1, cv::Scalar(255));
    EXPECT_THROW(extract(mask, nullptr), std::invalid_argument);
}

TEST(RunExtraction, LeavesItsOtherOutputsAndIgnoresItsModes)
{
    cv::Mat mask(2, 3, CV_8UC1, cv::Scalar(255));
    std::vector<cv::Point_<int>> outline = {{1, 2}};
    std::vector<int> lengths = {3};
    std::vector<cv::Vec<int, 4>> hierarchy = {{4, 5, 6, 7}};
    std::vector<int> labels = {8};
    std::vector<int> row_starts = {9};
    Runs runs;
    KivRLC::FindContours(mask, 0, &outline, &lengths, &hierarchy, &labels, &runs, &row_starts, false, 5, 6, 7, true);
    EXPECT_EQ(runs, extracted(mask));
    EXPECT_EQ(outline, (std::vector<cv::Point_<int>>{{1, 2}}));
    EXPECT_EQ(lengths, std::vector<int>{3});
    EXPECT_EQ(hierarchy, (std::vector<cv::Vec<int, 4>>{{4, 5, 6, 7}}));
    EXPECT_EQ(labels, std::vector<int>{8});
    EXPECT_EQ(row_starts, std::vector<int>{9});
}

TEST(RunExtraction, ComparesRunsByAllThreeNumbers)
{
    const ::Run run{1, 2, 3}; // plain Run is a member of the test here
    EXPECT_TRUE(run == (::Run{1, 2, 3}));
    EXPECT_TRUE(run != (::Run{0, 2, 3}));
    EXPECT_TRUE(run != (::Run{1, 0, 3}));
    EXPECT_TRUE(run != (::Run{1, 2, 0}));
}

} // namespace
