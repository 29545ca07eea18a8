// SPDX-License-Identifier: MIT
#include "common/checked_count.h"
#include "common/full_rows.h"
#include "row_sweep.h"
#include "run_set_access.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
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
    RestOfBox(const KivRunBox& box, Run* out)
        : box_(box), row_(std::int64_t{box.rowBegin} - 1), begin_(std::int64_t{box.colEnd} + 1), out_(out)
    {
    }

    /// Writes what is left of a row, and all rows down to the given one, at whose begin it goes on.
    void go_on_to(std::int64_t row)
    {
        write_up_to(box_.colEnd);
        Run* out = out_; // a member would be written before the call and read again behind it
        if (row_ + 1 < row) {
            out = kivcommon::write_full_rows(row_ + 1, row, box_.colBegin, box_.colEnd, out);
        }
        out_ = out;
        row_ = row;
        begin_ = box_.colBegin;
    }

    /// Writes the gaps left of the runs of a row; where the next row begins.
    const Run* leave_row_out(const Run* run, const Run* end)
    {
        const int row = run->row;
        do {
            write_up_to(std::min<std::int64_t>(std::int64_t{run->colBegin} - 1, box_.colEnd));
            begin_ = std::max(begin_, std::int64_t{run->colEnd} + 1);
            ++run;
        } while (run != end && run->row == row);
        return run;
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
    const std::size_t most = kivcommon::checked_count<Run>(rows + (end - first) + 1);
    Run few[128]; // where few gaps are made, as memory for just as many may take much less time than for the most
    kivrlc::RunBuffer gaps(most > std::size(few) ? most : 0);
    RestOfBox rest(box, gaps.empty() ? few : gaps.data());
    for (const Run* run = first; run != end;) {
        rest.go_on_to(run->row);
        run = rest.leave_row_out(run, end);
    }
    rest.go_on_to(std::int64_t{box.rowEnd} + 1);
    if (gaps.empty()) {
        gaps.assign(static_cast<const Run*>(few), rest.end());
    } else {
        gaps.resize(static_cast<std::size_t>(rest.end() - gaps.data()));
    }
    return kivrlc::set_of_canonical(std::move(gaps));
}

KivRunSet KivRunSet::Union(const std::vector<KivRunSet>& sets)
{
    return sets.empty() ? KivRunSet() : union_of(sets.data(), sets.size());
}
