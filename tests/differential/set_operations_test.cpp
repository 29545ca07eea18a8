// SPDX-License-Identifier: MIT
// The library's set operations against the literal walks: same runs, in the same order, duplicates included.
//
// Short lists are enumerated. What a walk does depends on how many runs each list has on which rows, what a pair of
// runs gives on their columns; three rows and four columns have every case of both. Longer lists are random, from fixed
// seeds.
//
// With KIV_LONG_TESTS set in the environment the enumerations leave fewer pairs out, and ten million random pairs are
// compared instead of a few ten thousand.
#include "literal_walks.h"

#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace
{

using support::described;
using support::Runs;

bool long_tests()
{
    return std::getenv("KIV_LONG_TESTS") != nullptr;
}

// ---------------------------------------------------------------------------------------------------------------
// One comparison

constexpr int frame_width = 4;
constexpr int frame_height = 4;

// A KivRegion and a KivROI with the same runs.
struct Operand {
    explicit Operand(const Runs& list)
        : runs(list), region(frame_width, frame_height, list), roi(KivROI::Mask(list, frame_width, frame_height))
    {
    }

    Runs runs;
    KivRegion region;
    KivROI roi;
};

struct Operation {
    const char* name;
    support::Combination<KivRegion> of_regions;
    support::Combination<KivROI> of_rois;
    Runs (*walk_of_regions)(Runs, Runs);
    Runs (*walk_of_rois)(Runs, Runs);
};

constexpr Operation operations[] = {
    {"union", KIVMV::KivRegionAdd, KIVMV::KivROIAdd, literal::region_union, literal::roi_union},
    {"intersection", KIVMV::KivRegionAnd, KIVMV::KivROIAnd, literal::region_intersection, literal::roi_intersection},
    {"difference", KIVMV::KivRegionSub, KIVMV::KivROISub, literal::region_difference, literal::roi_difference},
};

const Runs& runs_of(const KivROI& roi)
{
    static const Runs none;
    const auto* mask = std::get_if<KivShape::Mask>(&roi.Parameters().Shape());
    return mask == nullptr ? none : mask->runs;
}

// Keeps the outputs between comparisons and counts these. The first difference is kept, with everything about it.
class Comparison
{
public:
    // All operations on two operands. Operands without runs are for the tests of the results worked out by hand when
    // they are ROIs, because no walk is made for them.
    bool two(Operand& a, Operand& b)
    {
        for (const Operation& operation : operations) {
            const int code = operation.of_regions(a.region, b.region, &region_);
            if (!agrees(operation.name, "regions", code, region_.Runs(), operation.walk_of_regions(a.runs, b.runs),
                        a.runs, &b.runs)) {
                return false;
            }
            if (a.runs.empty() || b.runs.empty()) {
                continue;
            }
            const int roi_code = operation.of_rois(a.roi, b.roi, &roi_);
            if (!agrees(operation.name, "ROIs", roi_code, runs_of(roi_), operation.walk_of_rois(a.runs, b.runs), a.runs,
                        &b.runs)) {
                return false;
            }
        }
        ++pairs_;
        return true;
    }

    // The complements of one operand.
    bool one(Operand& a)
    {
        const int width = a.region.Width();
        const int height = a.region.Height();
        const int code = KIVMV::KivRegionNot(a.region, &region_);
        if (!agrees("complement", "a region", code, region_.Runs(), literal::region_complement(a.runs, width, height),
                    a.runs, nullptr)) {
            return false;
        }
        const int roi_code = KIVMV::KivROINot(a.roi, &roi_);
        if (!agrees("complement", "an ROI", roi_code, runs_of(roi_), literal::roi_complement(a.runs, width, height),
                    a.runs, nullptr)) {
            return false;
        }
        ++complements_;
        return true;
    }

    // Whether all was the same, and there was something to compare. Says how much it was.
    testing::AssertionResult conclusion(bool with_pairs, bool with_complements) const
    {
        std::cout << "compared " << pairs_ << " pairs of run lists and " << complements_ << " complements\n";
        if (!difference_.empty()) {
            return testing::AssertionFailure() << difference_;
        }
        if ((with_pairs && pairs_ == 0) || (with_complements && complements_ == 0)) {
            return testing::AssertionFailure() << "nothing was compared";
        }
        return testing::AssertionSuccess();
    }

    void note(const std::string& origin) { origin_ = origin; }

private:
    bool agrees(const char* operation, const char* of_what, int code, const Runs& actual, const Runs& expected,
                const Runs& a, const Runs* b)
    {
        if (code == 0 && actual == expected) {
            return true;
        }
        std::ostringstream text;
        text << operation << " of " << of_what << ", code " << code << origin_ << "\n       A " << described(a);
        if (b != nullptr) {
            text << "\n       B " << described(*b);
        }
        text << "\nexpected " << described(expected) << "\n     got " << described(actual);
        difference_ = text.str();
        return false;
    }

    KivRegion region_;
    KivROI roi_;
    std::size_t pairs_ = 0;
    std::size_t complements_ = 0;
    std::string origin_;
    std::string difference_;
};

// Each of the first list with each of the second, of which only one pair in `stride` is taken; the stride should have
// no factor in common with the lengths.
void compare_pairs(std::vector<Operand>& as, std::vector<Operand>& bs, std::size_t stride, Comparison& comparison)
{
    for (std::size_t at = 0; at < as.size() * bs.size(); at += stride) {
        if (!comparison.two(as[at / bs.size()], bs[at % bs.size()])) {
            return;
        }
    }
}

void compare_each(std::vector<Operand>& as, Comparison& comparison)
{
    for (Operand& a : as) {
        if (!comparison.one(a)) {
            return;
        }
    }
}

// ---------------------------------------------------------------------------------------------------------------
// Enumerated lists

enum class Inverted { no, yes };

Runs all_runs(int rows, int columns, Inverted inverted)
{
    Runs runs;
    for (int row = 0; row < rows; ++row) {
        for (int begin = 0; begin < columns; ++begin) {
            for (int end = inverted == Inverted::yes ? 0 : begin; end < columns; ++end) {
                runs.push_back({row, begin, end});
            }
        }
    }
    return runs;
}

enum class Order {
    any,       // every list of the given runs
    ascending, // only lists in the order of the given runs; a run may be repeated
    apart,     // only those of them whose runs share no pixel
};

void add_longer_lists(const Runs& runs, std::size_t longest, Order order, std::size_t first, const Runs& list,
                      std::vector<Operand>& lists)
{
    lists.emplace_back(list);
    if (list.size() == longest) {
        return;
    }
    for (std::size_t i = order == Order::any ? 0 : first; i < runs.size(); ++i) {
        if (order == Order::apart && !list.empty() && list.back().row == runs[i].row &&
            list.back().colEnd >= runs[i].colBegin) {
            continue;
        }
        Runs longer = list;
        longer.push_back(runs[i]);
        add_longer_lists(runs, longest, order, i, longer, lists);
    }
}

// All lists of up to `longest` of the given runs, the one without runs among them.
std::vector<Operand> all_lists(const Runs& runs, std::size_t longest, Order order)
{
    std::vector<Operand> lists;
    add_longer_lists(runs, longest, order, 0, {}, lists);
    return lists;
}

TEST(SetOperationsAgainstLiteralWalks, EveryTwoSortedListsOfUpToTwoRuns)
{
    std::vector<Operand> lists = all_lists(all_runs(3, 4, Inverted::no), 2, Order::ascending);
    ASSERT_EQ(lists.size(), 496U);
    Comparison comparison;
    compare_pairs(lists, lists, 1, comparison);
    compare_each(lists, comparison);
    EXPECT_TRUE(comparison.conclusion(true, true));
}

// All ways in which up to four runs can lie on three rows and four columns without sharing a pixel: 7895 lists and some
// 62 million pairs, of which every 1009th is compared, every seventh in a long test. Each list comes up as often as any
// other.
TEST(SetOperationsAgainstLiteralWalks, SortedListsOfUpToFourRunsApart)
{
    std::vector<Operand> lists = all_lists(all_runs(3, 4, Inverted::no), 4, Order::apart);
    ASSERT_EQ(lists.size(), 7895U);
    Comparison comparison;
    compare_pairs(lists, lists, long_tests() ? 7 : 1009, comparison);
    compare_each(lists, comparison);
    EXPECT_TRUE(comparison.conclusion(true, true));
}

// Which rows have how many runs decides what becomes of the ends of the lists. Here every distribution of up to four
// runs over three rows meets every other, with few columns.
TEST(SetOperationsAgainstLiteralWalks, EveryDistributionOfUpToFourRunsOverTheRows)
{
    const Runs on_each_row = {{0, 0, 0}, {0, 2, 3}, {1, 0, 1}, {1, 3, 3}, {2, 0, 2}, {2, 1, 3}};
    std::vector<Operand> as = all_lists(on_each_row, 4, Order::ascending);
    const Runs on_each_row_of_b = {{0, 1, 2}, {1, 1, 3}, {2, 0, 0}, {2, 2, 2}};
    std::vector<Operand> bs = all_lists(on_each_row_of_b, 4, Order::ascending);
    ASSERT_EQ(as.size(), 210U);
    ASSERT_EQ(bs.size(), 70U);
    Comparison comparison;
    compare_pairs(as, bs, 1, comparison);
    compare_pairs(bs, as, 1, comparison);
    EXPECT_TRUE(comparison.conclusion(true, false));
}

// Lists in any order, with repeats and with runs that begin past their end.
TEST(SetOperationsAgainstLiteralWalks, ListsOfUpToTwoArbitraryRuns)
{
    std::vector<Operand> lists = all_lists(all_runs(3, 3, Inverted::yes), 2, Order::any);
    ASSERT_EQ(lists.size(), 757U);
    Comparison comparison;
    compare_pairs(lists, lists, long_tests() ? 1 : 7, comparison);
    compare_each(lists, comparison);
    EXPECT_TRUE(comparison.conclusion(true, true));
}

TEST(SetOperationsAgainstLiteralWalks, ListsOfUpToFourArbitraryRuns)
{
    std::vector<Operand> lists = all_lists(all_runs(3, 2, Inverted::yes), 4, Order::any);
    ASSERT_EQ(lists.size(), 22621U);
    Comparison comparison;
    compare_pairs(lists, lists, long_tests() ? 101 : 10007, comparison);
    compare_each(lists, comparison);
    EXPECT_TRUE(comparison.conclusion(true, true));
}

// ---------------------------------------------------------------------------------------------------------------
// Random lists

int between(std::mt19937& random, int lowest, int highest)
{
    return std::uniform_int_distribution<int>(lowest, highest)(random);
}

// Runs of one row that lie apart, from left to right.
void add_runs_apart(std::mt19937& random, int row, int count, Runs& runs)
{
    int column = between(random, -4, 6);
    for (int i = 0; i < count; ++i) {
        const int end = column + between(random, 0, 5);
        runs.push_back({row, column, end});
        column = end + between(random, 1, 5);
    }
}

void add_any_runs(std::mt19937& random, int row, int count, Runs& runs)
{
    for (int i = 0; i < count; ++i) {
        const int begin = between(random, -3, 30);
        runs.push_back({row, begin, begin + between(random, -4, 12)});
    }
}

void add_extreme_runs(std::mt19937& random, int row, int count, Runs& runs)
{
    constexpr int columns[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, 2, INT_MAX - 1, INT_MAX};
    for (int i = 0; i < count; ++i) {
        runs.push_back({row, columns[between(random, 0, 7)], columns[between(random, 0, 7)]});
    }
}

// Rows from a small range, so that they are often shared; some below 0.
Runs random_runs(std::mt19937& random, int rows, int most_on_a_row)
{
    const int kind = between(random, 0, 9);
    const int share_of_rows = between(random, 1, 4);
    const int first_row = between(random, 0, 3) == 0 ? -2 : 0;
    Runs runs;
    for (int row = first_row; row < first_row + rows; ++row) {
        if (between(random, 0, 4) >= share_of_rows) {
            continue;
        }
        const int count = between(random, 1, most_on_a_row);
        if (kind < 6) {
            add_runs_apart(random, row, count, runs);
        } else if (kind < 9) {
            add_any_runs(random, row, count, runs);
        } else {
            add_extreme_runs(random, row, count, runs);
        }
    }
    if (between(random, 0, 2) == 0) {
        std::shuffle(runs.begin(), runs.end(), random);
    }
    return runs;
}

void compare_random_pairs(std::uint32_t first_seed, std::uint32_t seeds, Comparison& comparison)
{
    constexpr int pairs_of_a_seed = 100;
    for (std::uint32_t seed = first_seed; seed < first_seed + seeds; ++seed) {
        std::mt19937 random(seed);
        for (int i = 0; i < pairs_of_a_seed; ++i) {
            const int rows = between(random, 1, 9);
            const int most_on_a_row = between(random, 1, between(random, 0, 9) == 0 ? 12 : 4);
            Operand a(random_runs(random, rows, most_on_a_row));
            Operand b(random_runs(random, rows, most_on_a_row));
            comparison.note(", seed " + std::to_string(seed) + ", pair " + std::to_string(i));
            if (!comparison.two(a, b) || !comparison.one(a) || !comparison.one(b)) {
                return;
            }
        }
    }
}

TEST(SetOperationsAgainstLiteralWalks, RandomLists)
{
    Comparison comparison;
    compare_random_pairs(20000, long_tests() ? 100000 : 600, comparison);
    EXPECT_TRUE(comparison.conclusion(true, true));
}

// Rows far apart, whose numbers take many digits. The complements of such rows are too long to be looked at.
TEST(SetOperationsAgainstLiteralWalks, RandomListsOnDistantRows)
{
    Comparison comparison;
    const std::uint32_t seeds = long_tests() ? 200000 : 6000;
    for (std::uint32_t seed = 1; seed <= seeds; ++seed) {
        std::mt19937 random(seed);
        const auto any_rows = [&random]() {
            constexpr int rows[] = {INT_MIN, -70000, -257, -1, 0, 9, 255, 256, 65535, 65536, 1000000000, INT_MAX};
            Runs runs;
            for (int count = between(random, 1, 12); count > 0; --count) {
                add_any_runs(random, rows[between(random, 0, 11)], 1, runs);
            }
            return runs;
        };
        Operand a(any_rows());
        Operand b(any_rows());
        comparison.note(", seed " + std::to_string(seed));
        if (!comparison.two(a, b)) {
            break;
        }
    }
    EXPECT_TRUE(comparison.conclusion(true, false));
}

} // namespace
