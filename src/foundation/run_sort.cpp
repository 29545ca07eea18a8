// SPDX-License-Identifier: MIT
#include "foundation/run_sort.h"

#include "seam/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <cstdint>

namespace kiv
{
namespace
{

RunList list_of(std::span<const int> rows, std::span<const int> begins, std::span<const int> ends)
{
    RunList runs(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        runs[i] = {rows[i], begins[i], ends[i]};
    }
    return runs;
}

/// One of the three ints of each run.
std::vector<int> collected(RunView runs, int (*of_run)(const Run&))
{
    std::vector<int> ints(runs.size());
    std::transform(runs.begin(), runs.end(), ints.begin(), of_run);
    return ints;
}

} // namespace

bool rows_ascend(RunView runs)
{
    return std::is_sorted(runs.begin(), runs.end(),
                          [](const Run& left, const Run& right) { return row_of(left) < row_of(right); });
}

ViewOrCopy<Run> by_row(RunView runs)
{
    if (rows_ascend(runs)) {
        return runs;
    }
    RunList sorted(runs.begin(), runs.end());
    sort_by_row(sorted);
    return sorted;
}

} // namespace kiv

int KIVMV::maxbit(KivVarArray values)
{
    const kiv::ViewOrCopy<int> ints = kiv::ints_of(values, values.Length());
    std::int64_t limit = 10;
    int digits = 1;
    for (const int value : ints.view()) {
        for (; limit <= value; limit *= 10) {
            ++digits;
        }
    }
    return digits;
}

void KIVMV::radixsort(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds)
{
    const int length = rows.Length();
    const kiv::ViewOrCopy<int> keys = kiv::ints_of(rows, length);
    const kiv::ViewOrCopy<int> begins = kiv::ints_of(colBegins, length);
    const kiv::ViewOrCopy<int> ends = kiv::ints_of(colEnds, length);
    if (std::is_sorted(keys.view().begin(), keys.view().end())) {
        kiv::overwrite(rows, keys); // elements that are no ints become ints
        kiv::overwrite(colBegins, begins);
        kiv::overwrite(colEnds, ends);
        return;
    }
    kiv::RunList runs = kiv::list_of(keys, begins, ends);
    kiv::sort_by_row(runs);
    kiv::overwrite(rows, kiv::collected(runs, kiv::row_of));
    kiv::overwrite(colBegins, kiv::collected(runs, kiv::begin_of));
    kiv::overwrite(colEnds, kiv::collected(runs, kiv::end_of));
}
