// SPDX-License-Identifier: MIT
// Operations on lists against those on sets, and how lists grow.
#include "run_sets.h"

#include <KivRLC/KivRunLists.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <utility>
#include <vector>

namespace
{

using run_sets::random_mask;
using run_sets::runs_of;
using run_sets::set_of;
using Runs = std::vector<Run>;

Runs random_list(std::mt19937& random)
{
    std::uniform_int_distribution<int> length(0, 5);
    std::uniform_int_distribution<int> row(-1, 1);
    std::uniform_int_distribution<int> column(0, 6);
    Runs runs(static_cast<std::size_t>(length(random)));
    for (Run& run : runs) {
        run = {row(random), column(random), column(random)};
    }
    return runs;
}

TEST(RunLists, AreCanonicalIfASetHasThem)
{
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        const Runs runs = random_list(random);
        EXPECT_EQ(KivRuns::IsCanonical(runs), KivRunSet::WhyNotCanonical(runs).empty());
    }
}

TEST(RunLists, AreCanonicalWhereIntsEnd)
{
    EXPECT_TRUE(KivRuns::IsCanonical(Runs{{INT_MIN, INT_MIN, INT_MAX}, {INT_MAX, INT_MIN, INT_MAX}}));
    EXPECT_TRUE(KivRuns::IsCanonical(Runs{{0, INT_MIN, INT_MIN}, {0, INT_MAX, INT_MAX}}));
    EXPECT_FALSE(KivRuns::IsCanonical(Runs{{INT_MAX, 0, 0}, {INT_MIN, 0, 0}}));
    EXPECT_FALSE(KivRuns::IsCanonical(Runs{{0, INT_MAX, INT_MAX}, {0, INT_MIN, INT_MIN}}));
    EXPECT_FALSE(KivRuns::IsCanonical(Runs{{0, INT_MIN, INT_MAX}, {0, INT_MIN, INT_MAX}}));
    EXPECT_FALSE(KivRuns::IsCanonical(Runs{{0, INT_MAX, INT_MIN}}));
}

TEST(RunLists, AreNotCanonicalWithASingleFaultAnywhere)
{
    Runs runs;
    for (int i = 0; i < 200; ++i) {
        runs.push_back({i / 3, 10 * (i % 3), 10 * (i % 3) + 5});
    }
    EXPECT_TRUE(KivRuns::IsCanonical(runs));
    for (::Run& run : runs) {
        const ::Run right = run;
        for (const ::Run& wrong :
             {::Run{right.row - 1, right.colBegin, right.colEnd}, ::Run{right.row, right.colBegin, right.colBegin - 1},
              ::Run{right.row, right.colBegin - 4, right.colEnd}}) {
            run = wrong;
            EXPECT_EQ(KivRuns::IsCanonical(runs), KivRunSet::WhyNotCanonical(runs).empty());
        }
        run = right;
    }
}

TEST(RunLists, AreCombinedBehindWhatIsThere)
{
    const Runs a = {{0, 0, 5}, {1, 0, 1}};
    const Runs b = {{0, 3, 8}, {2, 4, 4}};
    Runs out = {{9, 9, 9}};
    EXPECT_TRUE(KivRuns::AppendIntersection(a, b, out));
    EXPECT_EQ(out, (Runs{{9, 9, 9}, {0, 3, 5}}));
    EXPECT_TRUE(KivRuns::AppendDifference(a, b, out));
    EXPECT_EQ(out, (Runs{{9, 9, 9}, {0, 3, 5}, {0, 0, 2}, {1, 0, 1}}));
}

TEST(RunLists, AreNotCombinedUnlessBothAreCanonical)
{
    const Runs touching = {{0, 0, 5}, {0, 6, 8}};
    const Runs b = {{0, 3, 8}, {2, 4, 4}};
    Runs out = {{9, 9, 9}};
    EXPECT_FALSE(KivRuns::AppendIntersection(touching, b, out));
    EXPECT_FALSE(KivRuns::AppendIntersection(b, touching, out));
    EXPECT_FALSE(KivRuns::AppendDifference(touching, b, out));
    EXPECT_FALSE(KivRuns::AppendDifference(b, touching, out));
    const Runs inverted = {{0, 5, 4}};
    EXPECT_FALSE(KivRuns::AppendIntersection(inverted, b, out));
    EXPECT_FALSE(KivRuns::AppendIntersection(b, inverted, out));
    EXPECT_EQ(out, (Runs{{9, 9, 9}}));
}

