// SPDX-License-Identifier: MIT
// What a run set is: made from runs, its one list, equality, rows, the check of lists.
#include "run_sets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <utility>
#include <vector>

namespace
{

using run_sets::runs_of;
using Runs = std::vector<Run>;

TEST(RunSet, IsEmptyByDefault)
{
    const KivRunSet set;
    EXPECT_TRUE(set.Empty());
    EXPECT_EQ(set.Runs().size(), 0U);
    EXPECT_TRUE(set.Runs().empty());
    EXPECT_EQ(set.Area(), 0);
    EXPECT_EQ(set, KivRunSet(Runs{}));
    EXPECT_TRUE(set.RunsOfRow(0).empty());
}

TEST(RunSet, JoinsRunsThatOverlapTouchOrRepeat)
{
    EXPECT_EQ(runs_of({{0, 0, 3}, {0, 2, 5}}), (Runs{{0, 0, 5}}));
    EXPECT_EQ(runs_of({{0, 0, 3}, {0, 4, 5}}), (Runs{{0, 0, 5}}));
    EXPECT_EQ(runs_of({{0, 0, 3}, {0, 5, 5}}), (Runs{{0, 0, 3}, {0, 5, 5}}));
    EXPECT_EQ(runs_of({{0, 0, 9}, {0, 2, 5}, {0, 10, 10}}), (Runs{{0, 0, 10}}));
    EXPECT_EQ(runs_of({{0, 1, 3}, {0, 1, 3}, {0, 1, 2}}), (Runs{{0, 1, 3}}));
    EXPECT_EQ(runs_of({{0, 0, 3}, {1, 4, 5}}), (Runs{{0, 0, 3}, {1, 4, 5}}));
}

TEST(RunSet, PutsRunsInOrder)
{
    EXPECT_EQ(runs_of({{2, 7, 8}, {-1, 4, 4}, {2, 0, 1}, {2, 3, 5}, {-1, -9, -8}}),
              (Runs{{-1, -9, -8}, {-1, 4, 4}, {2, 0, 1}, {2, 3, 5}, {2, 7, 8}}));
    EXPECT_EQ(runs_of({{0, 4, 5}, {0, 0, 3}}), (Runs{{0, 0, 5}}));
}

TEST(RunSet, TakesInvertedRunsForNothing)
{
    EXPECT_TRUE(KivRunSet({{0, 1, 0}, {3, INT_MAX, INT_MIN}}).Empty());
    EXPECT_EQ(runs_of({{0, 0, 1}, {0, 5, 2}, {0, 6, 6}}), (Runs{{0, 0, 1}, {0, 6, 6}}));
}

TEST(RunSet, HoldsAnyInts)
{
    const Runs all{{INT_MIN, INT_MIN, INT_MAX}, {INT_MAX, INT_MIN, INT_MIN}, {INT_MAX, INT_MAX, INT_MAX}};
    EXPECT_EQ(runs_of(KivRunSet(all)), all);
    EXPECT_EQ(KivRunSet(all).Area(), (std::int64_t{1} << 32) + 2);
    EXPECT_EQ(runs_of({{0, INT_MIN, -1}, {0, 0, INT_MAX}}), (Runs{{0, INT_MIN, INT_MAX}}));
    EXPECT_EQ(runs_of({{0, INT_MIN, INT_MAX}, {0, INT_MAX, INT_MAX}}), (Runs{{0, INT_MIN, INT_MAX}}));
    EXPECT_EQ(runs_of({{0, INT_MIN, INT_MIN}, {0, INT_MIN, INT_MIN}}), (Runs{{0, INT_MIN, INT_MIN}}));
}

TEST(RunSet, IsEqualToASetOfTheSamePixelsOnly)
{
    const KivRunSet set{{0, 0, 3}, {1, 2, 2}};
    EXPECT_EQ(set, (KivRunSet{{1, 2, 2}, {0, 0, 1}, {0, 2, 3}}));
    EXPECT_NE(set, (KivRunSet{{0, 0, 3}}));
    EXPECT_NE(set, (KivRunSet{{0, 0, 3}, {1, 2, 3}}));
    EXPECT_NE(set, KivRunSet());
}

TEST(RunSet, IsCopiedMovedAndSwapped)
{
    const KivRunSet set{{0, 0, 3}};
    KivRunSet copy = set;
    EXPECT_EQ(copy, set);
    EXPECT_NE(copy.Runs().data(), set.Runs().data());
    const auto* const runs = copy.Runs().data();
    KivRunSet moved = std::move(copy);
    EXPECT_EQ(moved, set);
    EXPECT_EQ(moved.Runs().data(), runs);
    EXPECT_TRUE(copy.Empty()); // NOLINT(bugprone-use-after-move): a moved-from set is empty
    swap(copy, moved);
    EXPECT_EQ(copy, set);
    EXPECT_TRUE(moved.Empty());
}

TEST(RunSet, ShowsTheRunsOfOneRow)
{
    const KivRunSet set{{-5, 0, 0}, {2, 0, 1}, {2, 3, 4}, {2, 6, 6}, {9, 1, 1}};
    const auto of_row = [&](int row) { return Runs(set.RunsOfRow(row).begin(), set.RunsOfRow(row).end()); };
    EXPECT_EQ(of_row(-5), (Runs{{-5, 0, 0}}));
    EXPECT_EQ(of_row(2), (Runs{{2, 0, 1}, {2, 3, 4}, {2, 6, 6}}));
    EXPECT_EQ(of_row(9), (Runs{{9, 1, 1}}));
    for (const int row : {INT_MIN, -6, -4, 1, 3, 10, INT_MAX}) {
        EXPECT_TRUE(of_row(row).empty()) << "row " << row;
    }
}

TEST(RunSet, GivesAViewOfItsRuns)
{
    const KivRunSet set{{0, 0, 1}, {4, 2, 3}};
    const KivRunView view = set.Runs();
    EXPECT_EQ(view.size(), 2U);
    EXPECT_FALSE(view.empty());
    EXPECT_EQ(view.front(), (::Run{0, 0, 1}));
    EXPECT_EQ(view.back(), (::Run{4, 2, 3}));
    EXPECT_EQ(view[1], (::Run{4, 2, 3}));
    EXPECT_EQ(view.data(), view.begin());
    EXPECT_EQ(view.end() - view.begin(), 2);
    EXPECT_TRUE(KivRunView().empty());
    EXPECT_EQ(KivRunSet(view), set);
}

TEST(RunSet, SaysWhyAListIsNotThatOfASet)
{
    EXPECT_EQ(KivRunSet::WhyNotCanonical({}), "");
    EXPECT_EQ(KivRunSet::WhyNotCanonical(Runs{{0, 0, 1}, {0, 3, 3}, {1, 0, 0}}), "");
    EXPECT_EQ(KivRunSet::WhyNotCanonical(Runs{{0, 1, 0}}), "run 0: its begin lies past its end");
    EXPECT_EQ(KivRunSet::WhyNotCanonical(Runs{{0, 0, 1}, {-1, 3, 3}}),
              "run 1: its row lies above that of the run before it");
    EXPECT_EQ(KivRunSet::WhyNotCanonical(Runs{{0, 4, 5}, {0, 0, 1}}), "run 1: it begins left of the run before it");
    EXPECT_EQ(KivRunSet::WhyNotCanonical(Runs{{0, 0, 5}, {0, 5, 6}}), "run 1: it overlaps the run before it");
    EXPECT_EQ(KivRunSet::WhyNotCanonical(Runs{{0, 0, 5}, {0, 0, 6}}), "run 1: it overlaps the run before it");
    EXPECT_EQ(KivRunSet::WhyNotCanonical(Runs{{0, 0, 5}, {0, 6, 6}}), "run 1: it touches the run before it");
    EXPECT_EQ(KivRunSet::WhyNotCanonical(Runs{{0, INT_MIN, INT_MAX}, {1, INT_MIN, INT_MAX}}), "");
}

/// A row of cells, each of which is set if any of the runs covers it.
std::vector<char> cells(const Runs& runs, int columns)
{
    std::vector<char> set(static_cast<std::size_t>(columns));
    for (const Run& run : runs) {
        for (int x = run.colBegin; x <= run.colEnd; ++x) {
            set[static_cast<std::size_t>(x)] = 1;
        }
    }
    return set;
}

TEST(RunSet, CoversWhatAnyOfItsRunsCovers)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> column(0, 19);
    for (int i = 0; i < 20000; ++i) {
        Runs runs;
        for (int count = i % 7; count > 0; --count) {
            runs.push_back({0, column(random), column(random)});
        }
        const KivRunSet set(runs);
        ASSERT_EQ(KivRunSet::WhyNotCanonical(set.Runs()), "");
        ASSERT_EQ(cells(runs_of(set), 20), cells(runs, 20));
        const std::vector<char> covered = cells(runs, 20);
        ASSERT_EQ(set.Area(), std::count(covered.begin(), covered.end(), 1));
        std::shuffle(runs.begin(), runs.end(), random);
        ASSERT_EQ(KivRunSet(runs), set);
    }
}

} // namespace
