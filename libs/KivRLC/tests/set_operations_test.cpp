// SPDX-License-Identifier: MIT
// Set operations and comparisons against bitmaps, by their laws, and where ints end.
#include "run_sets.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <vector>

namespace
{

using run_sets::mask_of;
using run_sets::mask_of_bits;
using run_sets::random_mask;
using run_sets::runs_of;
using run_sets::set_of;
using Runs = std::vector<Run>;

TEST(RunSetOperations, CombineOverlappingRuns)
{
    const KivRunSet a{{0, 0, 5}, {1, 0, 1}};
    const KivRunSet b{{0, 3, 8}, {2, 4, 4}};
    EXPECT_EQ(runs_of(a | b), (Runs{{0, 0, 8}, {1, 0, 1}, {2, 4, 4}}));
    EXPECT_EQ(runs_of(a & b), (Runs{{0, 3, 5}}));
    EXPECT_EQ(runs_of(a - b), (Runs{{0, 0, 2}, {1, 0, 1}}));
    EXPECT_EQ(runs_of(b - a), (Runs{{0, 6, 8}, {2, 4, 4}}));
    EXPECT_EQ(runs_of(a ^ b), (Runs{{0, 0, 2}, {0, 6, 8}, {1, 0, 1}, {2, 4, 4}}));
}

TEST(RunSetOperations, JoinRunsThatTouch)
{
    const KivRunSet a{{0, 0, 3}, {0, 8, 9}};
    const KivRunSet b{{0, 4, 7}};
    EXPECT_EQ(runs_of(a | b), (Runs{{0, 0, 9}}));
    EXPECT_EQ(runs_of(a ^ b), (Runs{{0, 0, 9}}));
    EXPECT_EQ((KivRunSet{{0, 0, 3}} ^ KivRunSet{{0, 4, 4}}), (KivRunSet{{0, 0, 4}}));
    EXPECT_EQ((KivRunSet{{0, 0, 3}} | KivRunSet{{0, 4, 4}}), (KivRunSet{{0, 0, 4}}));
    EXPECT_EQ((KivRunSet{{0, 0, 3}} | KivRunSet{{0, 5, 5}}), (KivRunSet{{0, 0, 3}, {0, 5, 5}}));
}

TEST(RunSetOperations, CutARunInTwo)
{
    EXPECT_EQ(runs_of(KivRunSet{{0, 0, 9}} - KivRunSet{{0, 4, 5}}), (Runs{{0, 0, 3}, {0, 6, 9}}));
    EXPECT_EQ(runs_of(KivRunSet{{0, 4, 5}} - KivRunSet{{0, 0, 9}}), Runs());
}

TEST(RunSetOperations, WorkWhereIntsEnd)
{
    const KivRunSet everything{{0, INT_MIN, INT_MAX}};
    const KivRunSet ends{{0, INT_MIN, INT_MIN}, {0, INT_MAX, INT_MAX}};
    const KivRunSet middle{{0, INT_MIN + 1, INT_MAX - 1}};
    const KivRunSet last{{0, INT_MAX, INT_MAX}};
    const KivRunSet first{{0, INT_MIN, INT_MIN}};
    EXPECT_EQ(everything - ends, middle);
    EXPECT_EQ(everything - middle, ends);
    EXPECT_EQ(everything ^ middle, ends);
    EXPECT_EQ(ends | middle, everything);
    EXPECT_EQ(ends ^ middle, everything);
    EXPECT_EQ(everything & ends, ends);
    EXPECT_EQ(everything - last, (KivRunSet{{0, INT_MIN, INT_MAX - 1}}));
    EXPECT_EQ(everything - first, (KivRunSet{{0, INT_MIN + 1, INT_MAX}}));
    EXPECT_EQ(first | last, ends);
    EXPECT_EQ(first & last, KivRunSet());
    EXPECT_EQ(first - last, first);
    EXPECT_EQ(last - first, last);
    EXPECT_EQ(everything ^ everything, KivRunSet());
    EXPECT_EQ(everything.IntersectionArea(ends), 2);
    EXPECT_EQ(everything.UnionArea(ends), std::int64_t{1} << 32);
    EXPECT_TRUE(everything.Contains(INT_MAX, 0));
    EXPECT_TRUE(everything.Contains(INT_MIN, 0));
}

// Rows of few runs that many others follow are combined in another way than the last ones are, with the same result.
TEST(RunSetOperations, DoNotDependOnWhatFollows)
{
    KivRunSet below;
    for (int row = 1; row <= 100; ++row) {
        below = below | KivRunSet{{row, 5, 5}};
    }
    const std::vector<KivRunSet> rows = {
        KivRunSet{{0, INT_MIN, INT_MAX}},
        KivRunSet{{0, INT_MIN, INT_MIN}, {0, INT_MAX, INT_MAX}},
        KivRunSet{{0, INT_MIN + 1, INT_MAX - 1}},
        KivRunSet{{0, INT_MAX - 2, INT_MAX}},
        KivRunSet{{0, INT_MIN, INT_MIN + 2}, {0, 4, 6}},
        KivRunSet{{0, INT_MIN + 3, 3}, {0, 7, 9}, {0, 11, INT_MAX}},
        KivRunSet{{0, 0, 0}, {0, 2, 2}, {0, 4, 4}, {0, 6, 6}, {0, 8, 8}, {0, 10, 10}},
    };
    for (const KivRunSet& a : rows) {
        for (const KivRunSet& b : rows) {
            ASSERT_EQ((a | below) | (b | below), (a | b) | below);
            ASSERT_EQ((a | below) & (b | below), (a & b) | below);
            ASSERT_EQ((a | below) - (b | below), a - b);
            ASSERT_EQ((a | below) ^ (b | below), a ^ b);
        }
    }
}

TEST(RunSetOperations, CombineDenseRowsAtEveryPlace)
{
    for (const int left : {INT_MIN, -70, -1, 0, 63, INT_MAX - 300}) {
        Runs even;
        Runs odd;
        for (int x = 0; x < 300; x += 2) {
            even.push_back({3, left + x, left + x});
            odd.push_back({3, left + x + 1, left + x + 1});
        }
        const KivRunSet a(even);
        const KivRunSet b(odd);
        ASSERT_EQ(runs_of(a | b), (Runs{{3, left, left + 299}}));
        ASSERT_EQ(runs_of(a ^ b), (Runs{{3, left, left + 299}}));
        ASSERT_EQ(runs_of(a & b), Runs());
        ASSERT_EQ(a - b, a);
        ASSERT_EQ(a & a, a);
        ASSERT_EQ(a ^ a, KivRunSet());
    }
}

TEST(RunSetOperations, CombineDenseRowsWithALongRun)
{
    for (const int end : {4200, 8191}) {
        Runs runs;
        for (int x = 0; x < 3890; x += 2) {
            runs.push_back({3, x, x});
        }
        runs.push_back({3, 3900, end});
        const KivRunSet a(runs);
        const KivRunSet b{{3, end, end}, {3, end + 4, end + 4}};
        EXPECT_EQ(runs_of(a & b), (Runs{{3, end, end}}));
        EXPECT_EQ(runs_of(b - a), (Runs{{3, end + 4, end + 4}}));
        runs.back().colEnd = end - 1;
        EXPECT_EQ(runs_of(a - b), runs);
        runs.push_back({3, end + 4, end + 4});
        EXPECT_EQ(runs_of(a ^ b), runs);
        runs[runs.size() - 2].colEnd = end;
        EXPECT_EQ(runs_of(a | b), runs);
    }
}

TEST(RunSetOperations, AssignToAnOperand)
{
    const KivRunSet a{{0, 0, 5}};
    const KivRunSet b{{0, 3, 8}};
    KivRunSet set = a;
    set |= b;
    EXPECT_EQ(set, a | b);
    set &= b;
    EXPECT_EQ(set, b);
    set -= a;
    EXPECT_EQ(set, (KivRunSet{{0, 6, 8}}));
    set ^= a;
    EXPECT_EQ(set, a | b);
    const KivRunSet& itself = set;
    set -= itself;
    EXPECT_TRUE(set.Empty());
}

/// Both sets, the masks that they were made from, and where pixel (0, 0) of these lies.
struct Pair {
    cv::Mat mask_a;
    cv::Mat mask_b;
    int left;
    int top;

