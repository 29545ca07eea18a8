// SPDX-License-Identifier: MIT
#include "common/checked_count.h"
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

/// Writes what a box has from a place on, from left to right and down.
class RestOfBox
{
public:
    RestOfBox(const KivRunBox& box, Run* out) : box_(box), row_(box.rowBegin), begin_(box.colBegin), out_(out) {}

    /// Writes all rows above this one.
    void write_above(std::int64_t row)
    {
        write_up_to(box_.colEnd);
        for (++row_; row_ < row; ++row_) {
            *out_++ = {static_cast<int>(row_), box_.colBegin, box_.colEnd};
        }
        begin_ = box_.colBegin;
    }

    /// Writes what is left of a run and leaves the run out.
    void leave_out(const Run& run)
    {
        if (run.row != row_) {
            write_above(run.row);
        }
        write_up_to(std::min<std::int64_t>(std::int64_t{run.colBegin} - 1, box_.colEnd));
        begin_ = std::max(begin_, std::int64_t{run.colEnd} + 1);
    }

    const Run* end() const { return out_; }

private:
    void write_up_to(std::int64_t end)
    {
        out_ =
            kivrlc::put({static_cast<int>(row_), static_cast<int>(begin_), static_cast<int>(end)}, begin_ <= end, out_);
    }

    KivRunBox box_;
    std::int64_t row_;
    std::int64_t begin_;
    Run* out_;
};

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
    const Run* const first = kivrlc::first_from_row(runs, box.rowBegin);
    const Run* const end = kivrlc::behind_row(runs, box.rowEnd);
    const std::int64_t rows = std::int64_t{box.rowEnd} - box.rowBegin + 1;
    // A row has at most one gap more than it has runs, and one run may be written, but not counted.
    kivrlc::RunBuffer gaps(kivcommon::checked_count<Run>(rows + (end - first) + 1));
    RestOfBox rest(box, gaps.data());
    for (const Run* run = first; run < end; ++run) {
        rest.leave_out(*run);
    }
    rest.write_above(std::int64_t{box.rowEnd} + 1);
    gaps.resize(static_cast<std::size_t>(rest.end() - gaps.data()));
    return kivrlc::set_of_canonical(std::move(gaps));
}

KivRunSet KivRunSet::Union(const std::vector<KivRunSet>& sets)
{
    return sets.empty() ? KivRunSet() : union_of(sets.data(), sets.size());
}
