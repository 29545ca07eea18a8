// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

namespace
{

using SortContract = ContractTest;

/// Three arrays whose changes other than through their elements are listed.
struct Arrays {
    Arrays(const std::vector<int>& row_values, const std::vector<int>& begin_values, const std::vector<int>& end_values)
    {
        set(rows, row_values);
        set(begins, begin_values);
        set(ends, end_values);
        rows.test_name = "rows";
        begins.test_name = "begins";
        ends.test_name = "ends";
    }

    KivVarArray rows;
    KivVarArray begins;
    KivVarArray ends;
};

} // namespace

TEST_F(SortContract, RadixsortWritesThroughTheElements)
{
    Arrays arrays({5, 12, 5}, {9, 0, 1}, {10, 2, 3, 77});
    start();
    radixsort(arrays.rows, arrays.begins, arrays.ends);
    EXPECT_EQ(calls(), Calls{});
    EXPECT_EQ(arrays.rows.test_values(), (std::vector<int>{5, 5, 12}));
    EXPECT_EQ(arrays.begins.test_values(), (std::vector<int>{9, 1, 0}));
    EXPECT_EQ(arrays.ends.test_values(), (std::vector<int>{10, 3, 2, 77}));
}

TEST_F(SortContract, RadixsortOfNothingDoesNothing)
{
    Arrays arrays({}, {4}, {});
    start();
    radixsort(arrays.rows, arrays.begins, arrays.ends);
    EXPECT_EQ(calls(), Calls{});
    EXPECT_EQ(arrays.begins.test_values(), (std::vector<int>{4}));
}

TEST_F(SortContract, MaxbitLeavesTheCallersArrayAlone)
{
    KivVarArray values;
    set(values, {7, 4321, -99999});
    const Unchanged input(values);
    start();
    EXPECT_EQ(maxbit(values), 4);
    EXPECT_EQ(calls(), (Calls{"KivVarArray(copy)"})) << "the one that passing by value takes";
}

TEST_F(SortContract, MaxbitOfNothingIsOne)
{
    KivVarArray nothing;
    EXPECT_EQ(maxbit(nothing), 1);
}
