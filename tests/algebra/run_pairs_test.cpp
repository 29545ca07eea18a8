// SPDX-License-Identifier: MIT
// What two runs of one row give, against the plain decision tables: each test of a table is written out in its place,
// whether or not a pair of runs can come to it. Runs that begin past their end are runs like any other here.
#include "algebra/row_join.h"
#include "algebra/run_pairs.h"

#include "algebra/column_order.h"

#include "support/set_algebra.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <iostream>
#include <iterator>
#include <tuple>
#include <utility>
#include <vector>

namespace
{

using support::described;
using support::Runs;
using support::same;

constexpr int lowest = INT_MIN;
constexpr int highest = INT_MAX;

using kiv::RowFunction;

Runs applied(RowFunction combine_row, const Runs& a, const Runs& b)
{
    kiv::RunWriter out(0);
    combine_row(a, b, out);
    return out.written();
}

// ---------------------------------------------------------------------------------------------------------------
// The tables

void unite(const Run& a, const Run& b, Runs& out)
{
    const int r = a.row;
    const int a_begin = a.colBegin;
    const int a_end = a.colEnd;
    const int b_begin = b.colBegin;
    const int b_end = b.colEnd;
    if (b_begin <= a_begin && a_end <= b_end) {
        out.push_back({r, b_begin, b_end});
    } else if (b_begin <= a_begin && a_begin <= b_end && a_end > b_end) {
        out.push_back({r, b_begin, a_end});
    } else if (a_begin < b_begin && b_begin <= a_end && a_end <= b_end) {
        out.push_back({r, a_begin, b_end});
    } else if (a_begin < b_begin && a_end > b_end) {
        out.push_back({r, a_begin, a_end});
    } else if (a_begin > b_end) {
        out.push_back({r, b_begin, b_end});
        out.push_back({r, a_begin, a_end});
    } else if (a_begin == b_end) { // left for runs of B that begin past their end
        out.push_back({r, b_begin, a_end});
    } else if (a_end >= b_begin) { // left for no pair
        if (a_end == b_begin) {
            out.push_back({r, a_begin, b_end});
        }
    } else {
        out.push_back({r, a_begin, a_end});
        out.push_back({r, b_begin, b_end});
    }
}

void intersect(const Run& a, const Run& b, Runs& out)
{
    const int r = a.row;
    const int a_begin = a.colBegin;
    const int a_end = a.colEnd;
    const int b_begin = b.colBegin;
    const int b_end = b.colEnd;
    if (b_begin <= a_begin && a_end <= b_end) {
        out.push_back({r, a_begin, a_end});
    } else if (b_begin <= a_begin && a_begin <= b_end && a_end > b_end) {
        out.push_back({r, a_begin, b_end});
    } else if (a_begin < b_begin && b_begin <= a_end && a_end <= b_end) {
        out.push_back({r, b_begin, a_end});
    } else if (a_begin < b_begin && a_end > b_end) {
        out.push_back({r, b_begin, b_end});
    }
}

// The first cut fills the list of pieces, each further one changes its last piece.
void cut(const Run& run, Runs cuts, Runs& out)
{
    std::stable_sort(cuts.begin(), cuts.end(), [](const Run& x, const Run& y) { return x.colBegin < y.colBegin; });
    const int c0 = run.colBegin;
    const int c1 = run.colEnd;
    const int bb0 = cuts.at(0).colBegin;
    const int be0 = cuts.at(0).colEnd;
    Runs pieces;
    if (c0 >= bb0 && c1 <= be0) {
        // covered
    } else if (c0 >= bb0 && c0 <= be0 && c1 > be0) {
        pieces.push_back({run.row, be0 + 1, c1});
    } else if (c0 < bb0 && c1 >= bb0 && c1 <= be0) {
        pieces.push_back({run.row, c0, bb0 - 1});
    } else if (c0 < bb0 && c1 > be0) {
        pieces.push_back({run.row, c0, bb0 - 1});
        pieces.push_back({run.row, be0 + 1, c1});
    } else {
        pieces.push_back(run);
    }
    for (std::size_t j = 1; j < cuts.size() && !pieces.empty(); ++j) {
        const int bbj = cuts[j].colBegin;
        const int bej = cuts[j].colEnd;
        const Run last = pieces.back();
        const int p0 = last.colBegin;
        const int p1 = last.colEnd;
        if (p0 >= bbj && p1 <= bej) {
            pieces.pop_back();
        } else if (p0 >= bbj && p0 <= bej && p1 > bej) {
            pieces.back() = {last.row, bej + 1, p1};
        } else if (p0 < bbj && p1 >= bbj && p1 <= bej) {
            pieces.back() = {last.row, p0, bbj - 1};
        } else if (p0 < bbj && p1 > bej) {
            pieces.back() = {last.row, p0, bbj - 1};
            pieces.push_back({last.row, bej + 1, p1});
        }
    }
    out.insert(out.end(), pieces.begin(), pieces.end());
}

void unite_all(const Runs& a, const Runs& b, Runs& out)
{
    for (const auto& of_a : a) {
        for (const Run& of_b : b) {
            unite(of_a, of_b, out);
        }
    }
}

void intersect_all(const Runs& a, const Runs& b, Runs& out)
{
    for (const auto& of_a : a) {
        for (const Run& of_b : b) {
            intersect(of_a, of_b, out);
        }
    }
}

void cut_all(const Runs& a, const Runs& b, Runs& out)
{
    for (const auto& of_a : a) {
        cut(of_a, b, out);
    }
}

// ---------------------------------------------------------------------------------------------------------------
// Enumerations

enum class Inverted { no, yes };

// All runs with columns from `first` to `last`; also those that begin past their end, or not.
Runs all_runs(int first, int last, Inverted inverted)
{
    Runs runs;
    for (int begin = first; begin <= last; ++begin) {
        for (int end = inverted == Inverted::yes ? first : begin; end <= last; ++end) {
            runs.push_back({5, begin, end});
        }
    }
    return runs;
}

// All rows, also the one without runs, whose runs lie apart or touch and come from left to right.
std::vector<Runs> all_plain_rows(int first, int last)
{
    std::vector<Runs> rows = {{}};
    for (int begin = first; begin <= last; ++begin) {
        for (int end = begin; end <= last; ++end) {
            for (Runs rest : all_plain_rows(end + 1, last)) {
                rest.insert(rest.begin(), {5, begin, end});
                rows.push_back(rest);
            }
        }
    }
    return rows;
}

// All lists of `count` runs, in every order and with repeats.
std::vector<Runs> all_lists(std::size_t count, const Runs& runs)
{
    std::vector<Runs> lists = {{}};
    for (std::size_t i = 0; i < count; ++i) {
        std::vector<Runs> longer;
        for (const Runs& list : lists) {
            for (const Run& run : runs) {
                longer.push_back(list);
                longer.back().push_back(run);
            }
        }
        lists.swap(longer);
    }
    return lists;
}

using Table = void (*)(const Runs& a, const Runs& b, Runs& out);

// Compares a function with its table for each of `as` with each of `bs`. Stops at the first difference.
testing::AssertionResult agree(RowFunction combine_row, Table table, const std::vector<Runs>& as,
                               const std::vector<Runs>& bs)
{
    std::size_t compared = 0;
    Runs expected;
    for (const Runs& a : as) {
        for (const Runs& b : bs) {
            expected.clear();
            const Runs actual = applied(combine_row, a, b);
            table(a, b, expected);
            if (actual != expected) {
                return testing::AssertionFailure() << "A " << described(a) << ", B " << described(b) << "\nexpected "
                                                   << described(expected) << "\n     got " << described(actual);
            }
            ++compared;
        }
    }
    std::cout << "compared " << compared << " pairs of rows\n";
    return compared > 0 ? testing::AssertionSuccess() : testing::AssertionFailure() << "nothing compared";
}

std::vector<Runs> without_the_bare_one(std::vector<Runs> rows)
{
    rows.erase(std::remove(rows.begin(), rows.end(), Runs{}), rows.end());
    return rows;
}

// ---------------------------------------------------------------------------------------------------------------
// Against the tables

TEST(RunPairs, UnionOfEveryTwoRuns)
{
    const std::vector<Runs> runs = all_lists(1, all_runs(-1, 6, Inverted::yes));
    ASSERT_EQ(runs.size(), 64U);
    EXPECT_TRUE(agree(kiv::unite_row, unite_all, runs, runs));
}

TEST(RunPairs, IntersectionOfEveryTwoRuns)
{
    const std::vector<Runs> runs = all_lists(1, all_runs(-1, 6, Inverted::yes));
    EXPECT_TRUE(agree(kiv::intersect_row, intersect_all, runs, runs));
}

TEST(RunPairs, CutOfEveryRunByEveryRun)
{
    const std::vector<Runs> runs = all_lists(1, all_runs(-1, 6, Inverted::yes));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, runs, runs));
}

