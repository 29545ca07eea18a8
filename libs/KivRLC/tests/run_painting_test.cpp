// SPDX-License-Identifier: MIT
// Masks painted from any lists of runs, against a loop over pixels.
#include <KivRLC/KivRunImages.h>
#include <KivRLC/KivRunMat.h>

#include <gtest/gtest.h>
#include <opencv2/core.hpp>

#include <climits>
#include <random>
#include <stdexcept>
#include <vector>

namespace
{

using Runs = std::vector<Run>;

cv::Mat painted_by_pixels(const Runs& runs, cv::Size size, int value, int background)
{
    cv::Mat mask(size, CV_8UC1, cv::Scalar(background));
    for (const Run& run : runs) {
        for (int y = 0; y < mask.rows; ++y) {
            for (int x = 0; x < mask.cols; ++x) {
                if (y == run.row && run.colBegin <= x && x <= run.colEnd) {
                    mask.ptr(y)[x] = static_cast<uchar>(value);
                }
            }
        }
    }
    return mask;
}

bool same(const cv::Mat& left, const cv::Mat& right)
{
    return left.size() == right.size() && cv::norm(left, right, cv::NORM_INF) == 0;
}

/// Runs of all lengths, in order or not.
Runs random_runs(std::mt19937& random, cv::Size size, bool in_order)
{
    std::uniform_int_distribution<int> row(-1, size.height);
    std::uniform_int_distribution<int> column(-20, size.width + 5);
    std::uniform_int_distribution<int> length(-1, 45);
    Runs runs(20);
    for (Run& run : runs) {
        const int begin = column(random);
        run = {row(random), begin, begin + length(random)};
    }
    if (in_order) {
        const KivRunSet set(runs);
        runs.assign(set.Runs().begin(), set.Runs().end());
    }
    return runs;
}

TEST(RunPainting, PaintsRunsInAnyOrder)
{
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) {
        const cv::Size size(1 + i % 90, 1 + i % 7);
        const Runs runs = random_runs(random, size, i % 2 == 0);
        // A view in the middle of a larger mask, to see what is written around it.
        cv::Mat around(size.height + 2, size.width + 40, CV_8UC1, cv::Scalar(7));
        cv::Mat mask = around(cv::Rect(cv::Point(20, 1), size));
        KivRuns::PaintMask(runs, KivRuns::ViewOf<std::uint8_t>(mask), 200, 3);
        ASSERT_TRUE(same(mask, painted_by_pixels(runs, size, 200, 3))) << "case " << i;
        mask.setTo(7);
        ASSERT_EQ(cv::countNonZero(around != 7), 0) << "case " << i;
        cv::Mat continuous(size, CV_8UC1);
        KivRuns::PaintMask(runs, KivRuns::ViewOf<std::uint8_t>(continuous), 255, 0);
        ASSERT_TRUE(same(continuous, painted_by_pixels(runs, size, 255, 0))) << "case " << i;
    }
}

TEST(RunPainting, KeepsWhatALongerRunPaintedBefore)
{
    const cv::Size size(60, 1);
    const Runs runs = {{0, 0, 4}, {0, 2, 40}, {0, 10, 12}}; // the second one reaches beyond the first one and the third
    cv::Mat mask(size, CV_8UC1);
    KivRuns::PaintMask(runs, KivRuns::ViewOf<std::uint8_t>(mask), 255, 0);
    EXPECT_EQ(cv::countNonZero(mask), 41);
}

TEST(RunPainting, PaintsRowsThatAreClearedInPieces)
{
    const cv::Size size(1 << 15, 9);
    const Runs runs = {{0, 5, 9}, {3, -5, 40000}, {1, 3, 3}, {8, 32760, INT_MAX}, {6, INT_MIN, 0}};
    cv::Mat mask(size, CV_8UC1, cv::Scalar(9));
    KivRuns::PaintMask(runs, KivRuns::ViewOf<std::uint8_t>(mask), 255, 0);
    EXPECT_TRUE(same(mask, painted_by_pixels(runs, size, 255, 0)));
}

TEST(RunPainting, PaintsRowsLongerThanThePieces)
{
    const cv::Size size(70000, 2);
    const Runs runs = {{0, 5, 9}, {1, 69999, 69999}};
    cv::Mat mask(size, CV_8UC1, cv::Scalar(9));
    KivRuns::PaintMask(runs, KivRuns::ViewOf<std::uint8_t>(mask), 255, 0);
    EXPECT_TRUE(same(mask, painted_by_pixels(runs, size, 255, 0)));
}

TEST(RunPainting, TakesImagesWithoutPixelsAndRejectsNegativeOnes)
{
    const Runs runs = {{0, 0, 0}};
    EXPECT_NO_THROW(KivRuns::PaintMask(runs, {nullptr, 0, 0, 0}, 1, 0));
    EXPECT_NO_THROW(KivRuns::PaintMask(runs, {nullptr, 0, 5, 0}, 1, 0));
    EXPECT_NO_THROW(KivRuns::PaintMask(runs, {nullptr, 5, 0, 5}, 1, 0));
    EXPECT_THROW(KivRuns::PaintMask(runs, {nullptr, -1, 5, 0}, 1, 0), std::invalid_argument);
}

} // namespace
