// SPDX-License-Identifier: MIT
// Digit counting and the stable sort of run arrays by row.
#include <KivDataConvert/KivDataConvert.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <numeric>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Ints = std::vector<int>;

struct RunArrays {
    KivVarArray rows;
    KivVarArray colBegins;
    KivVarArray colEnds;
};

void sort(RunArrays& runs)
{
    KIVMV::radixsort(runs.rows, runs.colBegins, runs.colEnds);
}

Ints ints_of(const KivVarArray& values)
{
    Ints ints;
    for (int i = 0; i < values.Length(); ++i) {
        ints.push_back(values[i].I());
    }
    return ints;
}

// An array whose elements somebody has had a reference to.
KivVarArray touched(const Ints& ints)
{
    KivVarArray values((Ints(ints)));
    for (int i = 0; i < values.Length(); ++i) {
        values[i] = KivVar(ints[static_cast<std::size_t>(i)]);
    }
    return values;
}

// ---------------------------------------------------------------------------------------------------------------
// maxbit

TEST(Maxbit, NoElementsGiveOne)
{
    EXPECT_EQ(KIVMV::maxbit(KivVarArray()), 1);
}

TEST(Maxbit, ASingleElementGivesItsDigits)
{
    constexpr std::pair<int, int> value_and_digits[] = {
        {0, 1},           {1, 1},           {9, 1},           {10, 2},           {11, 2},
        {99, 2},          {100, 3},         {999, 3},         {1000, 4},         {9999, 4},
        {10000, 5},       {99999, 5},       {100000, 6},      {999999, 6},       {1000000, 7},
        {9999999, 7},     {10000000, 8},    {99999999, 8},    {100000000, 9},    {999999999, 9},
        {1000000000, 10}, {1000000001, 10}, {2000000000, 10}, {INT_MAX - 1, 10}, {INT_MAX, 10},
    };
    for (const auto& [value, digits] : value_and_digits) {
        EXPECT_EQ(KIVMV::maxbit({value}), digits) << value;
        EXPECT_EQ(KIVMV::maxbit(touched({value})), digits) << value;
    }
}

TEST(Maxbit, ANegativeElementCountsAsOneDigit)
{
    for (const int value : {-1, -9, -10, -12345, -999999999, -1000000000, INT_MIN + 1, INT_MIN}) {
        EXPECT_EQ(KIVMV::maxbit({value}), 1) << value;
    }
    EXPECT_EQ(KIVMV::maxbit({-1000, -5, -70}), 1);
}

TEST(Maxbit, TheLargestElementDecidesWhereverItStands)
{
    EXPECT_EQ(KIVMV::maxbit({1000, 5, 12}), 4);
    EXPECT_EQ(KIVMV::maxbit({5, 1000, 12}), 4);
    EXPECT_EQ(KIVMV::maxbit({5, 12, 1000}), 4);
    EXPECT_EQ(KIVMV::maxbit({-100000, 12, 7}), 2);
    EXPECT_EQ(KIVMV::maxbit({INT_MIN, INT_MAX, 0}), 10);
    EXPECT_EQ(KIVMV::maxbit({0, 0, 0}), 1);
}

TEST(Maxbit, ElementsThatAreNotIntsCountAsTheIntTheyConvertTo)
{
    EXPECT_EQ(KIVMV::maxbit({9.99}), 1);
    EXPECT_EQ(KIVMV::maxbit({10.0}), 2);
    EXPECT_EQ(KIVMV::maxbit({"12345", 7}), 1);
}

TEST(Maxbit, LeavesTheCallersArrayAlone)
{
    const KivVarArray values = {3, 250.5, "text", -4};
    const KivVarArray before = values;
    EXPECT_EQ(KIVMV::maxbit(values), 3);
    EXPECT_EQ(values, before);
}

// ---------------------------------------------------------------------------------------------------------------
// radixsort

TEST(Radixsort, EmptyArraysStayEmpty)
{
    RunArrays runs;
    sort(runs);
    EXPECT_EQ(runs.rows.Length(), 0);
    EXPECT_EQ(runs.colBegins.Length(), 0);
    EXPECT_EQ(runs.colEnds.Length(), 0);
}