    KivRunSet a() const { return set_of(mask_a, left, top); }
    KivRunSet b() const { return set_of(mask_b, left, top); }
    KivRunSet masked(const cv::Mat& mask) const { return set_of(mask, left, top); }
};

/// Every operation and comparison against OpenCV on the masks.
void expect_as_masks(const Pair& pair)
{
    const KivRunSet a = pair.a();
    const KivRunSet b = pair.b();
    const cv::Mat both = pair.mask_a & pair.mask_b;
    const cv::Mat any = pair.mask_a | pair.mask_b;
    const cv::Mat only_a = pair.mask_a & ~pair.mask_b;
    ASSERT_EQ(a | b, pair.masked(any));
    ASSERT_EQ(a & b, pair.masked(both));
    ASSERT_EQ(a - b, pair.masked(only_a));
    ASSERT_EQ(a ^ b, pair.masked(pair.mask_a ^ pair.mask_b));
    for (const KivRunSet& set : {a | b, a & b, a - b, a ^ b}) {
        ASSERT_EQ(KivRunSet::WhyNotCanonical(set.Runs()), "");
    }
    ASSERT_EQ(a.IntersectionArea(b), cv::countNonZero(both));
    ASSERT_EQ(a.UnionArea(b), cv::countNonZero(any));
    ASSERT_EQ(a.Intersects(b), cv::countNonZero(both) != 0);
    ASSERT_EQ(a.IsSubsetOf(b), cv::countNonZero(only_a) == 0);
}

TEST(RunSetOperations, AgreeWithMasksOnAllPairsOfThreeByThree)
{
    for (unsigned bits_a = 0; bits_a < 512; ++bits_a) {
        for (unsigned bits_b = 0; bits_b < 512; ++bits_b) {
            expect_as_masks({mask_of_bits(bits_a, 3, 3), mask_of_bits(bits_b, 3, 3), -1, -2});
            ASSERT_FALSE(testing::Test::HasFatalFailure()) << bits_a << ", " << bits_b;
        }
    }
}

TEST(RunSetOperations, AgreeWithMasksAtRandom)
{
    std::mt19937 random(1);
    for (int i = 0; i < 1500; ++i) {
        const int width = 1 + static_cast<int>(random() % 200);
        const int height = 1 + static_cast<int>(random() % (i % 10 == 0 ? 200 : 20));
        const int length_a = 1 + static_cast<int>(random() % 30);
        const int length_b = i % 2 == 0 ? length_a : 1 + static_cast<int>(random() % 30);
        expect_as_masks({random_mask(width, height, length_a, random), random_mask(width, height, length_b, random),
                         static_cast<int>(random() % 300) - 150, static_cast<int>(random() % 30) - 15});
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "pair " << i;
    }
}

TEST(RunSetOperations, AgreeWithMasksOnWideDenseRows)
{
    std::mt19937 random(2);
    for (int i = 0; i < 60; ++i) {
        const int width = 4000 + static_cast<int>(random() % 6000);
        const int length = 1 + i % 20;
        expect_as_masks({random_mask(width, 3, length, random), random_mask(width, 3, length, random), -i, 0});
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << "pair " << i;
    }
}

TEST(RunSetOperations, KeepTheLawsOfBooleanAlgebra)
{
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i) {
        const int length = 1 + i % 12;
        const auto any_set = [&] { return set_of(random_mask(90, 9, length, random), -40, -4); };
        const KivRunSet a = any_set();
        const KivRunSet b = any_set();
        const KivRunSet c = any_set();
        const KivRunBox box{-4, 4, -40, 49};
        const auto no = [&](const KivRunSet& set) { return set.Complement(box); };
        ASSERT_EQ(a | b, b | a);
        ASSERT_EQ(a & b, b & a);
        ASSERT_EQ((a | b) | c, a | (b | c));
        ASSERT_EQ((a & b) & c, a & (b & c));
        ASSERT_EQ((a ^ b) ^ c, a ^ (b ^ c));
        ASSERT_EQ(a & (b | c), (a & b) | (a & c));
        ASSERT_EQ(a | (b & c), (a | b) & (a | c));
        ASSERT_EQ(a | (a & b), a);
        ASSERT_EQ(a & (a | b), a);
        ASSERT_EQ(a ^ b, (a - b) | (b - a));
        ASSERT_EQ(a - b, a & no(b));
        ASSERT_EQ(no(a | b), no(a) & no(b));
        ASSERT_EQ(no(a & b), no(a) | no(b));
        ASSERT_EQ(no(no(a)), a);
        ASSERT_EQ(KivRunSet::Union({a, b, c}), a | b | c);
    }
}

