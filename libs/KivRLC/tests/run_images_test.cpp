// SPDX-License-Identifier: MIT
// Masks, ranges of values and labels, in and out, pixel by pixel.
#include "run_sets.h"

#include <KivRLC/KivRunComponents.h>
#include <KivRLC/KivRunMat.h>

#include "support/matrices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <random>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using run_sets::mask_of;
using run_sets::random_mask;
using run_sets::range_of;
using run_sets::runs_of;
using run_sets::set_of;
using Runs = std::vector<Run>;

template <class Pixel>
cv::Mat random_image(int width, int height, double most, std::mt19937& random)
{
    cv::Mat image(height, width, cv::DataType<Pixel>::type);
    std::uniform_real_distribution<double> value(0.0, most);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            // Values repeat, so that runs are longer than a pixel.
            image.at<Pixel>(y, x) = x % 3 != 0 && x > 0 ? image.at<Pixel>(y, x - 1) : static_cast<Pixel>(value(random));
        }
    }
    return image;
}

template <class Pixel>
void expect_ranges(double most)
{
    std::mt19937 random(1);
    for (int width = 0; width < 200; width += width < 70 ? 1 : 13) {
        const cv::Mat image = random_image<Pixel>(width, 4, most, random);
        for (const auto& [least, greatest] : std::vector<std::pair<double, double>>{
                 {0.0, most}, {most / 4, most / 2}, {most / 2, most / 4}, {-1.0, 2 * most}, {most / 3, most / 3}}) {
            const KivRunSet set = KivRuns::FromRange(image, least, greatest);
            ASSERT_EQ(KivRunSet::WhyNotCanonical(set.Runs()), "");
            ASSERT_EQ(set, range_of<Pixel>(image, least, greatest)) << width;
        }
    }
}

TEST(RunImages, FindRangesOfValues)
{
    expect_ranges<std::uint8_t>(255.0);
    expect_ranges<std::uint16_t>(65535.0);
    expect_ranges<float>(1.0);
}

TEST(RunImages, TakeBothBoundsIn)
{
    const cv::Mat image = support::matrix_of<std::uint8_t>(1, {0, 9, 10, 20, 21, 255});
    EXPECT_EQ(runs_of(KivRuns::FromRange(image, 10, 20)), (Runs{{0, 2, 3}}));
    EXPECT_EQ(runs_of(KivRuns::FromRange(image, 0, 255)), (Runs{{0, 0, 5}}));
    EXPECT_EQ(runs_of(KivRuns::FromRange(image, 9.5, 20.5)), (Runs{{0, 2, 3}}));
    EXPECT_TRUE(KivRuns::FromRange(image, 9.25, 9.75).Empty());
    EXPECT_TRUE(KivRuns::FromRange(KivRuns::ViewOf<const std::uint8_t>(image), 21, 20).Empty());
    EXPECT_TRUE(KivRuns::FromRange(image, std::numeric_limits<double>::quiet_NaN(), 255).Empty());
    const cv::Mat reals = support::matrix_of<float>(1, {0.1F, 0.2F, 0.3F});
    EXPECT_EQ(runs_of(KivRuns::FromRange(reals, 0.1F, 0.2F)), (Runs{{0, 0, 1}}));
    EXPECT_EQ(runs_of(KivRuns::FromRange(reals, double{0.1F} + 1e-12, double{0.3F} - 1e-12)), (Runs{{0, 1, 1}}));
}

TEST(RunImages, FindNoRangeOfWhatIsNoNumber)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    const cv::Mat image = support::matrix_of<float>(1, {nan, -infinity, 0.0F, infinity, nan});
    EXPECT_EQ(runs_of(KivRuns::FromRange(image, -infinity, infinity)), (Runs{{0, 1, 3}}));
    EXPECT_EQ(runs_of(KivRuns::FromRange(image, -infinity, 0.0)), (Runs{{0, 1, 2}}));
    EXPECT_TRUE(KivRuns::FromRange(image, nan, infinity).Empty());
    EXPECT_TRUE(KivRuns::FromRange(image, 0.0, nan).Empty());
}

TEST(RunImages, FindTheForegroundOfMasks)
{
    std::mt19937 random(2);
    for (int i = 0; i < 300; ++i) {
        const cv::Mat mask = random_mask(1 + i, 5, 1 + i % 30, random) & 7;
        ASSERT_EQ(KivRuns::FromMask(mask), set_of(mask));
    }
    EXPECT_TRUE(KivRuns::FromMask(cv::Mat()).Empty());
}

