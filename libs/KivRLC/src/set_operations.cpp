// SPDX-License-Identifier: MIT
#include "checked_count.h"
#include "row_sweep.h"
#include "run_set_access.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace
{

template <kivrlc::TruthTable table>
KivRunSet combined(const KivRunSet& a, const KivRunSet& b)
{
    return kivrlc::set_of_canonical(kivrlc::swept<table>(a.Runs(), b.Runs()));
}

/// Writes the pixels of one row of a box that do not belong to the runs from `run` on. `run` becomes the first run of
/// a later row.
Run* write_gaps(int row, const KivRunBox& box, const Run*& run, const Run* end, Run* out)
{
    std::int64_t begin = box.colBegin;
    for (; run != end && run->row == row; ++run) {
        const std::int64_t gap_end = std::min<std::int64_t>(std::int64_t{run->colBegin} - 1, box.colEnd);
        *out = {row, static_cast<int>(begin), static_cast<int>(gap_end)};
        out += begin <= gap_end ? 1 : 0;
        begin = std::max(begin, std::int64_t{run->colEnd} + 1);
    }
    if (begin <= box.colEnd) {
        *out++ = {row, static_cast<int>(begin), box.colEnd};
    }
    return out;
}

KivRunSet union_of(const KivRunSet* sets, std::size_t count)
{
    if (count <= 2) {
        return count == 2 ? sets[0] | sets[1] : sets[0];
    }
    return union_of(sets, count / 2) | union_of(sets + count / 2, count - count / 2);
}

} // namespace

KivRunSet operator|(const KivRunSet& a, const KivRunSet& b)
{
    return combined<kivrlc::in_any>(a, b);
}

KivRunSet operator&(const KivRunSet& a, const KivRunSet& b)
{
    return combined<kivrlc::in_both>(a, b);
}

KivRunSet operator-(const KivRunSet& a, const KivRunSet& b)
{
    return combined<kivrlc::in_first_only>(a, b);
}

KivRunSet operator^(const KivRunSet& a, const KivRunSet& b)
{
    return combined<kivrlc::in_one_only>(a, b);
}

KivRunSet KivRunSet::Complement(const KivRunBox& box) const
{
    if (box.rowBegin > box.rowEnd || box.colBegin > box.colEnd) {
        return {};
    }
    const KivRunView runs = Runs();
    const Run* const end = kivrlc::behind_row(runs, box.rowEnd);
    const Run* run = kivrlc::first_from_row(runs, box.rowBegin);
    const std::int64_t rows = std::int64_t{box.rowEnd} - box.rowBegin + 1;
    // A row has at most one gap more than it has runs, and one run may be written, but not counted.
    kivrlc::RunBuffer gaps(kivrlc::checked_count<Run>(rows + (end - run) + 1));
    Run* out = gaps.data();
    for (std::int64_t row = box.rowBegin; row <= box.rowEnd; ++row) {
        out = write_gaps(static_cast<int>(row), box, run, end, out);
    }
    gaps.resize(static_cast<std::size_t>(out - gaps.data()));
    return kivrlc::set_of_canonical(std::move(gaps));
}

KivRunSet KivRunSet::Union(const std::vector<KivRunSet>& sets)
{
    return sets.empty() ? KivRunSet() : union_of(sets.data(), sets.size());
}