TEST(RunSetOperations, FromBox)
{
    EXPECT_EQ(KivRunSet::FromBox({-1, 1, 3, 3}), (KivRunSet{{-1, 3, 3}, {0, 3, 3}, {1, 3, 3}}));
    EXPECT_TRUE(KivRunSet::FromBox({0, -1, 0, 5}).Empty());
    EXPECT_TRUE(KivRunSet::FromBox({0, 5, 0, -1}).Empty());
    EXPECT_EQ(KivRunSet::FromBox({INT_MAX, INT_MAX, INT_MIN, INT_MAX}), (KivRunSet{{INT_MAX, INT_MIN, INT_MAX}}));
}

TEST(RunSetOperations, ComplementWithinABox)
{
    const KivRunSet set{{0, 2, 3}, {0, 5, 9}, {1, -5, 20}, {3, 0, 0}};
    EXPECT_EQ(runs_of(set.Complement({-1, 2, 0, 7})), (Runs{{-1, 0, 7}, {0, 0, 1}, {0, 4, 4}, {2, 0, 7}}));
    EXPECT_EQ(runs_of(set.Complement({3, 3, 0, 7})), (Runs{{3, 1, 7}}));
    EXPECT_EQ(runs_of(set.Complement({0, 0, 6, 8})), Runs());
    EXPECT_EQ(runs_of(set.Complement({0, 0, 10, 11})), (Runs{{0, 10, 11}}));
    EXPECT_EQ(runs_of(set.Complement({0, 0, -9, 1})), (Runs{{0, -9, 1}}));
    EXPECT_TRUE(set.Complement({1, 0, 0, 7}).Empty());
    EXPECT_TRUE(set.Complement({0, 1, 7, 0}).Empty());
    EXPECT_TRUE(set.Complement({4, -1, 0, 7}).Empty()); // with runs in between
    EXPECT_EQ(runs_of(KivRunSet().Complement({4, 5, -1, 1})), (Runs{{4, -1, 1}, {5, -1, 1}}));
}