/// Rows that stand upside down and at odd bytes.
template <class Pixel>
std::vector<unsigned char> upside_down(const cv::Mat& image, std::ptrdiff_t stride)
{
    std::vector<unsigned char> bytes(1 + static_cast<std::size_t>(image.rows * stride), 0xAB);
    for (int y = 0; y < image.rows; ++y) {
        std::memcpy(bytes.data() + 1 + (image.rows - 1 - y) * stride, image.ptr(y),
                    static_cast<std::size_t>(image.cols) * sizeof(Pixel));
    }
    return bytes;
}

template <class Pixel>
KivImageView<Pixel> view_upside_down(std::vector<unsigned char>& bytes, cv::Size size, std::ptrdiff_t stride)
{
    void* const first = bytes.data() + 1 + (size.height - 1) * stride;
    return {static_cast<Pixel*>(first), size.width, size.height, -stride};
}

TEST(RunImages, ReadAndWriteAtAnyStride)
{
    std::mt19937 random(3);
    const cv::Mat image = random_image<std::uint16_t>(77, 6, 9.0, random);
    std::vector<unsigned char> bytes = upside_down<std::uint16_t>(image, 161);
    const auto view = view_upside_down<const std::uint16_t>(bytes, image.size(), 161);
    EXPECT_EQ(KivRuns::FromRange(view, 3, 5), range_of<std::uint16_t>(image, 3, 5));
    ASSERT_EQ(KivRuns::FromLabels(view).size(), 8U);
    EXPECT_EQ(KivRuns::FromLabels(view)[4].set, range_of<std::uint16_t>(image, 5, 5));
    const KivRunSet set{{0, 0, 76}, {5, 70, 80}};
    KivRuns::Paint(set, view_upside_down<std::uint16_t>(bytes, image.size(), 161), 1000);
    EXPECT_EQ(KivRuns::FromRange(view, 1000, 1000), (KivRunSet{{0, 0, 76}, {5, 70, 76}}));
    EXPECT_EQ(bytes[0], 0xAB);
    EXPECT_EQ(std::count(bytes.begin() + 1 + 154, bytes.begin() + 1 + 161, 0xAB), 7);
}

TEST(RunImages, SplitLabels)
{
    const cv::Mat labels = support::matrix_of<std::int32_t>(2, {7, 7, 0, -2, 7, INT_MAX, 0, 7, 7, 7, -2, -2});
    const std::vector<KivRuns::LabelledSet> sets = KivRuns::FromLabels(labels);
    ASSERT_EQ(sets.size(), 3U);
    EXPECT_EQ(sets[0].label, -2);
    EXPECT_EQ(runs_of(sets[0].set), (Runs{{0, 3, 3}, {1, 4, 5}}));
    EXPECT_EQ(sets[1].label, 7);
    EXPECT_EQ(runs_of(sets[1].set), (Runs{{0, 0, 1}, {0, 4, 4}, {1, 1, 3}}));
    EXPECT_EQ(sets[2].label, INT_MAX);
    EXPECT_EQ(runs_of(sets[2].set), (Runs{{0, 5, 5}}));
    EXPECT_TRUE(KivRuns::FromLabels(cv::Mat()).empty());
}

TEST(RunImages, SplitLabelsOfEveryWidth)
{
    std::mt19937 random(4);
    const cv::Mat labels = random_image<std::uint8_t>(90, 20, 12.0, random);
    cv::Mat wide;
    labels.convertTo(wide, CV_16U);
    const std::vector<KivRuns::LabelledSet> sets = KivRuns::FromLabels(labels);
    const std::vector<KivRuns::LabelledSet> wide_sets = KivRuns::FromLabels(wide);
    ASSERT_EQ(sets.size(), 11U);
    ASSERT_EQ(wide_sets.size(), 11U);
    for (std::size_t i = 0; i < sets.size(); ++i) {
        EXPECT_EQ(sets[i].label, static_cast<int>(i) + 1);
        EXPECT_EQ(sets[i].set, range_of<std::uint8_t>(labels, sets[i].label, sets[i].label));
        EXPECT_EQ(wide_sets[i].set, sets[i].set);
    }
}

/// Two rows with one label from `begin` to `end`, between others that differ from it in their highest byte alone.
template <class Label>
void expect_long_label(int begin, int end, int width)
{
    constexpr auto label = static_cast<Label>(3);
    constexpr auto other = static_cast<Label>(label ^ Label{1} << (8 * sizeof(Label) - 2));
    cv::Mat labels(2, width, cv::DataType<Label>::type, cv::Scalar(other));
    labels.colRange(begin, end + 1).setTo(label);
    const std::vector<KivRuns::LabelledSet> sets = KivRuns::FromLabels(labels);
    const bool others = end - begin + 1 < width;
    ASSERT_EQ(sets.size(), others ? 2U : 1U) << begin << ' ' << end << ' ' << width;
    EXPECT_EQ(sets[0].label, label);
    EXPECT_EQ(runs_of(sets[0].set), (Runs{{0, begin, end}, {1, begin, end}})) << begin << ' ' << end << ' ' << width;
    if (others) {
        EXPECT_EQ(sets[1].set, KivRunSet::FromBox({0, 1, 0, width - 1}) - sets[0].set);
    }
}