/// A canonical list with some of its runs changed at random, or not.
Runs nearly_canonical_list(int rows, std::mt19937& random)
{
    Runs runs = runs_of(set_of(random_mask(40, rows, 1 + static_cast<int>(random() % 8), random)));
    const auto shift = [&random](int& place) { place += static_cast<int>(random() % 5) - 2; };
    for (auto changes = random() % 3; changes > 0 && !runs.empty(); --changes) {
        Run& run = runs[random() % runs.size()];
        shift(random() % 3 == 0 ? run.row : random() % 2 == 0 ? run.colBegin : run.colEnd);
    }
    return runs;
}

TEST(RunLists, AreCheckedWhileTheyAreCombined)
{
    std::mt19937 random(3);
    int combined = 0;
    for (int i = 0; i < 20000; ++i) {
        const Runs a = nearly_canonical_list(1 + i % 7, random);
        const Runs b = nearly_canonical_list(1 + i % 5, random);
        const bool canonical = KivRuns::IsCanonical(a) && KivRuns::IsCanonical(b);
        Runs intersection = {{9, 9, 9}};
        Runs difference = {{9, 9, 9}};
        ASSERT_EQ(KivRuns::AppendIntersection(a, b, intersection), canonical);
        ASSERT_EQ(KivRuns::AppendDifference(a, b, difference), canonical);
        if (canonical) {
            ASSERT_EQ(Runs(intersection.begin() + 1, intersection.end()), runs_of(KivRunSet(a) & KivRunSet(b)));
            ++combined;
        } else {
            ASSERT_EQ(intersection, (Runs{{9, 9, 9}}));
            ASSERT_EQ(difference, (Runs{{9, 9, 9}}));
        }
    }
    EXPECT_GT(combined, 4000);
    EXPECT_LT(combined, 16000);
}

TEST(RunLists, AreCombinedAsSetsAre)
{
    std::mt19937 random(2);
    for (int i = 0; i < 300; ++i) {
        const KivRunSet a = set_of(random_mask(200, 20, 1 + i % 20, random));
        const KivRunSet b = set_of(random_mask(200, 20, 1 + i % 20, random));
        Runs intersection;
        Runs difference;
        EXPECT_TRUE(KivRuns::AppendIntersection(a.Runs(), b.Runs(), intersection));
        EXPECT_TRUE(KivRuns::AppendDifference(a.Runs(), b.Runs(), difference));
        EXPECT_EQ(intersection, runs_of(a & b));
        EXPECT_EQ(difference, runs_of(a - b));
    }
}

/// Rows of `few` runs, and as many rows of `many`.
KivRunSet uneven(int rows, int few, int many)
{
    Runs runs;
    for (int row = 0; row < 2 * rows; ++row) {
        for (int i = 0; i < (row < rows ? few : many); ++i) {
            runs.push_back({row, 10 * i, 10 * i + 4});
        }
    }
    return KivRunSet(runs);
}

TEST(RunLists, AreSortedByRowAndElseAsTheyWere)
{
    Runs runs = {{5, 9, 8},  {-1, 7, 7},      {5, 1, 2},   {INT_MIN, 3, 3},
                 {-1, 0, 0}, {INT_MAX, 4, 4}, {256, 5, 5}, {5, 9, 8}};
    KivRuns::SortByRow(runs);
    EXPECT_EQ(
        runs,
        (Runs{{INT_MIN, 3, 3}, {-1, 7, 7}, {-1, 0, 0}, {5, 9, 8}, {5, 1, 2}, {5, 9, 8}, {256, 5, 5}, {INT_MAX, 4, 4}}));
    std::mt19937 random(5);
    for (const int most : {0, 3, 300, 70000, 1 << 24, INT_MAX}) {
        std::uniform_int_distribution<int> row(-most, most);
        runs.clear();
        for (int i = 0; i < 1000; ++i) {
            runs.push_back({row(random), i % 10, -i});
        }
        Runs sorted = runs;
        std::stable_sort(sorted.begin(), sorted.end(), [](const ::Run& a, const ::Run& b) { return a.row < b.row; });
        KivRuns::SortByRow(runs);
        EXPECT_EQ(runs, sorted);
        std::stable_sort(sorted.begin(), sorted.end(), [](const ::Run& a, const ::Run& b) {
            return std::pair(a.row, a.colBegin) < std::pair(b.row, b.colBegin);
        });
        KivRuns::SortByRowAndColumn(runs);
        EXPECT_EQ(runs, sorted);
    }
    Runs none;
    KivRuns::SortByRow(none);
    KivRuns::SortByRowAndColumn(none);
    EXPECT_TRUE(none.empty());
}