TEST(Radixsort, ASingleRunStays)
{
    RunArrays runs = {{7}, {8}, {9}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{7}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{8}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{9}));
}

TEST(Radixsort, RowsBelowTenKeepTheInputOrderInsideEachRow)
{
    RunArrays runs = {{3, 0, 9, 3, 0, 1, 3}, {70, 10, 90, 50, 11, 20, 60}, {71, 11, 91, 51, 12, 21, 61}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{0, 0, 1, 3, 3, 3, 9}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{10, 11, 20, 70, 50, 60, 90}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{11, 12, 21, 71, 51, 61, 91}));
}

TEST(Radixsort, RunsOfOneRowAreNotSortedByColumn)
{
    RunArrays runs = {{5, 12, 5}, {9, 0, 1}, {10, 4, 2}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{5, 5, 12}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{9, 1, 0}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{10, 2, 4}));
}

TEST(Radixsort, RunsOfOneSingleRowStayAsTheyAre)
{
    RunArrays runs = {{4, 4, 4, 4}, {3, 1, 2, 0}, {5, -5, 5, -5}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{4, 4, 4, 4}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{3, 1, 2, 0}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{5, -5, 5, -5}));
}

TEST(Radixsort, RowsAreOrderedAsNumbersNotAsTexts)
{
    RunArrays runs = {{1000, 9, 100, 99, 10, 101}, {0, 1, 2, 3, 4, 5}, {6, 7, 8, 9, 10, 11}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{9, 10, 99, 100, 101, 1000}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{1, 4, 3, 2, 5, 0}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{7, 10, 9, 8, 11, 6}));
}

TEST(Radixsort, NegativeRowsComeBeforeRowZero)
{
    RunArrays runs = {{0, -1, 5, -10, -1, 0, -2}, {0, 1, 2, 3, 4, 5, 6}, {10, 11, 12, 13, 14, 15, 16}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{-10, -2, -1, -1, 0, 0, 5}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{3, 6, 1, 4, 0, 5, 2}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{13, 16, 11, 14, 10, 15, 12}));
}

TEST(Radixsort, TakesTheWholeRangeOfInt)
{
    RunArrays runs = {{INT_MAX, 1000000000, INT_MIN, 0, 999999999, 2000000000, INT_MAX, INT_MIN, -1000000000},
                      {0, 1, 2, 3, 4, 5, 6, 7, 8},
                      {INT_MIN, INT_MAX, INT_MIN, INT_MAX, 0, 0, 1, 1, 2}};
    sort(runs);
    EXPECT_EQ(runs.rows,
              (KivVarArray{INT_MIN, INT_MIN, -1000000000, 0, 999999999, 1000000000, 2000000000, INT_MAX, INT_MAX}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{2, 7, 8, 3, 4, 1, 5, 0, 6}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{INT_MIN, 1, 2, INT_MAX, 0, INT_MAX, 0, INT_MIN, 1}));
}

TEST(Radixsort, ElementsPastTheRowsStayWhereTheyAre)
{
    RunArrays runs = {{2, 1}, {20, 10, 77, -3}, {21, 11, 0}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{1, 2}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{10, 20, 77, -3}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{11, 21, 0}));
}

TEST(Radixsort, ElementsPastTheRowsKeepTheirKind)
{
    RunArrays runs = {{2, 1}, {20, 10, 7.5, "text"}, {21, 11, "text"}};
    sort(runs);
    EXPECT_EQ(runs.colBegins, (KivVarArray{10, 20, 7.5, "text"}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{11, 21, "text"}));
}

TEST(Radixsort, ColumnsWithoutRowsStayWhereTheyAre)
{
    RunArrays runs = {{}, {3, 1, 2}, {9.5}};
    sort(runs);
    EXPECT_EQ(runs.rows.Length(), 0);
    EXPECT_EQ(runs.colBegins, (KivVarArray{3, 1, 2}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{9.5}));
}

TEST(Radixsort, TurnsEveryElementIntoAnInt)
{
    RunArrays runs = {{5.9, -1.9, "text"}, {1.5, 2.5, 3.5}, {"10", 4, -0.5}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{-1, 0, 5}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{2, 3, 1}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{4, 0, 0}));
}