TEST(RunImages, LongLabelsEndWhereTheirPixelsDo)
{
    for (int length = 1; length <= 70; ++length) {
        for (const int begin : {0, 1, 5}) {
            for (const int right : {0, 1, 40}) {
                expect_long_label<std::uint8_t>(begin, begin + length - 1, begin + length + right);
                expect_long_label<std::uint16_t>(begin, begin + length - 1, begin + length + right);
                expect_long_label<std::int32_t>(begin, begin + length - 1, begin + length + right);
            }
        }
    }
}

// Long labels are looked for by comparing each pixel with the one before it.
TEST(RunImages, LabelsThatTakeTurnsAreToldApart)
{
    cv::Mat labels(1, 100, CV_8UC1);
    for (int x = 0; x < labels.cols; ++x) {
        labels.at<std::uint8_t>(x) = static_cast<std::uint8_t>(1 + x % 2);
    }
    const std::vector<KivRuns::LabelledSet> sets = KivRuns::FromLabels(labels);
    ASSERT_EQ(sets.size(), 2U);
    EXPECT_EQ(sets[0].set, range_of<std::uint8_t>(labels, 1, 1));
    EXPECT_EQ(sets[1].set, range_of<std::uint8_t>(labels, 2, 2));
    EXPECT_EQ(sets[0].set.Runs().size(), 50U);
}

TEST(RunImages, TheFirstLabelMayBeAny)
{
    for (const std::int32_t label : {-1, 1, INT_MIN, INT_MAX}) {
        const std::vector<KivRuns::LabelledSet> sets = KivRuns::FromLabels(cv::Mat(1, 1, CV_32SC1, cv::Scalar(label)));
        ASSERT_EQ(sets.size(), 1U);
        EXPECT_EQ(sets[0].label, label);
        EXPECT_EQ(runs_of(sets[0].set), (Runs{{0, 0, 0}}));
    }
}

TEST(RunImages, PaintWhatLiesInTheImage)
{
    const KivRunSet set{{-1, 0, 9}, {0, -5, 1}, {0, 3, 3}, {1, 2, 9}, {1, 12, INT_MAX}, {3, 0, 0}};
    const cv::Mat mask = KivRuns::ToMask(set, 4, 3, 7);
    EXPECT_EQ(cv::countNonZero(mask != support::matrix_of<uchar>(3, {7, 7, 0, 7, 0, 0, 7, 7, 0, 0, 0, 0})), 0);
    EXPECT_EQ(KivRuns::ToMask(set, 4, 3).at<uchar>(0, 0), 255);
    cv::Mat reals(1, 3, CV_32FC1, cv::Scalar(0.5));
    KivRuns::Paint({{0, 1, 1}}, KivRuns::ViewOf<float>(reals), 2.5F);
    EXPECT_EQ(reals.at<float>(0, 0), 0.5F);
    EXPECT_EQ(reals.at<float>(0, 1), 2.5F);
    cv::Mat numbers(1, 3, CV_32SC1, cv::Scalar(-1));
    KivRuns::Paint({{0, 1, 1}}, KivRuns::ViewOf<std::int32_t>(numbers), 1 << 30);
    EXPECT_EQ(numbers.at<int>(0, 0), -1);
    EXPECT_EQ(numbers.at<int>(0, 1), 1 << 30);
    KivRuns::Paint(set, KivImageView<std::uint8_t>{nullptr, 0, 0, 0}, 1);
    KivRuns::Paint(set, KivImageView<std::uint8_t>{nullptr, 0, 5, 0}, 1);
}

TEST(RunImages, FindTheValuesWithinRealBounds)
{
    EXPECT_EQ(KivRuns::ValuesWithin<std::uint8_t>(1.5, 3.5), (std::pair<std::uint8_t, std::uint8_t>(2, 3)));
    EXPECT_EQ(KivRuns::ValuesWithin<std::uint8_t>(2, 2), (std::pair<std::uint8_t, std::uint8_t>(2, 2)));
    EXPECT_EQ(KivRuns::ValuesWithin<std::uint8_t>(1.2, 1.8), std::nullopt);
    EXPECT_EQ(KivRuns::ValuesWithin<float>(0.5, 0.5), std::pair(0.5F, 0.5F));
    EXPECT_EQ(KivRuns::ValuesWithin<float>(0.1, 0.1), std::nullopt);          // which no float is
    EXPECT_EQ(KivRuns::ValuesWithin<float>(0.1, 0.5), std::pair(0.1F, 0.5F)); // 0.1F is a little more than 0.1
    EXPECT_EQ(KivRuns::ValuesWithin<float>(std::nan(""), 1), std::nullopt);
}

