// SPDX-License-Identifier: MIT
// A least-significant-digit radix sort in base 256. A byte that all rows share needs no pass, so ordinary rows take
// two.
#include "foundation/run_sort.h"

#include "foundation/variants.h"

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

/// Whether the arrays hold packed ints whose rows ascend already, so that sorting would write what they hold.
bool is_sorted_already(const KivVarArray& rows, const KivVarArray& col_begins, const KivVarArray& col_ends)
{
    const std::vector<int>* keys = packed_ints(rows);
    const std::vector<int>* begins = packed_ints(col_begins);
    const std::vector<int>* ends = packed_ints(col_ends);
    return keys != nullptr && begins != nullptr && ends != nullptr && begins->size() >= keys->size() &&
           ends->size() >= keys->size() && std::is_sorted(keys->begin(), keys->end());
}

} // namespace

bool rows_ascend(RunView runs)
{
    return std::is_sorted(runs.begin(), runs.end(),
                          [](const Run& left, const Run& right) { return row_of(left) < row_of(right); });
}

void sort_by_row(RunList& runs)
{
    if (rows_ascend(runs)) {
        return;
    }
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

ByRow::ByRow(RunView runs) : runs_(runs)
{
    if (!rows_ascend(runs)) {
        copy_.assign(runs.begin(), runs.end());
        sort_by_row(copy_);
        runs_ = copy_;
    }
}

} // namespace kiv

int KIVMV::maxbit(KivVarArray values)
{
    const kiv::VariantReader reader(values);
    const int length = reader.length();
    std::int64_t limit = 10;
    int digits = 1;
    for (int i = 0; i < length; ++i) {
        for (const int value = reader.value(i); limit <= value; limit *= 10) {
            ++digits;
        }
    }
    return digits;
}

void KIVMV::radixsort(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds)
{
    if (kiv::is_sorted_already(rows, colBegins, colEnds)) {
        return;
    }
    kiv::RunList runs = kiv::list_of(rows, colBegins, colEnds);
    kiv::sort_by_row(runs);
    int i = 0;
    for (const auto& [row, begin, end] : runs) {
        kiv::write_int(rows, i, row);
        kiv::write_int(colBegins, i, begin);
        kiv::write_int(colEnds, i, end);
        ++i;
    }
}