TEST(RunSetOperations, ComplementOfAsManyGapsAsThereCanBe)
{
    for (const int rows : {1, 24, 25, 26, 42, 43, 100}) {
        Runs runs;
        Runs gaps;
        for (int row = 0; row < rows; ++row) {
            runs.insert(runs.end(), {{row, 2, 2}, {row, 4, 4}});
            gaps.insert(gaps.end(), {{row, 0, 1}, {row, 3, 3}, {row, 5, 6}});
        }
        EXPECT_EQ(runs_of(KivRunSet(runs).Complement({0, rows - 1, 0, 6})), gaps) << rows;
    }
}

TEST(RunSetOperations, ComplementWhereIntsEnd)
{
    const KivRunSet ends{{INT_MAX, INT_MIN, INT_MIN}, {INT_MAX, INT_MAX, INT_MAX}};
    EXPECT_EQ(runs_of(ends.Complement({INT_MAX, INT_MAX, INT_MIN, INT_MAX})),
              (Runs{{INT_MAX, INT_MIN + 1, INT_MAX - 1}}));
    EXPECT_EQ(runs_of(ends.Complement({INT_MIN, INT_MIN, INT_MIN, INT_MAX})), (Runs{{INT_MIN, INT_MIN, INT_MAX}}));
    const KivRunSet row{{INT_MAX, INT_MIN, INT_MAX}};
    EXPECT_TRUE(row.Complement({INT_MAX, INT_MAX, INT_MIN, INT_MAX}).Empty());
}