TEST(RunImages, PaintMatricesInWhite)
{
    cv::Mat_<uchar> mask(1, 3, uchar{7});
    KivRuns::Paint({{0, 1, 1}}, mask);
    EXPECT_EQ(cv::countNonZero(mask != cv::Mat_<uchar>({1, 3}, {7, 255, 7})), 0);
}

TEST(RunImages, PaintNothingAboveOrBelowTheImage)
{
    cv::Mat_<std::uint16_t> around(3, 4, std::uint16_t{9});
    cv::Mat middle = around.row(1);
    KivRuns::Paint({{-1, 0, 3}, {0, 1, 2}, {1, 0, 3}}, KivRuns::ViewOf<std::uint16_t>(middle), 5);
    EXPECT_EQ(cv::countNonZero(around != cv::Mat_<std::uint16_t>({3, 4}, {9, 9, 9, 9, 9, 5, 5, 9, 9, 9, 9, 9})), 0);
}

TEST(RunImages, PaintLabels)
{
    const cv::Mat labels = KivRuns::ToLabels({{{0, 0, 2}}, KivRunSet(), {{0, 2, 9}}}, 5, 1);
    EXPECT_EQ(cv::countNonZero(labels != support::matrix_of<std::int32_t>(1, {1, 1, 3, 3, 3})), 0);
}

TEST(RunImages, PaintComponents)
{
    // Two that meet at a corner, and one that begins left of the image and above it.
    const KivRunSet set{{-1, -2, 0}, {0, -2, 0}, {0, 3, 3}, {1, 4, 4}};
    cv::Mat_<std::int32_t> labels = cv::Mat_<std::int32_t>(2, 5, -1);
    KivRuns::PaintComponents(set, KivRuns::Connectivity::Eight, KivRuns::ViewOf<std::int32_t>(labels));
    EXPECT_EQ(cv::countNonZero(labels != support::matrix_of<std::int32_t>(2, {1, -1, -1, 2, -1, -1, -1, -1, -1, 2})),
              0);
    KivRuns::PaintComponents(set, KivRuns::Connectivity::Four, KivRuns::ViewOf<std::int32_t>(labels));
    EXPECT_EQ(cv::countNonZero(labels != support::matrix_of<std::int32_t>(2, {1, -1, -1, 2, -1, -1, -1, -1, -1, 3})),
              0);
}

TEST(RunImages, PaintComponentsAsTheirSetsAre)
{
    std::mt19937 random(7);
    for (int i = 0; i < 100; ++i) {
        const KivRunSet set = KivRuns::FromMask(random_mask(1 + i % 37, 1 + i / 3, 1 + i % 3, random));
        for (const auto connectivity : {KivRuns::Connectivity::Four, KivRuns::Connectivity::Eight}) {
            cv::Mat labels = cv::Mat::zeros(40, 37, CV_32SC1);
            KivRuns::PaintComponents(set, connectivity, KivRuns::ViewOf<std::int32_t>(labels));
            ASSERT_EQ(cv::countNonZero(labels != KivRuns::ToLabels(KivRuns::Components(set, connectivity), 37, 40)), 0);
        }
    }
}

TEST(RunImages, GoThereAndBack)
{
    std::mt19937 random(5);
    for (int i = 0; i < 200; ++i) {
        const cv::Mat mask = random_mask(1 + i, 9, 1 + i % 40, random);
        ASSERT_EQ(cv::countNonZero(KivRuns::ToMask(KivRuns::FromMask(mask), mask.cols, mask.rows) != mask), 0);
    }
}

TEST(RunImages, RefuseWhatIsNoImage)
{
    const std::uint8_t pixel = 1;
    EXPECT_THROW(KivRuns::FromMask(KivImageView<const std::uint8_t>{&pixel, -1, 1, 1}), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromLabels(KivImageView<const std::uint8_t>{&pixel, 1, -1, 1}), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromRange(KivImageView<const std::uint8_t>{&pixel, -1, 1, 1}, 0, 1), std::invalid_argument);
    EXPECT_THROW(KivRuns::Paint(KivRunSet(), KivImageView<std::uint8_t>{nullptr, -1, 1, 1}, 1), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromMask(cv::Mat(2, 2, CV_8UC3)), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromMask(cv::Mat(2, 2, CV_8SC1)), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromMask(cv::Mat({2, 2, 2}, CV_8UC1)), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromRange(cv::Mat(2, 2, CV_64FC1), 0, 1), std::invalid_argument);
    EXPECT_THROW(KivRuns::FromLabels(cv::Mat(2, 2, CV_32FC1)), std::invalid_argument);
}

} // namespace
