// SPDX-License-Identifier: MIT
#include "algebra/column_order.h"

#include <algorithm>

namespace kiv
{
namespace
{

int begin_of(const Run& run)
{
    const auto [row, begin, end] = run;
    return begin;
}

int end_of(const Run& run)
{
    const auto [row, begin, end] = run;
    return end;
}

bool begins_before(const Run& left, const Run& right)
{
    return begin_of(left) < begin_of(right);
}

bool is_plain(RunView row)
{
    const auto is_inverted = [](const Run& run) { return begin_of(run) > end_of(run); };
    const auto is_not_left_of = [](const Run& left, const Run& right) { return end_of(left) >= begin_of(right); };
    return std::none_of(row.begin(), row.end(), is_inverted) &&
           std::adjacent_find(row.begin(), row.end(), is_not_left_of) == row.end();
}

} // namespace

ByColumn::ByColumn(RunView row) : runs_(row)
{
    if (!std::is_sorted(row.begin(), row.end(), begins_before)) {
        copy_.assign(row.begin(), row.end());
        std::stable_sort(copy_.begin(), copy_.end(), begins_before);
        runs_ = copy_;
    }
}

Neighbours::Neighbours(RunView row) : row_(row), is_plain_(is_plain(row)) {}

std::size_t Neighbours::first_not_left_of(int column) const
{
    const auto lies_left = [column](const Run& run) { return end_of(run) < column; };
    std::size_t begin = first_;
    std::size_t stop = first_;
    if (begin > 0 && !lies_left(row_[begin - 1])) {
        begin = 0;
    }
    for (std::size_t step = 1; stop < row_.size() && lies_left(row_[stop]); step *= 2) {
        begin = stop + 1;
        stop = std::min(row_.size(), stop + step);
    }
    const RunView among = row_.subspan(begin, stop - begin);
    return begin +
           static_cast<std::size_t>(std::partition_point(among.begin(), among.end(), lies_left) - among.begin());
}

RunView Neighbours::of(const Run& run)
{
    if (!is_plain_ || begin_of(run) > end_of(run)) {
        return row_;
    }
    first_ = first_not_left_of(begin_of(run));
    std::size_t stop = first_;
    while (stop < row_.size() && begin_of(row_[stop]) <= end_of(run)) {
        ++stop;
    }
    return row_.subspan(first_, stop - first_);
}

} // namespace kiv