TEST(RunLists, OfEveryLengthAreSorted)
{
    for (int length = 0; length < 200; ++length) {
        Runs runs;
        for (int i = 0; i < length; ++i) {
            runs.push_back({i * 7919 % 13, i * 104729 % 7, i});
        }
        Runs sorted = runs;
        std::stable_sort(sorted.begin(), sorted.end(), [](const ::Run& a, const ::Run& b) {
            return std::pair(a.row, a.colBegin) < std::pair(b.row, b.colBegin);
        });
        KivRuns::SortByRowAndColumn(runs);
        EXPECT_EQ(runs, sorted);
    }
}

TEST(RunLists, MoveSeldomWhenALittleIsAppendedOften)
{
    const Runs one = {{0, 0, 5}};
    Runs runs;
    int moves = 0;
    for (int i = 0; i < 10000; ++i) {
        const auto* const before = runs.data();
        EXPECT_TRUE(KivRuns::AppendIntersection(one, one, runs));
        moves += runs.data() != before ? 1 : 0;
    }
    EXPECT_EQ(runs.size(), 10000U);
    EXPECT_LT(moves, 20);
}

TEST(RunLists, GiveTheirPixelsInOrder)
{
    std::vector<int> columns = {7};
    std::vector<int> rows = {8, 9};
    KivRuns::AppendPixels(Runs{{2, 4, 5}, {-1, 0, 0}, {2, 4, 4}, {3, 5, 4}, {3, 9, 2}, {INT_MIN, INT_MAX - 5, INT_MAX}},
                          columns, rows);
    EXPECT_EQ(columns, (std::vector<int>{7, 4, 5, 0, 4, INT_MAX - 5, INT_MAX - 4, INT_MAX - 3, INT_MAX - 2, INT_MAX - 1,
                                         INT_MAX}));
    EXPECT_EQ(rows, (std::vector<int>{8, 9, 2, 2, -1, 2, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN}));
}

TEST(RunLists, GiveThePixelsOfRunsOfEveryLength)
{
    Runs runs;
    std::vector<int> columns;
    std::vector<int> rows;
    for (int length = 0; length < 2500; length += 1 + length / 40) {
        runs.push_back({length, -9, length - 10});
        for (int i = 0; i < length; ++i) {
            columns.push_back(i - 9);
            rows.push_back(length);
        }
    }
    std::vector<int> found_columns;
    std::vector<int> found_rows;
    KivRuns::AppendPixels(runs, found_columns, found_rows);
    EXPECT_EQ(found_columns, columns);
    EXPECT_EQ(found_rows, rows);
    EXPECT_LE(found_columns.capacity(), columns.size() + 4);
}

TEST(RunLists, GrowAsResultsDo)
{
    for (const auto& [few, many] : {std::pair{0, 50}, {1, 200}, {200, 1}, {50, 0}}) {
        const KivRunSet set = uneven(300, few, many);
        const KivRunSet lower = uneven(300, many, few);
        const KivRunSet apart(Runs{{INT_MAX, 0, 0}});
        EXPECT_EQ(set & set, set);
        EXPECT_EQ(set | set, set);
        EXPECT_EQ((set | apart) - apart, set);
        EXPECT_EQ((set ^ lower) ^ lower, set);
        EXPECT_EQ((set - lower) | (set & lower), set);
    }
}

TEST(RunLists, GiveBackWhatTheyDoNotNeed)
{
    Runs runs = {{0, 1, 2}, {3, 4, 5}};
    runs.reserve(1000);
    KivRuns::GiveBackSpareRoom(runs);
    EXPECT_EQ(runs, (Runs{{0, 1, 2}, {3, 4, 5}}));
    EXPECT_LT(runs.capacity(), 100U);
    runs.assign(1000, {1, 2, 3});
    runs.reserve(1200);
    const auto* const before = runs.data();
    KivRuns::GiveBackSpareRoom(runs);
    EXPECT_EQ(runs.data(), before);
    runs.reserve(2000);
    KivRuns::GiveBackSpareRoom(runs);
    EXPECT_EQ(runs, Runs(1000, {1, 2, 3}));
    EXPECT_LT(runs.capacity(), 1250U);
}

} // namespace