TEST(RunPairs, MeetWhereTheyHaveAnIntersection)
{
    const Runs runs = all_runs(-1, 6, Inverted::yes);
    for (const auto& a : runs) {
        for (const auto& b : runs) {
            Runs expected;
            intersect(a, b, expected);
            EXPECT_EQ(kiv::runs_meet(a, b), !expected.empty()) << described({a, b});
        }
    }
    EXPECT_TRUE(kiv::runs_meet({1, 0, 3}, {2, 3, 4})); // whatever the rows
}

TEST(RunPairs, CutsByEveryTwoRuns)
{
    const std::vector<Runs> runs = all_lists(1, all_runs(-1, 4, Inverted::yes));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, runs, all_lists(2, all_runs(-1, 4, Inverted::yes))));
}

TEST(RunPairs, CutsByEveryThreeRuns)
{
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, all_lists(1, all_runs(0, 3, Inverted::yes)),
                      all_lists(3, all_runs(0, 3, Inverted::yes))));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, all_lists(1, all_runs(0, 5, Inverted::no)),
                      all_lists(3, all_runs(0, 5, Inverted::no))));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows of several runs

TEST(RunPairs, RowsOfAnyTwoRuns)
{
    const std::vector<Runs> pairs = all_lists(2, all_runs(0, 3, Inverted::yes));
    EXPECT_TRUE(agree(kiv::unite_row, unite_all, pairs, pairs));
    EXPECT_TRUE(agree(kiv::intersect_row, intersect_all, pairs, pairs));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, pairs, pairs));
}

