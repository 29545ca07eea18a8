// SPDX-License-Identifier: MIT
#include "contract_test.h"

using namespace contract;
using namespace KIVMV;

using SortContract = ContractTest;

TEST_F(SortContract, RadixsortWritesThroughTheElements)
{
    KivVarArray rows;
    KivVarArray begins;
    KivVarArray ends;
    set(rows, {5, 12, 5});
    set(begins, {9, 0, 1});
    set(ends, {10, 2, 3, 77});

    radixsort(rows, begins, ends);

    EXPECT_EQ(rows.test_values(), (std::vector<int>{5, 5, 12}));
    EXPECT_EQ(begins.test_values(), (std::vector<int>{9, 1, 0}));
    EXPECT_EQ(ends.test_values(), (std::vector<int>{10, 3, 2, 77}));
}

TEST_F(SortContract, MaxbitLeavesTheCallersArrayAlone)
{
    KivVarArray values;
    set(values, {7, 4321, -99999});
    EXPECT_EQ(maxbit(values), 4);
    EXPECT_EQ(values.test_values(), (std::vector<int>{7, 4321, -99999}));
}