TEST(Radixsort, TurnsEveryElementIntoAnIntAlsoWhenNothingHasToMove)
{
    RunArrays runs = {{1.25, 2.75}, {1.5, 2.5}, {"text", 4.0}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{1, 2}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{1, 2}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{0, 4}));

    // rows that are ints in order, with columns of which some are not ints
    const RunArrays in_order[] = {
        {{1, 2}, {1.5, 2.5}, {0.5, 4.0}}, {{1, 2}, {1.5, 2.5}, {0, 4}}, {{1, 2}, {1, 2}, {0.5, 4.0}}};
    for (RunArrays ordered : in_order) {
        sort(ordered);
        EXPECT_EQ(ordered.rows, (KivVarArray{1, 2}));
        EXPECT_EQ(ordered.colBegins, (KivVarArray{1, 2}));
        EXPECT_EQ(ordered.colEnds, (KivVarArray{0, 4}));
    }
}

TEST(Radixsort, DoubleRowsThatTruncateToOneRowKeepTheirOrder)
{
    RunArrays runs = {{3.9, 3.1, 2.5, 3}, {0, 1, 2, 3}, {0, 1, 2, 3}};
    sort(runs);
    EXPECT_EQ(runs.rows, (KivVarArray{2, 3, 3, 3}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{2, 0, 1, 3}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{2, 0, 1, 3}));
}

TEST(Radixsort, InvertedRunsTravelLikeAnyOther)
{
    RunArrays runs = {{2, 1}, {9, 5}, {3, 6}};
    sort(runs);
    EXPECT_EQ(runs.colBegins, (KivVarArray{5, 9}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{6, 3}));
}

TEST(Radixsort, AnArrayMayStandForBothColumns)
{
    KivVarArray rows = {12, 5, 120, 5};
    KivVarArray columns = {1, 2, 3, 4};
    KIVMV::radixsort(rows, columns, columns);
    EXPECT_EQ(rows, (KivVarArray{5, 5, 12, 120}));
    EXPECT_EQ(columns, (KivVarArray{2, 4, 1, 3}));
}

TEST(Radixsort, AnArrayMayBeItsOwnKey)
{
    KivVarArray all = {120, -5, 12, 5};
    KIVMV::radixsort(all, all, all);
    EXPECT_EQ(all, (KivVarArray{-5, 5, 12, 120}));
}

TEST(Radixsort, ColumnsThatEndTooSoonAreRefusedByTheArray)
{
    const KivVarArray packed{1};
    KivVarArray unpacked(packed);
    unpacked[0].I();
    for (const KivVarArray& too_short : {packed, unpacked}) {
        KivVarArray rows{3, 1};
        KivVarArray col_begins(too_short);
        KivVarArray col_ends{1, 2};
        try {
            KIVMV::radixsort(rows, col_begins, col_ends);
            ADD_FAILURE() << "nothing was rejected";
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "KivVarArray: index 1 is outside an array of length 1");
        }
        EXPECT_EQ(rows, (KivVarArray{3, 1}));
        EXPECT_EQ(col_begins, too_short);
        EXPECT_EQ(col_ends, (KivVarArray{1, 2}));
    }
}

TEST(Radixsort, TheArraysStayThreeObjects)
{
    RunArrays runs = {{2, 1}, {4, 3}, {6, 5}};
    sort(runs);
    runs.rows[0] = 100;
    runs.colBegins[1] = 200;
    EXPECT_EQ(runs.rows, (KivVarArray{100, 2}));
    EXPECT_EQ(runs.colBegins, (KivVarArray{3, 200}));
    EXPECT_EQ(runs.colEnds, (KivVarArray{5, 6}));
}

// ---------------------------------------------------------------------------------------------------------------
// radixsort against std::stable_sort

struct RowRange {
    const char* name;
    int lowest;
    int highest;
};

constexpr RowRange row_ranges[] = {
    {"one row", 7, 7},
    {"two rows", 0, 1},
    {"one digit", 0, 9},
    {"two digits", 0, 99},
    {"a frame", 0, 1079},
    {"around zero", -3, 3},
    {"negative", -2000, -1},
    {"ten digits", 1000000000, INT_MAX},
    {"top of the range", INT_MAX - 2, INT_MAX},
    {"bottom of the range", INT_MIN, INT_MIN + 2},
    {"whole range", INT_MIN, INT_MAX},
};