TEST(RunPairs, AnyRunsOfAWithARowOfBFromLeftToRight)
{
    const std::vector<Runs> rows = all_plain_rows(0, 5);
    ASSERT_EQ(rows.size(), 233U);
    const std::vector<Runs> pairs = all_lists(2, all_runs(-1, 6, Inverted::no));
    EXPECT_TRUE(agree(kiv::intersect_row, intersect_all, pairs, rows));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, pairs, without_the_bare_one(rows)));

    const std::vector<Runs> short_rows = all_plain_rows(0, 3);
    ASSERT_EQ(short_rows.size(), 34U);
    const std::vector<Runs> triples = all_lists(3, all_runs(0, 3, Inverted::yes));
    EXPECT_TRUE(agree(kiv::unite_row, unite_all, triples, short_rows));
    EXPECT_TRUE(agree(kiv::intersect_row, intersect_all, triples, short_rows));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, triples, without_the_bare_one(short_rows)));
}

TEST(RunPairs, TwoRowsFromLeftToRight)
{
    const std::vector<Runs> rows = all_plain_rows(0, 5);
    EXPECT_TRUE(agree(kiv::unite_row, unite_all, rows, rows));
    EXPECT_TRUE(agree(kiv::intersect_row, intersect_all, rows, rows));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, rows, without_the_bare_one(rows)));
}