TEST(RunSetOperations, ComplementAgreesWithMasks)
{
    std::mt19937 random(4);
    for (int i = 0; i < 500; ++i) {
        const cv::Mat mask = random_mask(60, 12, 1 + i % 20, random);
        const int x = static_cast<int>(random() % 40);
        const int y = static_cast<int>(random() % 8);
        const cv::Rect part(x, y, 1 + static_cast<int>(random() % 20), 1 + static_cast<int>(random() % 4));
        const KivRunSet complement =
            set_of(mask).Complement({part.y, part.y + part.height - 1, part.x, part.x + part.width - 1});
        ASSERT_EQ(KivRunSet::WhyNotCanonical(complement.Runs()), "");
        ASSERT_EQ(complement, set_of(mask(part) == 0, part.x, part.y));
    }
}

TEST(RunSetOperations, UniteMany)
{
    EXPECT_TRUE(KivRunSet::Union({}).Empty());
    EXPECT_EQ(KivRunSet::Union({{{0, 1, 2}}}), (KivRunSet{{0, 1, 2}}));
    std::mt19937 random(5);
    std::vector<KivRunSet> sets;
    KivRunSet one_by_one;
    for (int i = 0; i < 33; ++i) {
        sets.push_back(set_of(random_mask(50, 9, 25, random), i, i % 5));
        one_by_one |= sets.back();
        ASSERT_EQ(KivRunSet::Union(sets), one_by_one);
    }
}

TEST(RunSetComparisons, FindPixels)
{
    const cv::Mat mask = mask_of_bits(0b1010'0110'1111'0000, 4, 4);
    const KivRunSet set = set_of(mask, -1, 5);
    for (int y = -1; y < 5; ++y) {
        for (int x = -1; x < 5; ++x) {
            const bool inside = x >= 0 && x < 4 && y >= 0 && y < 4 && mask.at<uchar>(y, x) != 0;
            EXPECT_EQ(set.Contains(x - 1, y + 5), inside) << x << ", " << y;
        }
    }
    EXPECT_FALSE(KivRunSet().Contains(0, 0));
}

TEST(RunSetComparisons, MeasureWhatSetsShare)
{
    const KivRunSet a{{0, 0, 5}, {1, 0, 1}};
    const KivRunSet b{{0, 3, 8}, {2, 4, 4}};
    EXPECT_EQ(a.IntersectionArea(b), 3);
    EXPECT_EQ(a.UnionArea(b), 12);
    EXPECT_DOUBLE_EQ(a.IntersectionOverUnion(b), 0.25);
    EXPECT_EQ(a.IntersectionOverUnion(a), 1.0);
    EXPECT_EQ(a.IntersectionOverUnion({{7, 0, 0}}), 0.0);
    EXPECT_EQ(KivRunSet().IntersectionOverUnion(a), 0.0);
    EXPECT_EQ(KivRunSet().IntersectionOverUnion(KivRunSet()), 1.0);
}

TEST(RunSetComparisons, KnowSubsets)
{
    const KivRunSet set{{0, 0, 5}, {0, 8, 9}, {3, 1, 1}};
    EXPECT_TRUE((KivRunSet{{0, 1, 2}, {0, 4, 5}, {0, 8, 8}}.IsSubsetOf(set)));
    EXPECT_TRUE(KivRunSet().IsSubsetOf(set));
    EXPECT_TRUE(set.IsSubsetOf(set));
    EXPECT_FALSE(set.IsSubsetOf(KivRunSet()));
    EXPECT_FALSE((KivRunSet{{0, 5, 6}}.IsSubsetOf(set)));
    EXPECT_FALSE((KivRunSet{{0, 7, 8}}.IsSubsetOf(set)));
    EXPECT_FALSE((KivRunSet{{1, 1, 1}}.IsSubsetOf(set)));
    EXPECT_FALSE((KivRunSet{{3, 1, 1}, {4, 0, 0}}.IsSubsetOf(set)));
}

} // namespace