// One case: `count` runs with rows from `range`, some of them at the ends of int, sorted in both ways.
void compare_with_stable_sort(std::uint32_t seed, const RowRange& range, int count, bool with_extremes)
{
    std::ostringstream trace;
    trace << "seed " << seed << ", " << range.name << ", " << count << " runs" << (with_extremes ? ", extremes" : "");
    SCOPED_TRACE(trace.str());

    std::mt19937 random(seed);
    std::uniform_int_distribution<int> row(range.lowest, range.highest);
    std::uniform_int_distribution<int> column(INT_MIN, INT_MAX);
    std::uniform_int_distribution<int> one_in_eight(0, 7);
    constexpr int extremes[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, 999999999, 1000000000, INT_MAX - 1, INT_MAX};
    std::uniform_int_distribution<std::size_t> extreme(0, std::size(extremes) - 1);

    const auto size = static_cast<std::size_t>(count);
    Ints rows(size);
    Ints begins(size);
    Ints ends(size);
    for (std::size_t i = 0; i < size; ++i) {
        rows[i] = with_extremes && one_in_eight(random) == 0 ? extremes[extreme(random)] : row(random);
        begins[i] = column(random);
        ends[i] = column(random);
    }

    std::vector<std::size_t> order(size);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return rows[a] < rows[b]; });
    Ints expected_rows;
    Ints expected_begins;
    Ints expected_ends;
    for (const std::size_t at : order) {
        expected_rows.push_back(rows[at]);
        expected_begins.push_back(begins[at]);
        expected_ends.push_back(ends[at]);
    }

    RunArrays packed = {KivVarArray(Ints(rows)), KivVarArray(Ints(begins)), KivVarArray(Ints(ends))};
    sort(packed);
    ASSERT_EQ(ints_of(packed.rows), expected_rows);
    ASSERT_EQ(ints_of(packed.colBegins), expected_begins);
    ASSERT_EQ(ints_of(packed.colEnds), expected_ends);

    RunArrays unpacked = {touched(rows), touched(begins), KivVarArray(Ints(ends))};
    sort(unpacked);
    ASSERT_EQ(ints_of(unpacked.rows), expected_rows);
    ASSERT_EQ(ints_of(unpacked.colBegins), expected_begins);
    ASSERT_EQ(ints_of(unpacked.colEnds), expected_ends);
}

TEST(RadixsortAgainstStableSort, AgreesOnRandomRuns)
{
    std::uint32_t seed = 20210;
    for (const RowRange& range : row_ranges) {
        for (const int count : {0, 1, 2, 3, 8, 9, 10, 11, 100, 255, 256, 257, 1000}) {
            for (const bool with_extremes : {false, true}) {
                compare_with_stable_sort(seed++, range, count, with_extremes);
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

TEST(RadixsortAgainstStableSort, AgreesOnLongRandomLists)
{
    std::uint32_t seed = 31;
    for (const RowRange& range : row_ranges) {
        compare_with_stable_sort(seed++, range, 70000, true);
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(RadixsortAgainstStableSort, AgreesOnAllOrdersOfFiveRows)
{
    Ints rows = {-1, 0, 0, 9, 10};
    int orders = 0;
    do {
        Ints expected = {0, 1, 2, 3, 4};
        std::stable_sort(expected.begin(), expected.end(), [&](int a, int b) {
            return rows[static_cast<std::size_t>(a)] < rows[static_cast<std::size_t>(b)];
        });
        RunArrays runs = {KivVarArray(Ints(rows)), {0, 1, 2, 3, 4}, {0, -1, -2, -3, -4}};
        sort(runs);
        ASSERT_EQ(ints_of(runs.rows), (Ints{-1, 0, 0, 9, 10}));
        ASSERT_EQ(ints_of(runs.colBegins), expected);
        for (int& column : expected) {
            column = -column;
        }
        ASSERT_EQ(ints_of(runs.colEnds), expected);
        ++orders;
    } while (std::next_permutation(rows.begin(), rows.end()));
    EXPECT_EQ(orders, 60);
}

} // namespace