TEST(RunPairs, TheRowIsThatOfTheRunOfA)
{
    const Runs a = {{1, 0, 9}, {2, 20, 29}};
    const Runs b = {{7, 3, 4}, {7, 12, 13}, {7, 27, 40}};
    EXPECT_TRUE(same(applied(kiv::unite_row, a, b), {{1, 0, 9},
                                                     {1, 0, 9},
                                                     {1, 12, 13},
                                                     {1, 0, 9},
                                                     {1, 27, 40},
                                                     {2, 3, 4},
                                                     {2, 20, 29},
                                                     {2, 12, 13},
                                                     {2, 20, 29},
                                                     {2, 20, 40}}));
    EXPECT_TRUE(same(applied(kiv::intersect_row, a, b), {{1, 3, 4}, {2, 27, 29}}));
    EXPECT_TRUE(same(applied(kiv::cut_row, a, b), {{1, 0, 2}, {1, 5, 9}, {2, 20, 26}}));
    EXPECT_TRUE(same(applied(kiv::unite_row, {{1, 3, 3}}, {{7, 9, 3}}), {{1, 9, 3}}));
    EXPECT_TRUE(same(applied(kiv::unite_row, {{1, 0, 1}}, {{7, 9, 9}}), {{1, 0, 1}, {1, 9, 9}}));
    EXPECT_TRUE(same(applied(kiv::unite_row, {{1, 9, 9}}, {{7, 0, 1}}), {{1, 0, 1}, {1, 9, 9}}));
}

TEST(RunPairs, UnionOfLongRows)
{
    std::vector<Runs> rows;
    for (const int length : {1, 63, 64, 65, 127, 128, 129, 300}) {
        Runs row;
        for (int i = 0; i < length; ++i) {
            row.push_back({1, 7 * i % 50, 7 * i % 50 + i % 9 - 1}); // some begin past their end
        }
        rows.push_back(row);
    }
    EXPECT_TRUE(agree(kiv::unite_row, unite_all, rows, rows));
}

TEST(RunPairs, WhatTheListHeldBeforeStays)
{
    const Runs before = {{8, 0, 9}, {8, 2, 3}};
    for (const RowFunction combine_row : {kiv::unite_row, kiv::intersect_row, kiv::cut_row}) {
        for (const Runs& b : {Runs{{1, 2, 4}}, Runs{{1, 0, 9}, {1, 4, 4}}, Runs{{1, 7, 3}, {1, 0, 0}}}) {
            const Runs a = {{1, 3, 5}, {1, 2, 2}};
            kiv::RunWriter out(0);
            out.append(before);
            combine_row(a, b, out);
            Runs expected = before;
            const Runs added = applied(combine_row, a, b);
            expected.insert(expected.end(), added.begin(), added.end());
            EXPECT_TRUE(same(out.written(), expected));
        }
    }
}

TEST(RunPairs, WithoutRunsInAThereIsNothing)
{
    for (const RowFunction combine_row : {kiv::unite_row, kiv::intersect_row, kiv::cut_row}) {
        EXPECT_TRUE(same(applied(combine_row, {}, {{1, 2, 4}, {1, 0, 0}}), {}));
        EXPECT_TRUE(same(applied(combine_row, {}, {}), {}));
    }
    EXPECT_TRUE(same(applied(kiv::unite_row, {{1, 2, 4}}, {}), {}));
    EXPECT_TRUE(same(applied(kiv::intersect_row, {{1, 2, 4}}, {}), {}));
}

// ---------------------------------------------------------------------------------------------------------------
// Rows whose columns ascend: only the runs that can be met are looked at.

TEST(RunPairs, ColumnsAscendWhenNoRunIsInvertedOrBeginsOrEndsBeforeTheOneInFront)
{
    for (const Runs& row : {Runs{}, Runs{{1, 4, 4}}, Runs{{1, 0, 2}, {1, 5, 7}}, Runs{{1, 0, 4}, {1, 2, 4}, {1, 2, 6}},
                            Runs{{1, lowest, lowest}, {1, highest, highest}}}) {
        EXPECT_TRUE(kiv::columns_ascend(row)) << described(row);
    }
    for (const Runs& row :
         {Runs{{1, 5, 4}}, Runs{{1, 4, 5}, {1, 3, 6}}, Runs{{1, 0, 5}, {1, 1, 4}}, Runs{{1, 0, 2}, {1, 5, 4}}}) {
        EXPECT_FALSE(kiv::columns_ascend(row)) << described(row);
    }
}

