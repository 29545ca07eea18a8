// SPDX-License-Identifier: MIT
// Morphology: on small pictures, by its definitions pixel by pixel, by OpenCV where the two agree, by its laws, and at
// the ends of the ints.
#include "run_brute.h"

#include <KivRLC/KivRunMorphology.h>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include <climits>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace
{

using KivRuns::Element;

const KivRunSet dot{{0, 0, 0}};

/// Turned by 180 degrees about pixel (0, 0).
KivRunSet turned(const KivRunSet& set)
{
    std::vector<::Run> runs;
    for (const ::Run& run : set.Runs()) {
        runs.push_back({-run.row, -run.colEnd, -run.colBegin});
    }
    return KivRunSet(runs);
}

KivRunSet moved(const KivRunSet& set, int columns, int rows)
{
    std::vector<::Run> runs;
    for (const ::Run& run : set.Runs()) {
        runs.push_back({run.row + rows, run.colBegin + columns, run.colEnd + columns});
    }
    return KivRunSet(runs);
}

TEST(Element, OfARectangleHasItsOriginInTheMiddle)
{
    EXPECT_EQ(KivRuns::Dilate(dot, Element::Rectangle(3, 5)),
              KivRunSet({{-2, -1, 1}, {-1, -1, 1}, {0, -1, 1}, {1, -1, 1}, {2, -1, 1}}));
    EXPECT_EQ(KivRuns::Dilate(dot, Element::Rectangle(2, 2)), KivRunSet({{-1, -1, 0}, {0, -1, 0}}));
    EXPECT_EQ(KivRuns::Dilate(dot, Element::Rectangle(4, 1)), KivRunSet({{0, -2, 1}}));
    EXPECT_EQ(KivRuns::Dilate(dot, Element::Rectangle(1, 1)), dot);
    EXPECT_EQ(Element::Rectangle(INT_MAX, INT_MAX).Boxes(),
              (std::vector<KivRunBox>{{-(INT_MAX / 2), INT_MAX / 2, -(INT_MAX / 2), INT_MAX / 2}}));
    EXPECT_THROW(Element::Rectangle(0, 1), std::invalid_argument);
    EXPECT_THROW(Element::Rectangle(1, 0), std::invalid_argument);
    EXPECT_THROW(Element::Rectangle(-1, -1), std::invalid_argument);
}

TEST(Element, OfADiskHasThePixelsWithinItsRadius)
{
    EXPECT_EQ(KivRuns::Dilate(dot, Element::Disk(0)), dot);
    EXPECT_EQ(KivRuns::Dilate(dot, Element::Disk(1)), KivRunSet({{-1, 0, 0}, {0, -1, 1}, {1, 0, 0}}));
    for (const double radius : {0.5, 1.4, 1.42, 2.0, 2.5, 5.0, 7.3, 25.0}) {
        brute::Pixels pixels;
        for (int y = -30; y <= 30; ++y) {
            for (int x = -30; x <= 30; ++x) {
                if (x * x + y * y <= radius * radius) {
                    pixels.emplace(y, x);
                }
            }
        }
        EXPECT_EQ(KivRuns::Dilate(dot, Element::Disk(radius)), brute::set_of(pixels)) << radius;
    }
    EXPECT_THROW(Element::Disk(-0.1), std::invalid_argument);
    EXPECT_THROW(Element::Disk(std::nextafter(1 << 30, 2e9)), std::invalid_argument);
    EXPECT_THROW(Element::Disk(std::numeric_limits<double>::quiet_NaN()), std::invalid_argument);
    EXPECT_THROW(Element::Disk(std::numeric_limits<double>::infinity()), std::invalid_argument);
}

TEST(Element, OfASetIsMadeOfAsFewBoxesAsItsRunsAllow)
{
    const KivRunSet letter{{0, 0, 0}, {0, 4, 5}, {1, 0, 0}, {1, 4, 5}, {2, 0, 1}, {2, 4, 5}, {4, 4, 5}};
    EXPECT_EQ(Element(letter).Boxes(),
              (std::vector<KivRunBox>{{0, 1, 0, 0}, {0, 2, 4, 5}, {2, 2, 0, 1}, {4, 4, 4, 5}}));
    EXPECT_TRUE(Element(KivRunSet()).Boxes().empty());
    EXPECT_EQ(Element(KivRunSet{{0, 0, 3}, {1, 1, 3}, {2, 0, 2}}).Boxes().size(), 3U);
    EXPECT_EQ(Element(KivRunSet{{0, 0, 0}, {0, 2, 2}, {1, 2, 2}}).Boxes().size(), 2U);
    EXPECT_EQ(Element(KivRunSet{{INT_MIN, INT_MIN, INT_MAX}, {INT_MAX, INT_MIN, INT_MAX}}).Boxes().size(), 2U);
}

TEST(Morphology, OfASmallPicture)
{
    const KivRunSet bar{{0, 0, 4}, {1, 0, 4}, {2, 0, 4}};
    const Element square = Element::Rectangle(3, 3);
    EXPECT_EQ(KivRuns::Erode(bar, square), KivRunSet({{1, 1, 3}}));
    EXPECT_EQ(KivRuns::Dilate({{0, 0, 0}, {0, 3, 3}}, Element::Rectangle(3, 1)), KivRunSet({{0, -1, 4}}));
    EXPECT_EQ(KivRuns::Dilate({{0, 0, 0}, {0, 4, 4}}, Element::Rectangle(3, 1)), KivRunSet({{0, -1, 1}, {0, 3, 5}}));
    EXPECT_EQ(KivRuns::Close({{0, 0, 0}, {0, 3, 3}}, Element::Rectangle(3, 1)), KivRunSet({{0, 0, 3}}));
    EXPECT_EQ(KivRuns::Close({{0, 0, 0}, {0, 4, 4}}, Element::Rectangle(3, 1)), KivRunSet({{0, 0, 0}, {0, 4, 4}}));
    EXPECT_EQ(KivRuns::Open({{0, 0, 1}, {0, 3, 5}}, Element::Rectangle(3, 1)), KivRunSet({{0, 3, 5}}));
    EXPECT_EQ(KivRuns::Gradient({{5, 5, 7}, {6, 5, 7}, {7, 5, 7}}, Element::Disk(1)),
              KivRunSet({{4, 5, 7}, {5, 4, 8}, {6, 4, 5}, {6, 7, 8}, {7, 4, 8}, {8, 5, 7}}));
}

TEST(Morphology, ByAnElementFarFromItsOriginMovesTheResult)
{
    const KivRunSet bar{{0, 0, 4}, {1, 0, 4}};
    const KivRunSet far{{7, 10, 11}};
    EXPECT_EQ(KivRuns::Dilate(bar, far), KivRunSet({{7, 10, 15}, {8, 10, 15}}));
    EXPECT_EQ(KivRuns::Erode(bar, far), KivRunSet({{-7, -10, -7}, {-6, -10, -7}}));
    EXPECT_EQ(KivRuns::Open(bar, far), bar);
    EXPECT_EQ(KivRuns::Close(bar, far), bar);
}

TEST(Morphology, OfAndByTheEmptySet)
{
    const KivRunSet none;
    const Element square = Element::Rectangle(3, 3);
    EXPECT_TRUE(KivRuns::Dilate(none, square).Empty());
    EXPECT_TRUE(KivRuns::Erode(none, square).Empty());
    EXPECT_TRUE(KivRuns::Open(none, square).Empty());
    EXPECT_TRUE(KivRuns::Close(none, square).Empty());
    EXPECT_TRUE(KivRuns::Gradient(none, square).Empty());
    EXPECT_TRUE(KivRuns::Dilate(dot, none).Empty());
    EXPECT_THROW(KivRuns::Erode(dot, none), std::invalid_argument);
    EXPECT_THROW(KivRuns::Open(dot, none), std::invalid_argument);
    EXPECT_THROW(KivRuns::Close(dot, none), std::invalid_argument);
    EXPECT_THROW(KivRuns::Gradient(dot, none), std::invalid_argument);
    EXPECT_THROW(KivRuns::Erode(none, none), std::invalid_argument);
    EXPECT_THROW(KivRuns::Close(none, none), std::invalid_argument);
}

TEST(Morphology, RefusesResultsBeyondTheInts)
{
    const Element square = Element::Rectangle(3, 3);
    for (const auto& at_an_end : std::vector<KivRunSet>{
             {{INT_MIN, 0, 0}}, {{INT_MAX, 0, 0}}, {{0, INT_MIN, INT_MIN}}, {{0, INT_MAX, INT_MAX}}}) {
        EXPECT_THROW(KivRuns::Dilate(at_an_end, square), std::overflow_error);
        EXPECT_THROW(KivRuns::Gradient(at_an_end, square), std::overflow_error);
        EXPECT_TRUE(KivRuns::Erode(at_an_end, square).Empty());
        EXPECT_TRUE(KivRuns::Open(at_an_end, square).Empty());
        EXPECT_EQ(KivRuns::Close(at_an_end, square), at_an_end);
        EXPECT_EQ(KivRuns::Dilate(at_an_end, dot), at_an_end);
    }
    const KivRunSet apart{{0, 0, 0}, {3, -3, -3}, {3, 3, 3}};
    EXPECT_THROW(KivRuns::Dilate({{INT_MAX - 2, 0, 0}}, apart), std::overflow_error);
    EXPECT_THROW(KivRuns::Dilate({{0, INT_MAX - 2, INT_MAX - 2}}, apart), std::overflow_error);
    EXPECT_THROW(KivRuns::Dilate({{0, INT_MIN + 2, INT_MIN + 2}}, apart), std::overflow_error);
    EXPECT_EQ(KivRuns::Dilate({{INT_MIN + 1, INT_MAX - 1, INT_MAX - 1}}, square),
              KivRunSet({{INT_MIN, INT_MAX - 2, INT_MAX},
                         {INT_MIN + 1, INT_MAX - 2, INT_MAX},
                         {INT_MIN + 2, INT_MAX - 2, INT_MAX}}));
}

TEST(Morphology, RefusesPlacesBeyondTheInts)
{
    const KivRunSet corner{{INT_MIN, INT_MAX, INT_MAX}};
    EXPECT_EQ(KivRuns::Erode(corner, corner), dot);
    EXPECT_THROW(KivRuns::Erode(corner, KivRunSet{{1, INT_MAX, INT_MAX}}), std::overflow_error);
    EXPECT_THROW(KivRuns::Erode(corner, KivRunSet{{INT_MIN, -1, -1}}), std::overflow_error);
    EXPECT_TRUE(KivRuns::Erode(corner, KivRunSet{{1, -1, 0}}).Empty()); // it fits nowhere, so nothing is beyond
    EXPECT_EQ(KivRuns::Open(corner, KivRunSet{{INT_MAX, INT_MIN, INT_MIN}}), corner);
    EXPECT_EQ(KivRuns::Close(corner, KivRunSet{{INT_MAX, INT_MIN, INT_MIN}}), corner);
}

TEST(Morphology, WorksOnRowsAsWideAsTheInts)
{
    const KivRunSet row{{0, INT_MIN, INT_MAX}};
    EXPECT_EQ(KivRuns::Erode(row, row), dot);
    EXPECT_EQ(KivRuns::Erode(row, Element::Rectangle(3, 1)), KivRunSet({{0, INT_MIN + 1, INT_MAX - 1}}));
    EXPECT_EQ(KivRuns::Open(row, Element::Rectangle(3, 1)), row);
    EXPECT_EQ(KivRuns::Open(row, row), row);
    EXPECT_EQ(KivRuns::Close(dot, row), dot);
    EXPECT_EQ(KivRuns::Close(row, dot), row);
    EXPECT_THROW(KivRuns::Close(row, Element::Rectangle(2, 1)), std::overflow_error);
    EXPECT_THROW(KivRuns::Close({{INT_MIN, 0, 0}, {INT_MAX, 0, 0}}, Element::Rectangle(1, 2)), std::overflow_error);
    EXPECT_EQ(KivRuns::Close({{0, INT_MIN, INT_MIN}, {0, INT_MAX, INT_MAX}}, dot),
              KivRunSet({{0, INT_MIN, INT_MIN}, {0, INT_MAX, INT_MAX}}));
    EXPECT_EQ(KivRuns::Close({{0, INT_MAX - 3, INT_MAX - 3}, {0, INT_MAX, INT_MAX}}, Element::Rectangle(INT_MAX, 3)),
              KivRunSet({{0, INT_MAX - 3, INT_MAX}}));
}

TEST(Morphology, ByPixelsApartWorksWhereIntsEnd)
{
    const KivRunSet side_by_side{{0, 0, 0}, {0, 5, 5}};
    const KivRunSet one_below_the_other{{0, 0, 0}, {5, 0, 0}};
    const KivRunSet one_above_the_other{{-5, 0, 0}, {0, 0, 0}};
    EXPECT_EQ(KivRuns::Erode(KivRunSet::FromBox({INT_MIN, INT_MIN + 9, 0, 0}), one_below_the_other),
              KivRunSet::FromBox({INT_MIN, INT_MIN + 4, 0, 0}));
    EXPECT_EQ(KivRuns::Erode(KivRunSet::FromBox({INT_MAX - 9, INT_MAX, 0, 0}), one_above_the_other),
              KivRunSet::FromBox({INT_MAX - 4, INT_MAX, 0, 0}));
    // Of two rows, or columns, only one has both pixels.
    EXPECT_EQ(KivRuns::Open({{INT_MAX - 1, 0, 0}, {INT_MAX, 0, 0}, {INT_MAX, 5, 5}}, side_by_side),
              KivRunSet({{INT_MAX, 0, 0}, {INT_MAX, 5, 5}}));
    EXPECT_EQ(KivRuns::Open({{INT_MIN, 0, 0}, {INT_MIN, 5, 5}, {INT_MIN + 1, 5, 5}}, side_by_side),
              KivRunSet({{INT_MIN, 0, 0}, {INT_MIN, 5, 5}}));
    EXPECT_EQ(KivRuns::Open({{0, INT_MAX - 1, INT_MAX}, {5, INT_MAX, INT_MAX}}, one_below_the_other),
              KivRunSet({{0, INT_MAX, INT_MAX}, {5, INT_MAX, INT_MAX}}));
    EXPECT_EQ(KivRuns::Open({{0, INT_MIN, INT_MIN + 1}, {5, INT_MIN, INT_MIN}}, one_below_the_other),
              KivRunSet({{0, INT_MIN, INT_MIN}, {5, INT_MIN, INT_MIN}}));
}

TEST(Morphology, ByHighRectanglesIsAsCheapAsByLowOnes)
{
    const KivRunSet pixel = KivRuns::Erode({{0, 0, 4}}, Element::Rectangle(1, 1));
    EXPECT_TRUE(KivRuns::Erode(pixel, Element::Rectangle(1, INT_MAX)).Empty());
    std::vector<::Run> column;
    for (int row = 0; row < 100000; ++row) {
        column.push_back({row, 3, 5});
    }
    EXPECT_EQ(KivRuns::Erode(KivRunSet(column), Element::Rectangle(3, 99999)),
              KivRunSet({{49999, 4, 4}, {50000, 4, 4}}));
    EXPECT_EQ(KivRuns::Dilate({{49999, 4, 4}, {50000, 4, 4}}, Element::Rectangle(3, 99999)), KivRunSet(column));
}

void expect_definitions(const KivRunSet& set, const KivRunSet& element)
{
    const brute::Pixels pixels = brute::pixels_of(set);
    const brute::Pixels places = brute::pixels_of(element);
    const brute::Pixels outer = brute::dilated(pixels, places);
    const brute::Pixels inner = brute::eroded(pixels, places);
    EXPECT_EQ(KivRuns::Dilate(set, element), brute::set_of(outer));
    EXPECT_EQ(KivRuns::Erode(set, element), brute::set_of(inner));
    EXPECT_EQ(KivRuns::Open(set, element), brute::set_of(brute::dilated(inner, places)));
    EXPECT_EQ(KivRuns::Close(set, element), brute::set_of(brute::eroded(outer, places)));
    brute::Pixels band;
    std::set_difference(outer.begin(), outer.end(), inner.begin(), inner.end(), std::inserter(band, band.end()));
    EXPECT_EQ(KivRuns::Gradient(set, element), brute::set_of(band));
}

TEST(Morphology, OfAllMasksOf3x3PixelsByAllElementsIn2x2IsAsDefined)
{
    for (unsigned bits = 0; bits < 512 && !testing::Test::HasFailure(); ++bits) {
        for (unsigned element = 1; element < 16; ++element) {
            SCOPED_TRACE("mask " + std::to_string(bits) + ", element " + std::to_string(element));
            expect_definitions(run_sets::set_of(run_sets::mask_of_bits(bits, 3, 3)),
                               run_sets::set_of(run_sets::mask_of_bits(element, 2, 2), -1, 0));
        }
    }
}

TEST(Morphology, OfRandomMasksByRandomElementsIsAsDefined)
{
    for (unsigned seed = 0; seed < 300 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto up_to = [&random](int most) { return std::uniform_int_distribution<int>(1, most)(random); };
        const KivRunSet set = run_sets::set_of(run_sets::random_mask(up_to(9), up_to(9), up_to(9), random), -4, -4);
        const KivRunSet element =
            run_sets::set_of(run_sets::random_mask(up_to(5), up_to(5), up_to(5), random), up_to(6) - 4, up_to(6) - 4);
        if (!element.Empty()) {
            expect_definitions(set, element);
        }
    }
}

TEST(Morphology, OfRandomMasksBySymmetricElementsIsOpenCvs)
{
    for (unsigned seed = 0; seed < 100 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto up_to = [&random](int most) { return std::uniform_int_distribution<int>(1, most)(random); };
        const cv::Mat mask = run_sets::random_mask(up_to(200), up_to(200), up_to(40), random);
        constexpr int margin = 12;
        cv::Mat framed;
        cv::copyMakeBorder(mask, framed, margin, margin, margin, margin, cv::BORDER_CONSTANT, cv::Scalar(0));
        const KivRunSet set = run_sets::set_of(mask);
        const int width = 2 * up_to(10) - 1;
        const int height = 2 * up_to(10) - 1;
        const auto expect_same = [&](const Element& element, const cv::Mat& kernel) {
            cv::Mat outer;
            cv::dilate(framed, outer, kernel);
            EXPECT_EQ(KivRuns::Dilate(set, element), run_sets::set_of(outer, -margin, -margin));
            cv::Mat inner;
            cv::erode(framed, inner, kernel);
            EXPECT_EQ(KivRuns::Erode(set, element), run_sets::set_of(inner, -margin, -margin));
        };
        expect_same(Element::Rectangle(width, height), cv::Mat::ones(height, width, CV_8UC1));
        expect_same(Element::Disk(width / 2), run_sets::mask_of(KivRuns::Dilate(dot, Element::Disk(width / 2)), width,
                                                                width, -(width / 2), -(width / 2)));
    }
}

TEST(Morphology, ErosionByEvenRectanglesHasOpenCvsAnchor)
{
    std::mt19937 random(3);
    const cv::Mat mask = run_sets::random_mask(60, 40, 15, random);
    cv::Mat inner;
    cv::erode(mask, inner, cv::Mat::ones(4, 6, CV_8UC1), cv::Point(-1, -1), 1, cv::BORDER_CONSTANT, cv::Scalar(0));
    EXPECT_EQ(KivRuns::Erode(run_sets::set_of(mask), Element::Rectangle(6, 4)), run_sets::set_of(inner));
}

TEST(Morphology, KeepsItsLaws)
{
    for (unsigned seed = 0; seed < 300 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto up_to = [&random](int most) { return std::uniform_int_distribution<int>(1, most)(random); };
        const auto any_set = [&](int side) {
            return run_sets::set_of(run_sets::random_mask(up_to(side), up_to(side), up_to(9), random),
                                    up_to(side) - side, up_to(side) - side);
        };
        const KivRunSet a = any_set(40);
        const KivRunSet c = any_set(40);
        KivRunSet b = any_set(7);
        b = b.Empty() ? dot : b;

        const KivRunSet outer = KivRuns::Dilate(a, b);
        const KivRunSet inner = KivRuns::Erode(a, b);
        const KivRunSet opened = KivRuns::Open(a, b);
        const KivRunSet closed = KivRuns::Close(a, b);
        for (const KivRunSet& other : {c, outer, outer | c, outer - c}) { // adjunction
            EXPECT_EQ(outer.IsSubsetOf(other), a.IsSubsetOf(KivRuns::Erode(other, b)));
        }
        const KivRunBox frame{-200, 200, -200, 200}; // duality, within a box that nothing reaches
        const KivRunBox within{-100, 100, -100, 100};
        EXPECT_EQ(KivRuns::Erode(a.Complement(frame), b) & KivRunSet::FromBox(within),
                  KivRuns::Dilate(a, turned(b)).Complement(within));
        EXPECT_TRUE(a.IsSubsetOf(KivRuns::Erode(outer, b)));
        EXPECT_TRUE(KivRuns::Dilate(inner, b).IsSubsetOf(a));
        EXPECT_EQ(outer, KivRuns::Dilate(b, a)); // dilation commutes
        EXPECT_TRUE(opened.IsSubsetOf(a));       // opening never adds
        EXPECT_TRUE(a.IsSubsetOf(closed));       // closing never removes
        EXPECT_EQ(KivRuns::Open(opened, b), opened);
        EXPECT_EQ(KivRuns::Close(closed, b), closed);
        EXPECT_EQ(KivRuns::Erode(opened, b), inner);
        EXPECT_EQ(KivRuns::Dilate(closed, b), outer);

        EXPECT_EQ(KivRuns::Dilate(moved(a, 3, -5), b), moved(outer, 3, -5)); // translation
        EXPECT_EQ(KivRuns::Erode(moved(a, 3, -5), b), moved(inner, 3, -5));
        EXPECT_EQ(KivRuns::Dilate(a, moved(b, 3, -5)), moved(outer, 3, -5));
        EXPECT_EQ(KivRuns::Erode(a, moved(b, 3, -5)), moved(inner, -3, 5));
        EXPECT_EQ(KivRuns::Open(a, moved(b, 3, -5)), opened);
        EXPECT_EQ(KivRuns::Close(a, moved(b, 3, -5)), closed);
    }
}

} // namespace
