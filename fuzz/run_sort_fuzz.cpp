// SPDX-License-Identifier: MIT
// Runs are sorted as std::stable_sort sorts them, no matter which bytes of the rows differ.
#include "inputs.h"
#include "target.h"

#include "support/set_algebra.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const bool rows_are_far_apart = input.digit() % 2 == 1;
    support::Runs runs;
    KivVarArray rows;
    KivVarArray begins;
    KivVarArray ends;
    for (int i = 0; !input.at_end(); ++i) {
        const int row = rows_are_far_apart ? input.any_int() : input.coordinate();
        rows.Append(KivVar(row));
        begins.Append(KivVar(i));
        ends.Append(KivVar(-i));
        runs.push_back({row, i, -i});
    }
    std::stable_sort(runs.begin(), runs.end(), [](const Run& a, const Run& b) { return a.row < b.row; });

    KIVMV::radixsort(rows, begins, ends);

    support::Runs sorted;
    for (int i = 0; i < rows.Length(); ++i) {
        sorted.push_back({rows[i].I(), begins[i].I(), ends[i].I()});
    }
    EXPECT_TRUE(support::same(sorted, runs));
    return 0;
}
