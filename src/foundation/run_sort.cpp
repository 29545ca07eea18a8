// SPDX-License-Identifier: MIT
// A least-significant-digit radix sort in base 256. A byte that all rows share needs no pass, so ordinary rows take
// two.
#include "foundation/run_sort.h"

#include "foundation/data_types.h"

#include <KivDataConvert/KivDataConvert.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>

namespace kiv
{
namespace
{

/// The row with its sign bit flipped: unsigned keys in the order of the signed rows.
std::uint32_t key_of(const Run& run)
{
    return static_cast<std::uint32_t>(row_of(run)) ^ 0x80000000U;
}

/// One stable pass over the byte of the keys at `shift`, from `runs` into `sorted`, which is as long.
void sort_by_key_byte(const RunList& runs, int shift, RunList& sorted)
{
    const auto byte_of = [shift](const Run& run) { return (key_of(run) >> shift) & 0xFFU; };
    std::array<std::size_t, 257> starts{};
    for (const Run& run : runs) {
        ++starts[byte_of(run) + 1];
    }
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    for (const Run& run : runs) {
        sorted[starts[byte_of(run)]++] = run;
    }
}

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

void sort_by_row(RunList& runs)
{
    std::uint32_t differing_bits = 0;
    for (const Run& run : runs) {
        differing_bits |= key_of(run) ^ key_of(runs.front());
    }
    RunList sorted(runs.size());
    for (int shift = 0; shift < 32; shift += 8) {
        if (((differing_bits >> shift) & 0xFFU) != 0) {
            sort_by_key_byte(runs, shift, sorted);
            runs.swap(sorted);
        }
    }
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