/// For each run of A, the runs of B that are looked at.
std::vector<Runs> looked_at(const Runs& a, const Runs& b)
{
    std::vector<Runs> neighbors_of_all;
    kiv::Neighbors neighbors(a, b);
    for (const auto& run : a) {
        Runs& found = neighbors_of_all.emplace_back();
        for (const auto& of_b : neighbors.from_first_of(run)) {
            if (neighbors.is_past_last_of(run, of_b)) {
                break;
            }
            found.push_back(of_b);
        }
    }
    return neighbors_of_all;
}

TEST(RunPairs, TheNeighborsOfARunAreTheRunsThatShareAColumnWithIt)
{
    const Runs a = {{1, -5, -1}, {1, -5, 0}, {1, 2, 3}, {1, 3, 3}, {1, 4, 5}, {1, 5, 20}, {1, 10, 20}};
    const Runs b = {{1, 0, 2}, {1, 2, 3}, {1, 6, 7}, {1, 9, 9}};
    const std::vector<Runs> expected = {
        {}, {{1, 0, 2}}, {{1, 0, 2}, {1, 2, 3}}, {{1, 2, 3}}, {}, {{1, 6, 7}, {1, 9, 9}}, {}};
    EXPECT_EQ(looked_at(a, b), expected);
}

TEST(RunPairs, NeighborsAreFoundForRunsInAnyOrderWhereTheColumnsOfBAscend)
{
    const Runs b = {{1, 0, 2}, {1, 2, 3}, {1, 3, 3}, {1, 6, 7}, {1, 9, 9}, {1, 12, 15}};
    const auto by_columns = [](const auto& left, const auto& right) {
        return std::tie(left.colBegin, left.colEnd) < std::tie(right.colBegin, right.colEnd);
    };
    Runs a = {{1, -1, 1}, {1, 2, 2}, {1, 4, 5}, {1, 7, 8}, {1, 7, 12}, {1, 16, 20}};
    do {
        std::vector<Runs> expected;
        for (const auto& of_a : a) {
            std::copy_if(b.begin(), b.end(), std::back_inserter(expected.emplace_back()),
                         [&of_a](const auto& of_b) { return kiv::runs_meet(of_a, of_b); });
        }
        EXPECT_EQ(looked_at(a, b), expected) << described(a);
    } while (std::next_permutation(a.begin(), a.end(), by_columns));
}

TEST(RunPairs, AllRunsOfBAreNeighborsOtherwise)
{
    const Runs ascending = {{1, 0, 2}, {1, 6, 7}};
    const Runs descending = {{1, 6, 7}, {1, 0, 2}};
    const Runs well_formed = {{1, 4, 4}};
    const Runs inverted = {{1, 5, 4}};
    for (const auto& [a, b] : {std::pair{inverted, ascending}, {inverted, descending}, {well_formed, descending}}) {
        EXPECT_EQ(looked_at(a, b), std::vector<Runs>{b});
    }
}

// ---------------------------------------------------------------------------------------------------------------
// The ends of the range of int: the tables above would overflow there if the functions did.

TEST(RunPairs, ColumnsAtTheEndsOfTheRangeOfInt)
{
    Runs runs;
    for (const int begin : {lowest, lowest + 1, -1, 0, 1, highest - 1, highest}) {
        for (const int end : {lowest, lowest + 1, -1, 0, 1, highest - 1, highest}) {
            runs.push_back({5, begin, end});
        }
    }
    const std::vector<Runs> single = all_lists(1, runs);
    const std::vector<Runs> pairs = all_lists(2, runs);
    EXPECT_TRUE(agree(kiv::unite_row, unite_all, single, pairs));
    EXPECT_TRUE(agree(kiv::intersect_row, intersect_all, single, pairs));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, single, pairs));
    EXPECT_TRUE(agree(kiv::unite_row, unite_all, pairs, single));
    EXPECT_TRUE(agree(kiv::intersect_row, intersect_all, pairs, single));
    EXPECT_TRUE(agree(kiv::cut_row, cut_all, pairs, single));
}

} // namespace
